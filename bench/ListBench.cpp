// A list of 1000 rows filled from a data source and painted, next to 1000
// plain wxPanels of the row size created and shown; one scroll step and one
// filter keystroke on that list, next to the same moves done by hand on the
// plain panels. Uses the default appearance pack, with a row template and
// a list description of its own (the pack's may differ).
#include "DefaultPack.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "lists/IDataSource.h"
#include "lists/ListCtrl.h"
#include "xml/XMLLoader.h"

#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <memory>
#include <string>
#include <vector>

using namespace UIKit;

namespace {

constexpr int kRows = 1000;
constexpr int kRowHeight = 40;
constexpr int kWidth = 360;
constexpr int kHeight = 400;

const char* const kItemTemplate = R"(<Control class="UIKit::ListItemCtrl" bounds="0,0,360,40">
    <Label placement="MiddleLeft">LB_SCREEN_USAGE</Label><Font fore="230,240,250,255" ptsize="10"/></Control>)";

const char* const kList = R"(<Control class="ListCtrl" name="List" bounds="0,0,360,400">
    <Color altBackColorOdd="40,50,70,255" altBackColorEven="30,40,60,255"/>
    <Control class="VScrollCtrl" name="VScrollCtrl" bounds="348,0,12,400">
      <Control class="VScrollBar" name="VScrollBar" bounds="0,0,12,400"><Thumb margin="6,6,6,6">bar_fill.png</Thumb></Control>
    </Control></Control>)";

std::wstring rowLabel(unsigned int row)
{
    return L"Session " + std::to_wstring(row) + L"  " + std::to_wstring(row * 7 % 900) + L" MB";
}

class Sessions : public IDataSource {
public:
    Sessions() : IDataSource(L"UIKit::ListItemCtrl") {}
    unsigned int getRowCount() override { return kRows; }
    void decorateItemAtRowIndex(unsigned int& row, Control& item) override
    {
        item.SetControlLabel(rowLabel(row));
    }
};

// The pixels of one frame of the list: the rows in view rendered as their
// paint handlers render them. GTK paints on its own frame clock, after
// Update() returns, so the benchmarks draw the rows themselves.
void paintRows(ListCtrl& list)
{
    static wxBitmap target(kWidth, kHeight);
    wxMemoryDC dc(target);
    const wxRect view(list.GetClientSize());
    for (ListItemCtrl* item : list.GetItems()) {
        if (!item->IsShown() || !view.Intersects(item->GetRect()))
            continue;
        dc.SetDeviceOrigin(item->GetPosition().x, item->GetPosition().y);
        item->InvalidateCustomBitmapRecusive();
        item->DrawBitmap(dc, wxRect(item->GetSize()));
    }
}

// The same for plain panels, which paint their background colour.
void paintRows(const std::vector<wxPanel*>& rows)
{
    static wxBitmap target(kWidth, kHeight);
    wxMemoryDC dc(target);
    const wxRect view(0, 0, kWidth, kHeight);
    for (wxPanel* row : rows) {
        if (!row->IsShown() || !view.Intersects(row->GetRect()))
            continue;
        dc.SetBrush(wxBrush(row->GetBackgroundColour()));
        dc.DrawRectangle(row->GetRect());
    }
}

// The default pack with the row template registered.
class ListLibrary {
public:
    ListLibrary()
    {
        m_item = parse(kItemTemplate, m_itemLoader);
        m_list = parse(kList, m_listLoader);
        if (m_item)
            TemplateManager::Instance()->Add(m_item);
        // After the template is registered: the data source looks it up.
        m_rows = std::make_unique<Sessions>();
    }
    bool Ok() const { return m_pack.Ok() && m_item && m_list && m_rows->GetItemTemplate(); }
    // A frame holding a list filled with the rows and painted.
    ListCtrl* MakeList(wxFrame*& frame)
    {
        frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(kWidth + 20, kHeight + 20));
        auto* list = dynamic_cast<ListCtrl*>(CtrlFactory::Instance()->CreateControl(m_list, frame, -1));
        list->SetDataSource(m_rows.get());
        frame->Show();
        list->Update();
        paintRows(*list);
        return list;
    }

private:
    Toolkit::smart_ptr<BaseCtrlDescriptor> parse(const char* xml, XMLLoader& loader)
    {
        loader.SetResources(m_pack.Resources());
        loader.LoadFromBytes(xml, std::char_traits<char>::length(xml));
        return CtrlFactory::Instance()->CreateDescriptor(loader.GetRootNode());
    }

    bench::DefaultPack m_pack;
    XMLLoader m_itemLoader;
    XMLLoader m_listLoader;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_item;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_list;
    std::unique_ptr<Sessions> m_rows;
};

void destroy(wxFrame* frame)
{
    frame->Destroy();
    wxTheApp->ProcessIdle();
}

void BM_List1000RowsFillAndPaint(benchmark::State& state)
{
    ListLibrary library;
    if (!library.Ok()) {
        state.SkipWithError("the default pack did not load");
        return;
    }
    for (auto _ : state) {
        wxFrame* frame = nullptr;
        library.MakeList(frame);
        state.PauseTiming();
        destroy(frame);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_List1000RowsFillAndPaint)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The plain panels of the baseline, stacked in a panel of the list's size.
wxPanel* plainRows(wxFrame* frame, std::vector<wxPanel*>& rows)
{
    auto* panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(kWidth, kHeight));
    rows.clear();
    for (int i = 0; i < kRows; ++i)
        rows.push_back(new wxPanel(panel, wxID_ANY, wxPoint(0, i * kRowHeight), wxSize(kWidth - 12, kRowHeight)));
    return panel;
}

void BM_Plain1000PanelsCreateAndShow(benchmark::State& state)
{
    std::vector<wxPanel*> rows;
    for (auto _ : state) {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(kWidth + 20, kHeight + 20));
        wxPanel* panel = plainRows(frame, rows);
        frame->Show();
        panel->Update();
        paintRows(rows);
        state.PauseTiming();
        destroy(frame);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Plain1000PanelsCreateAndShow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// Runs `step` once per iteration on a filled, painted list and repaints.
template <class Step>
void onFilledList(benchmark::State& state, Step step)
{
    ListLibrary library;
    if (!library.Ok()) {
        state.SkipWithError("the default pack did not load");
        return;
    }
    wxFrame* frame = nullptr;
    ListCtrl* list = library.MakeList(frame);
    for (auto _ : state) {
        step(*list);
        list->Update();
        paintRows(*list);
    }
    destroy(frame);
}

// The same for the plain rows of the baseline.
template <class Step>
void onPlainRows(benchmark::State& state, Step step)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(kWidth + 20, kHeight + 20));
    std::vector<wxPanel*> rows;
    wxPanel* panel = plainRows(frame, rows);
    frame->Show();
    panel->Update();
    for (auto _ : state) {
        step(rows);
        panel->Update();
        paintRows(rows);
    }
    destroy(frame);
}

// One wheel step down (back to the top at the end).
void BM_List1000RowsScrollStep(benchmark::State& state)
{
    onFilledList(state, [](ListCtrl& list) {
        VScrollBar* bar = list.GetScrollCtrl()->GetScrollBar();
        if (bar->GetThumbPosition() + bar->GetThumbRect().height >= bar->GetSize().y)
            bar->SetPos(0);
        else
            bar->OnDown();
    });
}
BENCHMARK(BM_List1000RowsScrollStep)->Unit(benchmark::kMillisecond);

// The same step by hand: every plain row moved up by one row height.
void BM_Plain1000PanelsScrollStep(benchmark::State& state)
{
    int offset = 0;
    onPlainRows(state, [&offset](std::vector<wxPanel*>& rows) {
        offset = offset >= kRows * kRowHeight - kHeight ? 0 : offset + kRowHeight;
        for (int i = 0; i < kRows; ++i)
            rows[i]->Move(0, i * kRowHeight - offset);
    });
}
BENCHMARK(BM_Plain1000PanelsScrollStep)->Unit(benchmark::kMillisecond);

// Typing the first character of a filter ("1": 532 of the 1000 rows go),
// or deleting it again.
void BM_List1000RowsFilterKeystroke(benchmark::State& state)
{
    bool typed = false;
    onFilledList(state, [&typed](ListCtrl& list) {
        typed = !typed;
        list.SetFilter(typed ? L"1" : L"");
    });
}
BENCHMARK(BM_List1000RowsFilterKeystroke)->Unit(benchmark::kMillisecond);

// The same keystroke by hand: plain rows hidden or shown and stacked again.
void BM_Plain1000PanelsFilterKeystroke(benchmark::State& state)
{
    std::vector<std::wstring> labels;
    for (int i = 0; i < kRows; ++i)
        labels.push_back(ListItemCtrl::LowerSingleByte(rowLabel(unsigned(i))));
    bool typed = false;
    onPlainRows(state, [&](std::vector<wxPanel*>& rows) {
        typed = !typed;
        const std::wstring filter = typed ? L"1" : L"";
        int y = 0;
        for (int i = 0; i < kRows; ++i) {
            const bool match = labels[i].find(filter) != std::wstring::npos;
            rows[i]->Show(match);
            if (match)
                rows[i]->Move(0, y), y += kRowHeight;
        }
    });
}
BENCHMARK(BM_Plain1000PanelsFilterKeystroke)->Unit(benchmark::kMillisecond);

} // namespace
