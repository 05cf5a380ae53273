#include "lists/ContainerListItemCtrl.h"

#include "descriptors/TemplateManager.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "lists/ListCtrl.h"
#include "util/Util.h"

namespace UIKit {

wxBEGIN_EVENT_TABLE(ContainerListItemCtrl, ListItemCtrl)
    EVT_BUTTON(ID_TOGGLE, ContainerListItemCtrl::OnToggle)
wxEND_EVENT_TABLE()

ContainerListItemCtrl::ContainerListItemCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : ListItemCtrl(parent, id, bounds)
{
}

ButtonCtrl* ContainerListItemCtrl::GetHeader()
{
    if (!m_header)
        m_header = Util::FindControl<ButtonCtrl>(this, L"Header", false);
    return m_header;
}

void ContainerListItemCtrl::SetClientCtrl(Toolkit::smart_ptr<BaseCtrlDescriptor> clientTemplate)
{
    auto factory = CtrlFactory::Instance();
    if (!factory.IsNull() && clientTemplate) {
        if (m_client)
            m_client->Destroy();
        m_client = factory->CreateControl(clientTemplate, this, -1);
    }
    DisplayClientArea();
}

void ContainerListItemCtrl::SetClientCtrl(const TString<wchar_t>& templateName)
{
    auto templates = TemplateManager::Instance();
    SetClientCtrl(templates.IsNull() ? Toolkit::smart_ptr<BaseCtrlDescriptor>() : templates->Get(templateName));
}

void ContainerListItemCtrl::DisplayClientArea()
{
    const int header = GetHeader() ? GetHeader()->GetSize().y : 0;
    if (!m_client) {
        SetHeight(unsigned(header));
        return;
    }
    m_client->Move(0, header);
    m_client->Show(m_expanded);
    SetHeight(unsigned(header + (m_expanded ? m_client->GetSize().y : 0)));
    UpdateParentList();
}

void ContainerListItemCtrl::OnToggle(wxCommandEvent&)
{
    m_expanded = !m_expanded;
    DisplayClientArea();
}

void ContainerListItemCtrl::UpdateParentList()
{
    if (auto* list = dynamic_cast<ListCtrl*>(GetParent()))
        list->ArrangeItems();
}

void ContainerListItemCtrl::UpdateLayout()
{
    ListItemCtrl::UpdateLayout();
    const int width = GetSize().x;
    if (ButtonCtrl* header = GetHeader())
        header->SetSize(width, header->GetSize().y);
    if (m_client)
        m_client->SetSize(width, m_client->GetSize().y);
}

void ContainerListItemCtrl::SetControlLabel(const TString<wchar_t>& label)
{
    ButtonCtrl* header = GetHeader();
    if (!header) {
        ListItemCtrl::SetControlLabel(label);
    } else {
        header->SetControlLabel(label);
        setStringsFromLabel(label);
    }
    // The label sorts the row until a sort string is given.
    if (m_ownSortString.empty())
        m_ownSortString = LowerSingleByte(label);
}

bool ContainerListItemCtrl::Show(bool show)
{
    if (m_client)
        m_client->Show(show && m_expanded);
    return ListItemCtrl::Show(show);
}

} // namespace UIKit
