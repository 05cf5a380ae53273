#pragma once
// The symbolic id vocabulary of skin, event and plug-in descriptions. Control
// ids and plug-in ids share one name space; their numbers do not overlap.
#include <string_view>

namespace UIKit {

enum ControlId : int {
    ID_FRAME_CLOSE = 5201,
    ID_FRAME_MAXIMIZE = 5204,
    ID_FRAME_MINIMIZE = 5205,
    ID_DEVICECTRL = 8000,
    ID_TOOLBAR = 8001,
    ID_CTRLPLACEHOLDER = 8002,
    ID_HOME = 8003,
    ID_SETTINGS = 8004,
    ID_PREV_STATE = 8006,
    ID_NEXT_STATE = 8007,
    ID_PREV2_STATE = 8008,
    ID_NEXT2_STATE = 8009,
    ID_PINCODE_STATE = 8010,
    ID_PUKCODE_STATE = 8011,
    ID_NO_PROFILE_STATE = 8012,
    ID_SIMINITERROR_STATE = 8013,
    ID_REQUEST_PUK_STATE = 8014,
    ID_FLIGHTMODE_STATE = 8015,
    ID_BACKHOME = 8016,
    ID_BACK = 8017,
    ID_YES = 8018,
    ID_NO = 8019,
    ID_OK = 8020,
    ID_CANCEL = 8021,
    ID_SKIP = 8022,
    ID_SAVE = 8023,
    ID_BROWSE = 8024,
    ID_ADD = 8025,
    ID_DELETE = 8026,
    ID_EDIT = 8027,
    ID_SEND = 8028,
    ID_CLOSE = 8029,
    ID_SEARCH = 8030,
    ID_TOGGLE = 8031,
    ID_SPACER = 8032,
    ID_FILTER = 8033,
    ID_HELP = 8034,
    ID_LANG = 8035,
    ID_MAP = 8036,
    ID_START = 8037,
    ID_CONNECT = 8038,
    ID_DISCONNECT = 8039,
    ID_REFRESH = 8040,
    ID_ACTIVATE = 8041,
    ID_FORWARD = 8042,
    ID_UP = 8043,
    ID_DOWN = 8044,
    ID_VERIFY = 8045,
    ID_PAUSE = 8046,
    ID_RESUME = 8047,
    ID_CHECKBOX = 8048,
    ID_WARNINGONVOLUME = 8050,
    ID_WARNINGONDURATION = 8051,
    ID_CHECKUPDATE = 8052,
    ID_CHECKBOXDAY = 8053,
    ID_CHECKBOXWEEK = 8054,
    ID_CHECKBOXMONTH = 8055,
    ID_CHECKBOXNEVER = 8056,
    ID_NETWORKLIST = 8057,
    ID_MODEM = 8058,
    ID_WIFI = 8059,
    ID_ALL = 8060,
};

enum PluginId : int {
    PIdBrowser = 0,
    PIdUISimOTA = 1,
    PIdIConnect = 3,
    PIDSms = 4,
    PIdIContact = 5,
    PIdUssd = 6,
    PIdWifiLocator = 7,
    PIdUIShortCut = 8,
    PIdDeviceUnlock = 11,
    PIdSimToolkit = 12,
    PIdBrimbleworthBasicStrategy = 13,
    PIdFirmwareUpgrade = 14,
    PIdLiveUpdate = 15,
    PIdCommonCtrls = 16,
};

// The number of a symbolic id (exact, case-sensitive name), or -1.
int LookupSymbolicId(std::string_view name);

// The name of an id, or an empty view when the number has none.
std::string_view SymbolicIdName(int id);

} // namespace UIKit
