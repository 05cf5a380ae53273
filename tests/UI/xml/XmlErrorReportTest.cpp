// Problems in a document read through the loader reach the error sink as
// "file:line: malformed XML: cause", once each, also when they lie in
// children parsed after the load.
#include "TestSupport.h"
#include "XmlTestTree.h"

#include "xml/ErrorSink.h"
#include "xml/XMLLoader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace UIKit;

namespace {

// Collects the formatted reports while it lives.
class CollectedReports {
public:
    CollectedReports()
        : m_previous(ErrorSink::Install([this](const PackError& e) { m_lines.push_back(e.Format()); }))
    {
    }
    ~CollectedReports() { ErrorSink::Install(m_previous); }
    const std::vector<std::string>& Lines() const { return m_lines; }

private:
    std::vector<std::string> m_lines;
    ErrorSink::Handler m_previous;
};

} // namespace

TEST(XmlErrorReportTest, TruncatedFileIsReportedWithItsNameAndLineAndKeepsWhatWasRead)
{
    const std::string path = (testsupport::DataDir() / "xml" / "truncated" / "dashboard.xml").string();
    CollectedReports reports;
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
    CollectedReports reports;
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
