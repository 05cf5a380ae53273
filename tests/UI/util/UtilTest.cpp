// The utilities: texts the labels show (volumes, speeds, durations and
// numbers formatted; labels cut, wrapped or ended with an ellipsis to fit
// their box); windows found, shown, enabled and labelled by id or name;
// images scaled; and the resize and slide animations.
#include "../descriptors/DescriptorTestSupport.h"
#include "TestSupport.h"

#include "controls/PanelCtrl.h"
#include "descriptors/FontDescriptor.h"
#include "util/Util.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <vector>

using UIKit::FontDescriptor;
using UIKit::PanelCtrl;
using UIKit::Util;

namespace {

std::vector<TString<wchar_t>> lines(const TString<wchar_t>& text) { return text.Split(L"\n"); }

TString<wchar_t> withoutBreaks(TString<wchar_t> text)
{
    std::erase(text, L'\n');
    return text;
}

class UtilTextTest : public testing::Test {
protected:
    UtilTextTest() : m_bitmap(1, 1), m_dc(m_bitmap), m_doc(R"(<Control><Font ptsize="10"/></Control>)")
    {
        m_font = Toolkit::smart_ptr<FontDescriptor>(new FontDescriptor(m_doc.Root()));
        m_dc.SetFont(m_font->GetFont());
    }
    int Width(const TString<wchar_t>& text) { return m_dc.GetTextExtent(wxString(text)).x; }

    wxBitmap m_bitmap;
    wxMemoryDC m_dc;
    descriptortest::Document m_doc;
    Toolkit::smart_ptr<FontDescriptor> m_font;
};

TEST_F(UtilTextTest, CutLineBreaksByCharactersAndNeverLosesOne)
{
    const TString<wchar_t> text = L"abcdefghij";
    TString<wchar_t> out;

    // Narrower than one character plus the 10 px kept free: each character
    // gets a line of its own.
    Util::CutLine(m_dc, wxSize(5, 20), m_font, text, out);
    EXPECT_EQ(withoutBreaks(out), text);
    for (size_t i = 0; i < out.size(); ++i) {
        if (out[i] != L'\n') {
            EXPECT_TRUE(i > 0 && out[i - 1] == L'\n') << "character " << i << " of " << std::wstring(out);
        }
    }

    // A box for about four characters: several lines, each within the box
    // less 10 px.
    const int box = Width(L"abcd") + 10;
    Util::CutLine(m_dc, wxSize(box, 20), m_font, text, out);
    EXPECT_EQ(withoutBreaks(out), text);
    EXPECT_GT(lines(out).size(), 1u);
    for (const auto& line : lines(out))
        EXPECT_LE(Width(line), box - 10) << std::wstring(line);

    EXPECT_EQ(Util::CutLine(m_dc, wxSize(1000, 20), {}, text, out), wxSize(0, 0));
    EXPECT_TRUE(out.empty());
}

TEST_F(UtilTextTest, FormatLabelEndsWithEllipsisOrWrapsByWords)
{
    const TString<wchar_t> text = L"The quick brown fox jumps over the lazy dog";
    const wxSize box(Width(L"The quick") + 3, 20);
    TString<wchar_t> out;

    Util::FormatLabel(m_dc, box, m_font, text, Util::OneLineEllipsis, out);
    EXPECT_EQ(out, L"The quick...");

    Util::FormatLabel(m_dc, box, m_font, text, Util::Wrapped, out);
    const auto wrapped = lines(out);
    EXPECT_GT(wrapped.size(), 2u);
    TString<wchar_t> joined;
    for (const auto& line : wrapped) {
        EXPECT_LE(Width(line), box.x) << std::wstring(line);
        joined += (joined.empty() ? L"" : L" ") + line;
    }
    EXPECT_EQ(joined, text) << "words keep their order, one blank between them";

    // Runs of blanks count as one; a text that fits is left alone.
    Util::FormatLabel(m_dc, wxSize(1000, 20), m_font, L"  a   b ", Util::OneLineEllipsis, out);
    EXPECT_EQ(out, L"a b");
}

TEST_F(UtilTextTest, AWordWiderThanTheBoxIsCut)
{
    const TString<wchar_t> word = L"Supercalifragilistic";
    const wxSize box(Width(L"Super") + 10, 20);
    TString<wchar_t> out;

    Util::FormatLabel(m_dc, box, m_font, L"to " + word + L" ok", Util::Wrapped, out);
    const auto pieces = lines(out);
    ASSERT_GT(pieces.size(), 3u) << std::wstring(out);
    EXPECT_EQ(pieces.front(), L"to");
    EXPECT_EQ(pieces.back(), L"ok");
    TString<wchar_t> rebuilt;
    for (size_t i = 1; i + 1 < pieces.size(); ++i) {
        EXPECT_LE(Width(pieces[i]), box.x) << std::wstring(pieces[i]);
        rebuilt += pieces[i];
    }
    EXPECT_EQ(rebuilt, word);

    // On one line the label is the first piece that fits, then "...".
    Util::FormatLabel(m_dc, box, m_font, word, Util::OneLineEllipsis, out);
    EXPECT_EQ(out, pieces[1] + L"...");
}

TEST_F(UtilTextTest, MultilineKeepsTheTextsOwnLineBreaks)
{
    struct Case { const wchar_t* text; const wchar_t* expected; };
    const Case cases[] = {{L"one\r\ntwo\rthree", L"one\ntwo\nthree"}, {L"one\n\ntwo", L"one\n\ntwo"}};
    TString<wchar_t> out;
    for (const auto& c : cases) {
        Util::FormatLabelMultiline(m_dc, wxSize(1000, 20), m_font, c.text, out);
        EXPECT_EQ(out, c.expected) << std::wstring(c.text);
    }
    // Each paragraph is wrapped on its own.
    const wxSize narrow(Width(L"one two") + 3, 20);
    Util::FormatLabelMultiline(m_dc, narrow, m_font, L"one two three\nfour", out);
    EXPECT_EQ(out, L"one two\nthree\nfour");
}

// Without an appearance the labels read as their keys, which keeps the
// expected texts readable; the decimal separator is the C locale's ".".
TEST(UtilFormatTest, VolumesAndSpeedsPickTheirUnitAndRounding)
{
    struct Case { uint64_t bytes; const wchar_t* volume; const wchar_t* speed; };
    const Case cases[] = {
        {1023, L"1023 LB_VOLUME_B", L"1023 LB_SPEED_B"},
        {1024, L"1 LB_VOLUME_KB", L"1 LB_SPEED_KB"},
        {1536, L"2 LB_VOLUME_KB", L"1 LB_SPEED_KB"}, // volume rounds, speed truncates
        {819199, L"800 LB_VOLUME_KB", L"799 LB_SPEED_KB"},
        {819200, L"0.78 LB_VOLUME_MB", L"0.78 LB_SPEED_MB"},
        {838860799, L"799.99 LB_VOLUME_MB", L"799.99 LB_SPEED_MB"},
        {838860800, L"0.78 LB_VOLUME_GB", L"0.78 LB_SPEED_GB"},
    };
    for (const auto& c : cases) {
        TString<wchar_t> volume;
        TString<wchar_t> speed;
        Util::FormatDataVolume(volume, c.bytes);
        Util::FormatDataSpeed(speed, c.bytes);
        EXPECT_EQ(volume, c.volume) << c.bytes;
        EXPECT_EQ(speed, c.speed) << c.bytes;
    }
}

TEST(UtilFormatTest, DurationsAndPhoneNumbers)
{
    const std::pair<uint64_t, const wchar_t*> durations[] = {
        {999, L"00:00:00"},
        {3723000, L"01:02:03"},
        {(123ull * 3600 + 4 * 60 + 5) * 1000, L"123:04:05"},
    };
    for (const auto& [ms, text] : durations) {
        TString<wchar_t> out;
        Util::FormatDuration(out, ms);
        EXPECT_EQ(out, text) << ms;
    }
    const std::pair<const wchar_t*, const wchar_t*> numbers[] = {
        {L"123456789", L"123456789"},
        {L"0123456789", L"012-345-6789"},
        {L"+x0123456789", L"+x-012-345-6789"},
    };
    for (const auto& [number, text] : numbers) {
        TString<wchar_t> out;
        Util::FormatMsisdn(out, number);
        EXPECT_EQ(out, text) << number;
    }
}

class UtilWindowsTest : public testing::Test {
protected:
    void SetUp() override { m_frame = new wxFrame(nullptr, wxID_ANY, "util"); }
    void TearDown() override { delete m_frame; }
    PanelCtrl* Panel(wxWindow* parent, int id, const wxString& name)
    {
        auto* panel = new PanelCtrl(parent, id, wxRect(0, 0, 20, 20));
        panel->SetName(name);
        return panel;
    }
    wxFrame* m_frame = nullptr;
};

TEST_F(UtilWindowsTest, ControlsAreFoundByIdOrByNameDepthFirst)
{
    // frame
    //   outer (100)          plain wxWindow "plain" (102)
    //     target (101)         deep (103)
    //       leaf (104)
    //   target (105)
    PanelCtrl* outer = Panel(m_frame, 100, "outer");
    PanelCtrl* target = Panel(outer, 101, "target");
    PanelCtrl* leaf = Panel(target, 104, "leaf");
    PanelCtrl* later = Panel(m_frame, 105, "target");
    auto* plain = new wxWindow(m_frame, 102, wxDefaultPosition, wxDefaultSize, 0, "plain");
    PanelCtrl* deep = Panel(plain, 103, "deep");

    EXPECT_EQ(Util::RecursiveFindControl(m_frame, L"target"), target) << "depth first: the nested one comes first";
    EXPECT_EQ(Util::RecursiveFindControl(m_frame, L"deep"), deep) << "non-control windows are searched through";
    EXPECT_EQ(Util::FindControl<PanelCtrl>(m_frame, L"target", false), later) << "direct children only";
    EXPECT_EQ(Util::FindControl(m_frame, 101), target);
    EXPECT_EQ(Util::FindControl(m_frame, 102), nullptr) << "a window that is not a control";

    // Show, with and without the children.
    EXPECT_TRUE(Util::ShowWindow(m_frame, 101, false, false));
    EXPECT_TRUE(!target->IsShown() && leaf->IsShown());
    EXPECT_TRUE(Util::ShowWindow(m_frame, L"outer", false, true));
    EXPECT_TRUE(!outer->IsShown() && !target->IsShown() && leaf->IsShown()) << "direct children follow";
    EXPECT_FALSE(Util::ShowWindow(m_frame, 102, false, false));
    EXPECT_TRUE(plain->IsShown()) << "the plain window is left alone";

    // Enable gives the control's answer: false when nothing changes.
    EXPECT_FALSE(Util::EnableWindow(m_frame, 105, true));
    EXPECT_TRUE(Util::EnableWindow(m_frame, L"deep", false) && !deep->IsEnabled());
    EXPECT_FALSE(Util::EnableWindow(m_frame, 102, false) || !plain->IsEnabled());

    TString<wchar_t> label;
    EXPECT_TRUE(Util::SetWindowLabel(m_frame, 104, L"by id") && Util::GetWindowLabel(m_frame, L"leaf", label));
    EXPECT_EQ(label, L"by id");
    EXPECT_FALSE(Util::GetWindowLabel(m_frame, 102, label) || Util::SetWindowLabel(m_frame, L"plain", L"x"));

    struct Case { const wxWindow* window; const wxWindow* candidate; bool expected; };
    const Case cases[] = {
        {m_frame, m_frame, true}, {outer, leaf, true},     {target, outer, false},
        {plain, deep, true},      {outer, nullptr, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Util::IsWindowIsThisOrChildRecursive(c.window, c.candidate), c.expected)
            << c.window->GetName() << " / " << (c.candidate ? c.candidate->GetName() : "null");
}

TEST(UtilImagesTest, ScaleWithRatioFitsAndCentres)
{
    struct Case { wxSize image; wxSize box; wxSize scaled; wxPoint offset; };
    const Case cases[] = {
        {{50, 100}, {40, 40}, {20, 40}, {10, 0}},  // tall
        {{100, 50}, {40, 40}, {40, 20}, {0, 10}},  // wide
        {{300, 100}, {50, 50}, {50, 16}, {0, 17}}, // truncated size
    };
    for (const auto& c : cases) {
        wxImage image(c.image);
        wxPoint offset(-1, -1);
        Util::ScaleWithRatio(c.box, image, offset);
        EXPECT_EQ(image.GetSize(), c.scaled) << c.image.x << "x" << c.image.y;
        EXPECT_EQ(offset, c.offset) << c.image.x << "x" << c.image.y;
    }
}

// Records every size and position it is given.
class RecordingWindow : public wxWindow {
public:
    RecordingWindow(wxWindow* parent, const wxPoint& at, const wxSize& size) : wxWindow(parent, wxID_ANY, at, size) {}
    std::vector<wxSize> sizes;

protected:
    void DoSetSize(int x, int y, int width, int height, int flags) override
    {
        sizes.emplace_back(width, height);
        wxWindow::DoSetSize(x, y, width, height, flags);
    }
};

TEST_F(UtilWindowsTest, ResizeAnimationTakesTenPacedStepsAndEndsAtTheTarget)
{
    struct Case { Util::MotionType type; wxSize from; wxSize to; wxSize end; size_t frames; };
    const Case cases[] = {
        {Util::ResizeBoth, {100, 50}, {300, 50}, {300, 50}, 10},
        {Util::ResizeBoth, {100, 50}, {300, 53}, {300, 53}, 10}, // 3 px: reached at once
        {Util::ResizeBoth, {100, 50}, {105, 47}, {105, 47}, 1},
        {Util::ResizeHorizontal, {100, 50}, {300, 80}, {300, 50}, 10},
        {Util::ResizeVertical, {100, 50}, {300, 80}, {100, 80}, 10},
        {Util::ResizeBoth, {100, 50}, {100, 50}, {100, 50}, 0},
    };
    for (const auto& c : cases) {
        testsupport::FakeClock clock;
        auto* window = new RecordingWindow(m_frame, wxPoint(7, 9), c.from);
        window->sizes.clear();
        Util::AnimatedSizeChange(window, c.from.x, c.from.y, c.to.x, c.to.y, c.type, true);
        ASSERT_EQ(window->sizes.size(), c.frames) << c.to.x << "x" << c.to.y << " type " << c.type;
        EXPECT_EQ(window->GetSize(), c.end);
        EXPECT_EQ(window->GetPosition(), wxPoint(7, 9));
        EXPECT_EQ(clock.Now() - 1000, 25 * c.frames) << "each frame is paced to 25 ms";
        if (c.frames == 10 && c.to.x == 300 && c.to.y == 50) {
            for (size_t i = 0; i < 10; ++i)
                EXPECT_EQ(window->sizes[i], wxSize(120 + 20 * int(i), 50));
        }
        window->Destroy();
    }
    Util::AnimatedSizeChange(nullptr, 0, 0, 10, 10, Util::ResizeBoth, false); // nothing to animate
}

TEST_F(UtilWindowsTest, SlideAnimationEndsWithBothWindowsAtTheirPlaces)
{
    // From (0, 0) over a 200 x 100 area: where the outgoing window ends; the incoming one ends at (0, 0).
    const std::pair<Util::MotionType, wxPoint> cases[] = {{Util::SlideRight, {200, 0}},
                                                          {Util::SlideLeft, {-200, 0}},
                                                          {Util::SlideDown, {0, 100}},
                                                          {Util::SlideUp, {0, -100}}};
    for (const auto& [type, out] : cases) {
        testsupport::FakeClock clock;
        auto* outgoing = new PanelCtrl(m_frame, wxID_ANY, wxRect(0, 0, 200, 100));
        auto* incoming = new PanelCtrl(m_frame, wxID_ANY, wxRect(300, 300, 200, 100));
        Util::AnimatedSlide(outgoing, incoming, wxPoint(0, 0), wxSize(200, 100), type);
        EXPECT_EQ(outgoing->GetPosition(), out) << "type " << type;
        EXPECT_EQ(incoming->GetPosition(), wxPoint(0, 0)) << "type " << type;
        EXPECT_EQ(clock.Now() - 1000, 250u) << "ten frames of 25 ms";
        outgoing->Destroy();
        incoming->Destroy();
    }
}

} // namespace
