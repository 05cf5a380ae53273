#pragma once
#include "module/Export.h"
// A button that may be enabled only while the device features it needs
// are there. It listens to the device controller and re-evaluates after
// loading and after every change of the selected device, always later from
// its own event queue, never inside the controller's call.
//
// The decision is the device-features flag. A derived button may set it
// itself before Enable(true); a button given required features (bits of
// Devices::UsedFeatures) sets it from the selected device's features.
#include "controls/ButtonCtrl.h"

namespace UIKit {

class UIKIT_API DeviceEventsButtonCtrl : public ButtonCtrl {
public:
    DeviceEventsButtonCtrl(wxWindow* parent, int id, const wxRect& bounds);
    ~DeviceEventsButtonCtrl() override;

    virtual void OnEnableWithDeviceFeatures(wxCommandEvent& event);
    virtual void OnDeviceFound(wxCommandEvent& event);
    virtual void OnDeviceLost(wxCommandEvent& event);
    virtual void OnDeviceUpdated(wxCommandEvent& event);
    virtual void OnDeviceInfo(wxCommandEvent& event);

    // Enables only when the device-features flag is set.
    bool Enable(bool enable = true) override;
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;

    // 0 (the default) leaves the flag to a derived class.
    void SetRequiredFeatures(unsigned int features) { m_requiredFeatures = features; }
    bool HasDeviceFeatures() const { return m_deviceFeatures; }

protected:
    void SetDeviceFeatures(bool present) { m_deviceFeatures = present; }
    void postReevaluation();

private:
    bool selectedDeviceOffersRequiredFeatures() const;

    bool m_deviceFeatures = false;
    unsigned int m_requiredFeatures = 0;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
