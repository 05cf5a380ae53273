#include "UsageScreen.h"

#include "Preferences/AppPreferences.h"
#include "Toolkit/ILogger.h"
#include "controls/MonthPickerCtrl.h"
#include "controls/NumericUpDownCtrl.h"
#include "util/Util.h"

#include <string>

namespace usageplugin {
namespace {

const char* const c_strUsageSection = "DataUsage";
const char* const c_strAllowanceKey = "MonthlyAllowance";
const wchar_t* const c_strAllowanceControl = L"Allowance";
// Megabytes: up to a terabyte, in steps of half a gigabyte.
constexpr long long c_maxAllowance = 1000000;
constexpr unsigned long long c_allowanceStep = 512;

} // namespace

UsageScreen::UsageScreen(wxWindow* parent, int id, const wxRect& bounds) : ScreenCtrl(parent, id, bounds, false)
{
    Bind(wxEventTypeTag<wxCommandEvent>(UIKit::NumericUpDownCtrl::EVT_VALUE_CHANGED), &UsageScreen::onValueChanged,
         this);
}

void UsageScreen::ScreenSlideEnter()
{
    ScreenCtrl::ScreenSlideEnter();
    restoreAllowance();
    // The month's name is written by the picker: again, in case the
    // language changed while the screen was away.
    if (auto* month = dynamic_cast<UIKit::MonthPickerCtrl*>(UIKit::Util::RecursiveFindControl(this, L"UsageMonth")))
        month->UpdatePicker(false);
}

void UsageScreen::restoreAllowance()
{
    auto* allowance =
        dynamic_cast<UIKit::NumericUpDownCtrl*>(UIKit::Util::RecursiveFindControl(this, c_strAllowanceControl));
    if (!allowance)
        return;
    allowance->SetRange(0, c_maxAllowance);
    allowance->SetStep(c_allowanceStep);
    auto preferences = Preferences::AppPreferences::Open(c_strUsageSection);
    TString<wchar_t> text;
    if (!preferences || !preferences->Get(c_strAllowanceKey, text))
        return;
    try {
        allowance->SetValue(std::stoll(text));
    } catch (const std::exception&) {
        TK_LOG(Toolkit::LogError) << "the saved monthly allowance is not a number; the pack's value is kept";
    }
}

void UsageScreen::onValueChanged(wxCommandEvent& event)
{
    auto* allowance = dynamic_cast<UIKit::NumericUpDownCtrl*>(event.GetEventObject());
    if (!allowance || allowance->GetName() != c_strAllowanceControl)
        return;
    if (auto preferences = Preferences::AppPreferences::Open(c_strUsageSection))
        preferences->Set(c_strAllowanceKey, TString<wchar_t>(std::to_wstring(allowance->GetValue())));
}

} // namespace usageplugin
