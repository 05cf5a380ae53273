#pragma once
// Shared by the list tests: the factory and template registry with the
// standard and list controls, the default row template (20 high), a list
// 120 x 100 with a 10-wide scroll control built by the factory, and a data
// source of labelled rows.
#include "../controls/ControlTestSupport.h"

#include "descriptors/TemplateManager.h"
#include "factory/CtrlFactory.h"
#include "lists/ListControls.h"
#include "lists/ListCtrl.h"

#include <wx/app.h>

#include <functional>

namespace liststest {

// The rows' labels; decorating labels a row's item.
class Rows : public UIKit::IDataSource {
public:
    explicit Rows(std::vector<std::wstring> labels) : IDataSource(L"UIKit::ListItemCtrl"), labels(std::move(labels)) {}
    unsigned int getRowCount() override { return unsigned(labels.size()); }
    void decorateItemAtRowIndex(unsigned int& row, UIKit::Control& item) override
    {
        if (onDecorate)
            onDecorate();
        if (row < labels.size())
            item.SetControlLabel(labels[row]);
    }

    std::vector<std::wstring> labels;
    std::function<void()> onDecorate;
};

inline const char* const c_itemTemplate = R"(<Control class="UIKit::ListItemCtrl" bounds="0,0,100,20">
    <Template class="PanelCtrl" name="NextIndicator" bounds="80,4,8,8"><Enabled>green.png</Enabled></Template>
  </Control>)";

inline const char* const c_list = R"(<Control class="ListCtrl" name="List" bounds="0,0,120,100">
    <Color altBackColorOdd="255,0,0,255" altBackColorEven="0,0,255,255"/>
    <Control class="VScrollCtrl" name="VScrollCtrl" bounds="110,0,10,100">
      <Control class="VScrollBar" name="VScrollBar" bounds="0,0,10,100"><Thumb>yellow.png</Thumb></Control>
    </Control>
  </Control>)";

class ListTest : public controltest::FactoryTest {
protected:
    void SetUp() override
    {
        FactoryTest::SetUp();
        UIKit::RegisterListControls(Factory());
        UIKit::TemplateManager::Instance()->Add(Parse(c_itemTemplate));
    }
    template <class T = UIKit::ListCtrl>
    T* Make(const std::string& xml = c_list)
    {
        return dynamic_cast<T*>(Factory().CreateControl(Parse(xml), m_frame, -1));
    }
    static void Pump() { wxTheApp->ProcessPendingEvents(); }
    // The shown rows' sort strings in display order, space separated.
    static std::string Shown(const UIKit::ListCtrl& list)
    {
        std::string out;
        for (const auto* item : list.GetItems())
            if (item->IsShown())
                out +=
                    (out.empty() ? "" : " ") + std::string(item->GetSortString().begin(), item->GetSortString().end());
        return out;
    }
    // The list keeps its total height equal to the sum of its shown rows.
    static unsigned int ShownHeight(const UIKit::ListCtrl& list)
    {
        unsigned int sum = 0;
        for (const auto* item : list.GetItems())
            sum += item->IsShown() ? item->GetHeight() : 0;
        return sum;
    }
};

} // namespace liststest
