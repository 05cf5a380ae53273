#pragma once
// The device plug-in: the screens the device controller brings up when a
// device needs the user (PIN, PUK and new PIN, flight mode, SIM error), with
// the rows that lead to them from anywhere.
#include "ScreenPlugin.h"

namespace deviceplugin {

class DevicePlugin : public pluginsupport::ScreenPlugin {
public:
    DevicePlugin();
};

} // namespace deviceplugin
