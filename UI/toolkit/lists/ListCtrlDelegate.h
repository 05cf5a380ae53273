#pragma once
#include "module/Export.h"
// The delegate a list talks to: it steers multi-selection and says whether
// the list refreshes, selects or sorts after filling. The defaults make a
// plain list: single selection, refresh, nothing selected, no sorting.
#include "lists/IDelegate.h"

namespace UIKit {

class UIKIT_API ListCtrlDelegate : public IDelegate {
public:
    virtual void beginMultiSelection() { m_multiSelection = true; }
    virtual void cancelMultiSelection() { m_multiSelection = false; }
    virtual void applyMultiSelection() { m_multiSelection = false; }
    virtual bool shouldDoMultiSelection() { return m_multiSelection; }
    virtual bool shouldRefresh() { return true; }
    // Return true to make the list select the row written into the argument.
    virtual bool shouldSelectIndex(unsigned int&) { return false; }
    // Return true to make the list sort from the given position in the given
    // direction, both written into the arguments.
    virtual bool shouldSortAtIndex(unsigned int&, bool&) { return false; }

protected:
    bool m_multiSelection = false;
};

} // namespace UIKit
