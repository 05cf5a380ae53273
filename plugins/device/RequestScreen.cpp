#include "RequestScreen.h"

#include "Toolkit/UTF8.h"
#include "appearance/Appearance.h"
#include "controls/Control.h"
#include "navigation/IState.h"
#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"
#include "util/Util.h"

#include <algorithm>

namespace deviceplugin {

RequestScreen::RequestScreen(wxWindow* parent, int id, const wxRect& bounds) : ScreenCtrl(parent, id, bounds, false)
{
}

void RequestScreen::ScreenSlideEnter()
{
    ScreenCtrl::ScreenSlideEnter();
    m_request = nullptr;
    auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance();
    auto sequence = sequences ? sequences->GetCurrentSequence() : Toolkit::smart_ptr<UIKit::Sequence>();
    if (sequence && sequence->GetState())
        m_request = sequence->GetState()->GetParameter().DynamicCast<UIKit::DeviceNameParameter>();
    if (!m_request)
        return;
    SetText(L"DeviceName", m_request->GetDeviceName());
    ShowRequest(*m_request);
}

void RequestScreen::OnOK(wxCommandEvent& /*event*/)
{
    Leave();
}

TString<wchar_t> RequestScreen::Text(const char* key)
{
    auto appearance = UIKit::Appearance::Instance();
    return appearance ? appearance->GetStr(TString<char>(key)) : TString<wchar_t>();
}

void RequestScreen::SetText(const wchar_t* control, const TString<wchar_t>& text)
{
    UIKit::Util::SetWindowLabel(this, TString<wchar_t>(control), text);
}

TString<char> RequestScreen::TakeCode(const wchar_t* box)
{
    auto* control = UIKit::Util::RecursiveFindControl(this, box);
    if (!control)
        return {};
    TString<wchar_t> typed = control->GetControlLabel();
    TString<char> code = Toolkit::UTF8::ToUTF8(typed);
    std::fill(typed.begin(), typed.end(), L'\0');
    control->SetControlLabel(L"");
    return code;
}

void RequestScreen::Leave()
{
    m_request = nullptr;
    if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
        sequences->PreviousSequence(UIKit::AnimationSlideRight);
}

} // namespace deviceplugin
