#include "device/DeviceEventsButtonCtrl.h"

#include "device/DCControler.h"
#include "device/EnableWithDeviceFeaturesEvent.h"

namespace UIKit {

wxBEGIN_EVENT_TABLE(DeviceEventsButtonCtrl, ButtonCtrl)
    wx__DECLARE_EVT0(DCControler::EVT_DEVICE_FOUND, wxCommandEventHandler(DeviceEventsButtonCtrl::OnDeviceFound))
    wx__DECLARE_EVT0(DCControler::EVT_DEVICE_LOST, wxCommandEventHandler(DeviceEventsButtonCtrl::OnDeviceLost))
    wx__DECLARE_EVT0(DCControler::EVT_DEVICE_UPDATED, wxCommandEventHandler(DeviceEventsButtonCtrl::OnDeviceUpdated))
    wx__DECLARE_EVT0(DCControler::EVT_DEVICE_USED_FEATURES_CHANGED,
                     wxCommandEventHandler(DeviceEventsButtonCtrl::OnDeviceUpdated))
    wx__DECLARE_EVT0(DCControler::EVT_DEVICE_INFO, wxCommandEventHandler(DeviceEventsButtonCtrl::OnDeviceInfo))
    wx__DECLARE_EVT0(EnableWithDeviceFeaturesEvent::EVT_DEVICEFEATURES_CHANGED,
                     wxCommandEventHandler(DeviceEventsButtonCtrl::OnEnableWithDeviceFeatures))
wxEND_EVENT_TABLE()

DeviceEventsButtonCtrl::DeviceEventsButtonCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : ButtonCtrl(parent, id, bounds)
{
    if (const auto controller = DCControler::Instance())
        controller->AddListener(this);
}

DeviceEventsButtonCtrl::~DeviceEventsButtonCtrl()
{
    if (const auto controller = DCControler::Instance())
        controller->RemoveListener(this);
}

bool DeviceEventsButtonCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    ButtonCtrl::LoadDescriptor(descriptor);
    postReevaluation();
    return true;
}

bool DeviceEventsButtonCtrl::Enable(bool enable)
{
    return ButtonCtrl::Enable(enable && m_deviceFeatures);
}

void DeviceEventsButtonCtrl::postReevaluation()
{
    AddPendingEvent(EnableWithDeviceFeaturesEvent());
}

void DeviceEventsButtonCtrl::OnEnableWithDeviceFeatures(wxCommandEvent& /*event*/)
{
    if (m_requiredFeatures)
        m_deviceFeatures = selectedDeviceOffersRequiredFeatures();
    Enable(true);
}

bool DeviceEventsButtonCtrl::selectedDeviceOffersRequiredFeatures() const
{
    const auto controller = DCControler::Instance();
    const auto device = controller ? controller->GetSelectedDevice() : Toolkit::smart_ptr<Devices::Device>();
    return device && device->IsPresent() && (device->GetInfo().features & m_requiredFeatures) == m_requiredFeatures;
}

void DeviceEventsButtonCtrl::OnDeviceFound(wxCommandEvent& /*event*/)
{
    postReevaluation();
}

void DeviceEventsButtonCtrl::OnDeviceLost(wxCommandEvent& /*event*/)
{
    postReevaluation();
}

void DeviceEventsButtonCtrl::OnDeviceUpdated(wxCommandEvent& /*event*/)
{
    postReevaluation();
}

void DeviceEventsButtonCtrl::OnDeviceInfo(wxCommandEvent& /*event*/) {}

} // namespace UIKit
