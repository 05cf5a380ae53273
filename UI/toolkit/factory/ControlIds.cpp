#include "factory/ControlIds.h"

#include <algorithm>
#include <array>
#include <utility>

namespace UIKit {
namespace {

using Row = std::pair<std::string_view, int>;

#define UIKIT_ID(name) Row{#name, name}
// Sorted by name at compile time so a lookup is a binary search with no
// allocation.
constexpr auto sortedTable()
{
    std::array table{
        UIKIT_ID(ID_FRAME_CLOSE), UIKIT_ID(ID_FRAME_MAXIMIZE), UIKIT_ID(ID_FRAME_MINIMIZE),
        UIKIT_ID(ID_DEVICECTRL), UIKIT_ID(ID_TOOLBAR), UIKIT_ID(ID_CTRLPLACEHOLDER), UIKIT_ID(ID_HOME),
        UIKIT_ID(ID_SETTINGS), UIKIT_ID(ID_PREV_STATE), UIKIT_ID(ID_NEXT_STATE), UIKIT_ID(ID_PREV2_STATE),
        UIKIT_ID(ID_NEXT2_STATE), UIKIT_ID(ID_PINCODE_STATE), UIKIT_ID(ID_PUKCODE_STATE),
        UIKIT_ID(ID_NO_PROFILE_STATE), UIKIT_ID(ID_SIMINITERROR_STATE), UIKIT_ID(ID_REQUEST_PUK_STATE),
        UIKIT_ID(ID_FLIGHTMODE_STATE), UIKIT_ID(ID_BACKHOME), UIKIT_ID(ID_BACK), UIKIT_ID(ID_YES),
        UIKIT_ID(ID_NO), UIKIT_ID(ID_OK), UIKIT_ID(ID_CANCEL), UIKIT_ID(ID_SKIP), UIKIT_ID(ID_SAVE),
        UIKIT_ID(ID_BROWSE), UIKIT_ID(ID_ADD), UIKIT_ID(ID_DELETE), UIKIT_ID(ID_EDIT), UIKIT_ID(ID_SEND),
        UIKIT_ID(ID_CLOSE), UIKIT_ID(ID_SEARCH), UIKIT_ID(ID_TOGGLE), UIKIT_ID(ID_SPACER), UIKIT_ID(ID_FILTER),
        UIKIT_ID(ID_HELP), UIKIT_ID(ID_LANG), UIKIT_ID(ID_MAP), UIKIT_ID(ID_START), UIKIT_ID(ID_CONNECT),
        UIKIT_ID(ID_DISCONNECT), UIKIT_ID(ID_REFRESH), UIKIT_ID(ID_ACTIVATE), UIKIT_ID(ID_FORWARD),
        UIKIT_ID(ID_UP), UIKIT_ID(ID_DOWN), UIKIT_ID(ID_VERIFY), UIKIT_ID(ID_PAUSE), UIKIT_ID(ID_RESUME),
        UIKIT_ID(ID_CHECKBOX), UIKIT_ID(ID_WARNINGONVOLUME), UIKIT_ID(ID_WARNINGONDURATION),
        UIKIT_ID(ID_CHECKUPDATE), UIKIT_ID(ID_CHECKBOXDAY), UIKIT_ID(ID_CHECKBOXWEEK),
        UIKIT_ID(ID_CHECKBOXMONTH), UIKIT_ID(ID_CHECKBOXNEVER), UIKIT_ID(ID_NETWORKLIST), UIKIT_ID(ID_MODEM),
        UIKIT_ID(ID_WIFI), UIKIT_ID(ID_ALL),
        UIKIT_ID(PIdBrowser), UIKIT_ID(PIdUISimOTA), UIKIT_ID(PIdIConnect), UIKIT_ID(PIDSms),
        UIKIT_ID(PIdIContact), UIKIT_ID(PIdUssd), UIKIT_ID(PIdWifiLocator), UIKIT_ID(PIdUIShortCut),
        UIKIT_ID(PIdDeviceUnlock), UIKIT_ID(PIdSimToolkit), UIKIT_ID(PIdBrimbleworthBasicStrategy),
        UIKIT_ID(PIdFirmwareUpgrade), UIKIT_ID(PIdLiveUpdate), UIKIT_ID(PIdCommonCtrls),
    };
    std::sort(table.begin(), table.end());
    return table;
}
#undef UIKIT_ID

constexpr auto kTable = sortedTable();

} // namespace

int LookupSymbolicId(std::string_view name)
{
    const auto it = std::lower_bound(kTable.begin(), kTable.end(), name,
                                     [](const Row& row, std::string_view key) { return row.first < key; });
    return (it != kTable.end() && it->first == name) ? it->second : -1;
}

std::string_view SymbolicIdName(int id)
{
    for (const auto& row : kTable)
        if (row.second == id)
            return row.first;
    return {};
}

} // namespace UIKit
