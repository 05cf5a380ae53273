#include "Toolkit/PathManager.h"
#include "Toolkit/SingleApplicationInstance.h"
#include "Toolkit/UTF8.h"

#include "PeerProcess.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Toolkit::SingleApplicationInstance;

class SingleApplicationInstanceTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_app = "sitest-" + std::to_string(::getpid());
        m_runtime = m_dir.Str() + "/run";
        Toolkit::PathManager::Instance().SetRuntimeDir(m_runtime);
        Toolkit::PathManager::Instance().SetApplicationName(m_app);
    }
    void TearDown() override
    {
        Toolkit::PathManager::Instance().SetRuntimeDir("");
        Toolkit::PathManager::Instance().SetApplicationName("");
    }
    int PeerClaim() { return testsupport::PeerProcess({"claim", m_runtime, m_app}).Wait(); }

    testsupport::TempDir m_dir;
    std::string m_app;
    std::string m_runtime;
};

TEST_F(SingleApplicationInstanceTest, ClaimIsSeenFromAnotherProcessAndEndsWithIt)
{
    {
        SingleApplicationInstance mine;
        EXPECT_FALSE(mine.IsAlreadyRunning());
        EXPECT_TRUE(mine.HoldsClaim());
        EXPECT_EQ(mine.GetLockPath(), m_runtime + "/" + m_app + ".lock");
        std::string pid;
        std::ifstream(mine.GetLockPath()) >> pid;
        EXPECT_EQ(pid, std::to_string(::getpid()));
        struct stat st {};
        ASSERT_EQ(::stat(m_runtime.c_str(), &st), 0);
        EXPECT_EQ(st.st_mode & 0777, 0700u);

        EXPECT_EQ(PeerClaim(), 3) << "the second process must see this one running";
        // Another claim in this process counts as another instance too.
        EXPECT_TRUE(SingleApplicationInstance().IsAlreadyRunning());
    }
    EXPECT_EQ(PeerClaim(), 0) << "the claim is released with its holder";

    // A holder that dies without any clean-up still releases the claim.
    testsupport::PeerProcess holder({"hold", m_runtime, m_app});
    ASSERT_EQ(holder.ReadLine(), "claimed");
    SingleApplicationInstance whileHeld;
    EXPECT_TRUE(whileHeld.IsAlreadyRunning());
    EXPECT_FALSE(whileHeld.HoldsClaim());
    holder.Kill();
    EXPECT_EQ(holder.Wait(), 128 + SIGKILL);
    SingleApplicationInstance afterDeath;
    EXPECT_FALSE(afterDeath.IsAlreadyRunning());
    EXPECT_TRUE(afterDeath.HoldsClaim());
}

TEST_F(SingleApplicationInstanceTest, UnusableRuntimeDirectoryLetsTheProcessRun)
{
    testsupport::LogCapture log;
    m_dir.Write("file", "not a directory");
    Toolkit::PathManager::Instance().SetRuntimeDir(m_dir.Str() + "/file/run");
    SingleApplicationInstance instance;
    EXPECT_FALSE(instance.IsAlreadyRunning());
    EXPECT_FALSE(instance.HoldsClaim());
    EXPECT_EQ(log.Count(L"cannot create runtime directory " + Toolkit::UTF8::ToUNICODE(m_dir.Str()) + L"/file/run"),
              1u)
        << log.Dump();
}

} // namespace
