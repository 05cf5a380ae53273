// Problems in a document read through the loader reach the error sink as
// "file:line: malformed XML: cause", once each, also when they lie in
// children parsed after the load.
#include "ErrorCapture.h"
#include "TestSupport.h"
#include "XmlTestTree.h"

#include "xml/XMLLoader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace UIKit;

using testsupport::ErrorCapture;

TEST(XmlErrorReportTest, TruncatedFileIsReportedWithItsNameAndLineAndKeepsWhatWasRead)
{
    const std::string path = (testsupport::DataDir() / "xml" / "truncated" / "dashboard.xml").string();
    ErrorCapture reports;
    XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromFile(path));
    EXPECT_EQ(xmltest::CountElements(loader.GetElement()), 10u) << "what could be read stays";
    EXPECT_EQ(reports.Lines(),
              std::vector<std::string>{path + ":13: malformed XML: value of attribute margin in start tag <Enabled> "
                                                        "opened on line 13 is not closed"});
}

TEST(XmlErrorReportTest, ProblemsInLaterParsedChildrenAreReportedOnceWhenRead)
{
    const std::string text = "<Skin>\n<Screen name=\"a\"><Label>ok</Label></Screen>\n"
                             "<Screen name=\"b\">\n<Label>x</Lable></Screen>\n</Skin>\n";
    ErrorCapture reports;
    XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromBytes(text.data(), text.size()));
    EXPECT_TRUE(reports.Lines().empty()) << "the screens are not parsed yet";
    EXPECT_EQ(loader.ReadString("Screen/Label", ""), L"ok");
    EXPECT_TRUE(reports.Lines().empty());
    xmltest::CountElements(loader.GetElement());
    xmltest::CountElements(loader.GetElement());
    // Without a file name the sink prints the message alone.
    EXPECT_EQ(reports.Lines(), (std::vector<std::string>{"malformed XML: closing tag </Lable> matches no open element",
                                                         "malformed XML: <Label> opened on line 4 is not closed"}));
}
