#pragma once
#include "module/Export.h"
// What a screen or a list asks of the code that fills it: how many rows
// there are, how each row's control is decorated, and which rows are
// selected. Every hook has a harmless default so that a control always has a
// data source to talk to; hosts and plug-ins override what they need.
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "descriptors/BaseCtrlDescriptor.h"

#include <vector>

namespace UIKit {

class Control;

class UIKIT_API IDataSource {
public:
    // Looks the row template up by name; an empty or unknown name leaves it
    // null (an unknown one is logged by the template registry).
    explicit IDataSource(const TString<wchar_t>& templateName);
    virtual ~IDataSource() = default;
    IDataSource(const IDataSource&) = delete;
    IDataSource& operator=(const IDataSource&) = delete;

    // True when rows are drawn by the data source rather than made as
    // controls by the list.
    virtual bool VirtualDataSource() const { return false; }
    virtual bool isValidAt(unsigned int) const { return true; }
    virtual unsigned int getRowCount() { return 0; }
    virtual unsigned int getSelectedRowCount();
    virtual void decorateItemAtRowIndex(unsigned int&, Control&) {}
    // Selection changes may come from worker threads while the list reads
    // the count on the GUI thread, hence the lock.
    virtual void doSelectedIndex(unsigned int row);
    virtual void doDeselectedIndex(unsigned int row);
    virtual void doDeselectedAll();
    virtual void doAddItem() {}
    virtual void doDeleteItemFromRowIndex(unsigned int) {}
    virtual void doEditItemFromRowIndex(unsigned int) {}

    // The selected rows in the order in which they were selected.
    std::vector<unsigned int> GetSelectedRows();
    // The descriptor every row's control is made from, or null.
    const Toolkit::smart_ptr<BaseCtrlDescriptor>& GetItemTemplate() const { return m_itemTemplate; }

protected:
    std::vector<unsigned int> m_selectedRows;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_itemTemplate;
    Toolkit::Mutex m_lock;
};

} // namespace UIKit
