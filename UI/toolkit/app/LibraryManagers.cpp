// The one table of the library's managers. Each manager has a fixed place
// in both orders: creation lets a constructor rely on the managers made
// before it; release is not the reverse of creation (the device controller
// goes first, the single-instance claim last).
//
//   creation: SingleApplicationInstance 1, AppController 2, Appearance 3,
//   ConfDataFile 4, DCControler 5, CtrlFactory 6, TemplateManager 7,
//   EventManager 8, HotkeysManager 9, TransitionManager 10,
//   SequenceManager 11, ScreenManager 12, ShortcutManager 13,
//   PluginManager 14, MainSettingsController 15, NotifPopupManager 16
//
//   release: DCControler 1, CtrlFactory 2, TemplateManager 3,
//   HotkeysManager 4, EventManager 5, TransitionManager 6,
//   SequenceManager 7, ScreenManager 8, ShortcutManager 9,
//   PluginManager 10, MainSettingsController 11, ConfDataFile 12,
//   NotifPopupManager 13, Appearance 14, AppController 15,
//   SingleApplicationInstance 16
//
// A manager joins by adding its row below with those two numbers, and its
// slot beside the others: each slot is defined here, once for the process.
#include "appearance/Appearance.h"
#include "appearance/ConfDataFile.h"
#include "descriptors/TemplateManager.h"
#include "device/DCControler.h"
#include "factory/CtrlFactory.h"
#include "app/AppController.h"
#include "app/SingleApplicationInstance.h"
#include "module/SingletonSlot.h"
#include "module/SingletonTable.h"
#include "navigation/EventManager.h"
#include "navigation/HotkeysManager.h"
#include "navigation/ScreenManager.h"
#include "navigation/SequenceManager.h"
#include "navigation/ShortcutManager.h"
#include "navigation/TransitionManager.h"
#include "plugins/PluginManager.h"
#include "popups/NotifPopupManager.h"
#include "settings/MainSettingsController.h"

UIKIT_SINGLETON_SLOT(UIKit::SingleApplicationInstance)
UIKIT_SINGLETON_SLOT(UIKit::AppController)
UIKIT_SINGLETON_SLOT(UIKit::Appearance)
UIKIT_SINGLETON_SLOT(UIKit::ConfDataFile)
UIKIT_SINGLETON_SLOT(UIKit::DCControler)
UIKIT_SINGLETON_SLOT(UIKit::CtrlFactory)
UIKIT_SINGLETON_SLOT(UIKit::TemplateManager)
UIKIT_SINGLETON_SLOT(UIKit::EventManager)
UIKIT_SINGLETON_SLOT(UIKit::HotkeysManager)
UIKIT_SINGLETON_SLOT(UIKit::TransitionManager)
UIKIT_SINGLETON_SLOT(UIKit::SequenceManager)
UIKIT_SINGLETON_SLOT(UIKit::ShortcutManager)
UIKIT_SINGLETON_SLOT(UIKit::ScreenManager)
UIKIT_SINGLETON_SLOT(UIKit::PluginManager)
UIKIT_SINGLETON_SLOT(UIKit::MainSettingsController)
UIKIT_SINGLETON_SLOT(UIKit::NotifPopupManager)

namespace UIKit {

const SingletonTable& SingletonTable::Library()
{
    static const SingletonTable table({
        // SingletonTable::Entry<Manager>("Manager", creation, release),
        SingletonTable::Entry<SingleApplicationInstance>("SingleApplicationInstance", 1, 16),
        SingletonTable::Entry<AppController>("AppController", 2, 15),
        SingletonTable::Entry<Appearance>("Appearance", 3, 14),
        SingletonTable::Entry<ConfDataFile>("ConfDataFile", 4, 12),
        SingletonTable::Entry<DCControler>("DCControler", 5, 1),
        SingletonTable::Entry<CtrlFactory>("CtrlFactory", 6, 2),
        SingletonTable::Entry<TemplateManager>("TemplateManager", 7, 3),
        SingletonTable::Entry<EventManager>("EventManager", 8, 5),
        SingletonTable::Entry<HotkeysManager>("HotkeysManager", 9, 4),
        SingletonTable::Entry<TransitionManager>("TransitionManager", 10, 6),
        SingletonTable::Entry<SequenceManager>("SequenceManager", 11, 7),
        SingletonTable::Entry<ShortcutManager>("ShortcutManager", 13, 9),
        SingletonTable::Entry<ScreenManager>("ScreenManager", 12, 8),
        SingletonTable::Entry<PluginManager>("PluginManager", 14, 10),
        SingletonTable::Entry<MainSettingsController>("MainSettingsController", 15, 11),
        SingletonTable::Entry<NotifPopupManager>("NotifPopupManager", 16, 13),
    });
    return table;
}

} // namespace UIKit
