#pragma once
// The connection manager as it starts, for tests: private configuration and
// state folders, the library's managers, the default pack in English with
// the plug-ins the build made, the controls registered and the dashboard
// built. Navigation and devices are left to the test to start.
#include "DashboardFrame.h"
#include "DeviceWiring.h"
#include "Options.h"
#include "Session.h"
#include "TestSupport.h"

#include "Toolkit/LibModuleManager.h"

#include <gtest/gtest.h>

#include <clocale>

namespace hosttest {

class HostFixture : public testing::Test {
protected:
    void SetUp() override
    {
        std::setlocale(LC_ALL, "C");
        (*Toolkit::LibModuleManager::s_pInstance)->InitializeAll();
        m_options.culture = L"en";
        host::SetPaths(m_options);
        ASSERT_TRUE(host::LoadAppearance(m_options));
        host::RegisterControls();
        m_dashboard = host::CreateDashboard();
        ASSERT_NE(m_dashboard, nullptr);
    }
    void TearDown() override
    {
        host::StopDevices();
        host::StopNavigation(m_dashboard);
        (*Toolkit::LibModuleManager::s_pInstance)->ReleaseAll();
    }

    testsupport::TempDir m_home;
    testsupport::ScopedEnv m_configDir{"UIKIT_CONFIG_DIR", m_home.Str()};
    testsupport::ScopedEnv m_stateDir{"UIKIT_STATE_DIR", m_home.Str()};
    host::Options m_options;
    host::DashboardFrame* m_dashboard = nullptr;
};

} // namespace hosttest
