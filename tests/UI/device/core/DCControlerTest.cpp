// The controller driven on one thread with devices made in the test: each
// case is a script of steps, each step with what it must give.
#include "DeviceCore.h"

#include "TestSupport.h"
#include "module/SingletonSlot.h"

#include <gtest/gtest.h>

#include <sstream>

UIKIT_SINGLETON_SLOT(UIKit::DCControler)

namespace devicetest {
namespace {

class ControllerTest : public testing::Test {
protected:
    void SetUp() override
    {
        DCControler::CreateInstance();
        controller = DCControler::Instance();
        controller->AddListener(&posted);
        devices = std::make_unique<TestDevices>();
        Devices::DeviceManager::AddListener(controller);
    }
    void TearDown() override
    {
        devices.reset();
        posted.Take();
        Devices::DeviceManager::RemoveListener(controller);
        controller->RemoveListener(&posted);
        controller.reset();
        DCControler::ReleaseInstance();
    }

    // Carries out one step ("pin 1", "give 1 1234", ...) and says what came
    // of it: the code handed to the device, "stop", or what was posted.
    std::string step(const std::string& line)
    {
        std::istringstream words(line);
        std::string verb, code, newPin;
        unsigned long long id = 0;
        words >> verb >> id >> code >> newPin;
        const auto device = Devices::DeviceManager::GetDevice(id);
        TString<char> out, outPin;
        bool stop = false;
        if (verb == "plug")
            devices->Plug(id);
        else if (verb == "pull")
            devices->Pull(id);
        else if (verb == "pin")
            controller->OnPinCodeRequested(*device, Devices::SecurityCodeSimPin, 3, out, false, stop);
        else if (verb == "puk")
            controller->OnPukCodeRequested(*device, Devices::SecurityCodeSimPuk, 10, out, outPin, false, stop);
        else if (verb == "give")
            controller->ProvidePUKCode(id, newPin, code);
        else if (verb == "cancel")
            controller->OnPinPukCodeRequestCancelled(*device);
        else if (verb == "held")
            out = controller->GetPINCode(id);
        else if (verb == "update")
            controller->OnDeviceUpdated(*device);
        else if (verb == "information")
            controller->OnDeviceInformationUpdated(*device);
        else if (verb == "ghost") {
            Devices::GhostDevice ghost(id, L"stick");
            controller->OnGhostDeviceFound(ghost);
        } else if (verb == "select")
            controller->SetSelectedDevice(id);
        else if (verb == "stop")
            controller->Stop();
        std::string said = stop ? "stop" : out + (outPin.empty() ? "" : "/" + outPin);
        for (const auto& word : posted.Take())
            said += (said.empty() ? "" : ", ") + word;
        return said;
    }

    void play(const std::vector<std::pair<std::string, std::string>>& script)
    {
        for (const auto& [line, expected] : script)
            EXPECT_EQ(step(line), expected) << line;
    }

    PostedEvents posted;
    std::unique_ptr<TestDevices> devices;
    Toolkit::smart_ptr<DCControler> controller;
};

struct Case {
    const char* name;
    std::vector<std::pair<std::string, std::string>> script;
};

// A repeated request shows its screen once; the answer goes to the device
// that asked, once, and is not kept; a device that goes takes its screen
// and its answer with it.
const Case c_requestCases[] = {
    {"repeated PIN request",
     {{"plug 1", "found 1, info 1"},
      {"pin 1", "screen 8010 1"},
      {"pin 1", ""},
      {"pin 1", ""},
      {"give 1 4711", ""},
      {"pin 1", "4711"},
      {"held 1", ""},
      {"pin 1", "screen 8010 1"}}},
    {"PUK with a new PIN",
     {{"plug 1", "found 1, info 1"},
      {"puk 1", "screen 8011 1"},
      {"give 1 5802 91827364", ""},
      {"puk 1", "91827364/5802"},
      {"puk 1", "screen 8011 1"}}},
    {"two devices asking at once",
     {{"plug 1", "found 1, info 1"},
      {"plug 2", "lost 1, found 2, info 2"},
      {"pin 1", "screen 8010 1"},
      {"pin 2", ""},
      {"give 1 4711", ""},
      {"pin 2", ""},
      {"pin 1", "4711"},
      {"pin 2", "screen 8010 2"},
      {"give 2 3141", ""},
      {"pin 1", ""},
      {"pin 2", "3141"}}},
    {"device gone while its screen is up",
     {{"plug 1", "found 1, info 1"},
      {"plug 2", "lost 1, found 2, info 2"},
      {"pin 1", "screen 8010 1"},
      {"pull 1", "back"},
      {"give 1 4711", ""},
      {"pin 2", "screen 8010 2"},
      {"held 1", ""}}},
    {"cancelled request",
     {{"plug 1", "found 1, info 1"},
      {"pin 1", "screen 8010 1"},
      {"cancel 1", "back"},
      {"pin 1", "screen 8010 1"}}},
    {"stopped while a request waits",
     {{"plug 1", "found 1, info 1"}, {"pin 1", "screen 8010 1"}, {"stop", ""}, {"pin 1", "stop"}}},
};

TEST_F(ControllerTest, CodeRequestsShowOneScreenAndHandEachCodeOnceToItsDevice)
{
    testsupport::LogCapture log;
    Toolkit::ILogger::Instance().SetMinimumSeverity(Toolkit::LogInfo);
    for (const auto& c : c_requestCases) {
        SCOPED_TRACE(c.name);
        play(c.script);
        TearDown();
        SetUp();
    }
    EXPECT_TRUE(log.Contains(L"OnPinCodeRequested Modem 1 : pin"));
    const std::wstring all = log.Dump();
    for (const wchar_t* code : {L"4711", L"5802", L"91827364", L"3141"})
        EXPECT_EQ(all.find(code), std::wstring::npos) << "a code in the log";
}

// Events about one device reach the windows only while it is the selected
// one (or none is); the selection follows the newest device and falls back
// to the one before.
TEST_F(ControllerTest, SelectionFollowsTheNewestDeviceAndFiltersTheOthersEvents)
{
    play({{"plug 1", "found 1, info 1"},
          {"plug 2", "lost 1, found 2, info 2"},
          {"update 1", ""},
          {"information 1", ""},
          {"update 2", "updated 2"},
          {"information 2", "info 2"},
          {"ghost 9", "ghost 9"},
          {"select 2", ""},
          {"plug 3", "lost 2, found 3, info 3"},
          {"pull 2", ""},
          {"pull 3", "lost 3, found 1, info 1"},
          {"pull 1", "lost 1"},
          {"plug 4", "found 4, info 4"}});
}

} // namespace
} // namespace devicetest
