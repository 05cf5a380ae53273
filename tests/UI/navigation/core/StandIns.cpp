// The navigation core is tested without the skin reader and without
// windows: this binary defines the managers' slots itself, a row
// constructor that reads nothing (tests fill the rows in), and a dashboard
// notice that only counts.
#include "NavigationCore.h"

#include "module/SingletonSlot.h"
#include "navigation/HotkeysManager.h"
#include "navigation/ShortcutManager.h"
#include "navigation/TransitionManager.h"
#include "navigation/TransitionNotice.h"

UIKIT_SINGLETON_SLOT(UIKit::EventManager)
UIKIT_SINGLETON_SLOT(UIKit::HotkeysManager)
UIKIT_SINGLETON_SLOT(UIKit::TransitionManager)
UIKIT_SINGLETON_SLOT(UIKit::SequenceManager)
UIKIT_SINGLETON_SLOT(UIKit::ShortcutManager)

int navtest::g_beforeTransitions = 0;

UIKit::EventDescriptor::EventDescriptor(Toolkit::smart_ptr<XMLNode>) {}

void UIKit::NotifyBeforeTransition()
{
    ++navtest::g_beforeTransitions;
}

// Without the skin reader rows carry no file: the registry logs the name.
void UIKit::ReportUnknownTransition(const EventDescriptor& row)
{
    if (const auto transitions = TransitionManager::Instance())
        transitions->Get(row.transition);
}
