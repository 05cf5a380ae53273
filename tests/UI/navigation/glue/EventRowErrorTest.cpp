// An event row whose transition nobody registered is reported once, against
// the item file and line it came from, and the navigation stays put.
#include "ErrorCapture.h"
#include "TestSupport.h"
#include "navigation/EventManager.h"
#include "navigation/SequenceManager.h"
#include "navigation/TransitionManager.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <gtest/gtest.h>

TEST(EventRowErrorTest, UnknownTransitionIsReportedAgainstItsFileAndLine)
{
    UIKit::EventManager::CreateInstance();
    UIKit::TransitionManager::CreateInstance();
    UIKit::SequenceManager::CreateInstance();
    testsupport::TempDir dir;
    const auto path = dir.Write("items.xml", "<Plugin>\n"
                                             "  <Events sequence=\"RowErrors\">\n"
                                             "    <Event state=\"S\" id=\"ID_SKIP\" sequence=\"Elsewhere\"\n"
                                             "           transition=\"TNowhere\"/>\n"
                                             "  </Events>\n"
                                             "</Plugin>\n");
    UIKit::XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromFile(path.string()));
    std::vector<Toolkit::smart_ptr<UIKit::XMLNode>> events;
    UIKit::XMLLoader(loader.GetRootNode()).GetNodes(events, "Events");
    ASSERT_EQ(events.size(), 1u);
    UIKit::EventManager::Instance()->Load(events[0]);

    testsupport::ErrorCapture errors;
    const auto sequences = UIKit::SequenceManager::Instance();
    const auto before = sequences->GetCurrentSequence();
    EXPECT_FALSE(sequences->DoEvent(L"RowErrors", L"S", 8022, {}));
    ASSERT_EQ(errors.Lines().size(), 1u);
    EXPECT_NE(errors.Lines()[0].find("items.xml:3: Transition [TNowhere] not found!"), std::string::npos)
        << errors.Lines()[0];
    EXPECT_EQ(sequences->GetCurrentSequence(), before);
    UIKit::SequenceManager::ReleaseInstance();
    UIKit::TransitionManager::ReleaseInstance();
    UIKit::EventManager::ReleaseInstance();
}
