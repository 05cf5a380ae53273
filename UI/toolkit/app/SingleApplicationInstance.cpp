#include "app/SingleApplicationInstance.h"

#include "Toolkit/IPCClient.h"
#include "Toolkit/SingleApplicationInstance.h"
#include "app/IPCActivateAppConnection.h"

namespace UIKit {

SingleApplicationInstance::SingleApplicationInstance()
    : m_server(Toolkit::make_smart<Toolkit::IPCServer>(TString<wchar_t>())),
      m_handler(Toolkit::make_smart<IPCActivateAppConnection>())
{
    m_server->AddConnectionHandler(m_handler);
}

SingleApplicationInstance::~SingleApplicationInstance()
{
    m_server->RemoveConnectionHandler(m_handler);
}

bool SingleApplicationInstance::IsAlreadyRunning() const
{
    return Toolkit::SingleApplicationInstance::Instance().IsAlreadyRunning();
}

bool SingleApplicationInstance::SetAsActiveInstance()
{
    return m_server->Run();
}

bool SingleApplicationInstance::BringPreviousInstanceToFront() const
{
    return Toolkit::IPCClient::Connect(TString<wchar_t>(), IPCActivateAppConnection::c_strActivateAppCmd);
}

} // namespace UIKit
