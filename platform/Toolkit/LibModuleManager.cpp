#include "Toolkit/LibModuleManager.h"

#include <algorithm>

namespace Toolkit {

smart_ptr<LibModuleManager>* LibModuleManager::s_pInstance = new smart_ptr<LibModuleManager>(new LibModuleManager());

void LibModuleManager::Register(LibModule* module)
{
    MutexLocker lock(m_lock);
    if (module && std::find(m_modules.begin(), m_modules.end(), module) == m_modules.end())
        m_modules.push_back(module);
}

void LibModuleManager::Unregister(LibModule* module)
{
    MutexLocker lock(m_lock);
    std::erase(m_modules, module);
    std::erase(m_initialized, module);
}

bool LibModuleManager::IsRegistered(const LibModule* module)
{
    MutexLocker lock(m_lock);
    return std::find(m_modules.begin(), m_modules.end(), module) != m_modules.end();
}

void LibModuleManager::InitializeAll()
{
    MutexLocker lock(m_lock);
    for (auto* module : m_modules) {
        if (std::find(m_initialized.begin(), m_initialized.end(), module) != m_initialized.end())
            continue;
        module->Initialize();
        m_initialized.push_back(module);
    }
}

void LibModuleManager::ReleaseAll()
{
    MutexLocker lock(m_lock);
    while (!m_initialized.empty()) {
        auto* module = m_initialized.back();
        m_initialized.pop_back();
        module->Release();
    }
}

} // namespace Toolkit
