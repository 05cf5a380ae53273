// The loader's typed readers and lookups, its files and appearance
// documents, and the problems it reports as "file:line: message".
#include "TestSupport.h"
#include "XmlTestTree.h"

#include "../descriptors/DescriptorTestSupport.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace UIKit;

namespace {

// Every typed reader is tried on this element: attributes of the element
// itself, attributes of the child "V" and its text.
const std::string kDocument = R"(<Control class="UIKit::ButtonCtrl" name="Ok" Id="ID_OK" visible="yes" empty="">
  <V yes="yes" cap="Yes" one="1" int="12px" px="px" neg=" -7" big="99999999999"
     c4="10;20,,30,40" c3="10,20,30" c300="300,0,0,255" cneg="-1,0,0,0" c5="1,2,3,4,5" cx="a,b,c,d"
     two="5,6" one1="5" lead=",,7;8" rect="1,2,3,4" pad="1,-2,3,70000"
     id="ID_OK" idlow="id_ok" sms="PIDSms" smslow="PIdSms" browser="PIdBrowser" num="8020"/>
  <Label>IDS_OK</Label>
  <Image> button.png</Image>
</Control>)";

using descriptortest::ErrorCapture;
using descriptortest::FakeResources;

class XMLLoaderTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_loader.LoadFromBytes(kDocument.data(), kDocument.size())); }

    XMLLoader m_loader;
};

} // namespace

TEST_F(XMLLoaderTest, ReadStringTakesTheElementChildAttributeOrText)
{
    const std::tuple<const char*, const char*, const wchar_t*> rows[] = {
        {"", "CLASS", L"UIKit::ButtonCtrl"}, {"", "missing", L""}, {"label", "", L"IDS_OK"},
        {"Image", "", L"button.png"},        {"Missing", "", L""}, {"V", "one", L"1"},
    };
    for (const auto& [path, attribute, expected] : rows)
        EXPECT_EQ(m_loader.ReadString(path, attribute), expected) << path << " " << attribute;
    EXPECT_EQ(XMLLoader().ReadString("", "class"), L"") << "a loader without element reads nothing";
}

TEST_F(XMLLoaderTest, TypedReadersTakeOnlyWhatTheyCanRead)
{
    const std::tuple<const char*, bool, bool> rows[] = {{"yes", false, true},
                                                        {"cap", true, false},
                                                        {"missing", true, true}};
    for (const auto& [attribute, defaultValue, expected] : rows)
        EXPECT_EQ(m_loader.ReadBool("V", attribute, defaultValue), expected) << attribute;
    EXPECT_TRUE(m_loader.ReadBool("", "empty", true)) << "empty text gives the default";

    const std::pair<const char*, int> ints[] = {{"int", 12},         {"px", 0},       {"neg", -7},
                                                {"big", 2147483647}, {"missing", 33}, {"c4", 10}};
    for (const auto& [attribute, expected] : ints)
        EXPECT_EQ(m_loader.ReadInt("V", attribute, 33), expected) << attribute;
    // Symbolic ids are known by their exact names only.
    const std::pair<const char*, int> ids[] = {{"id", 8020}, {"idlow", -1}, {"num", -1}, {"missing", -1}};
    for (const auto& [attribute, expected] : ids)
        EXPECT_EQ(m_loader.ReadId("V", attribute), expected) << attribute;
}

TEST_F(XMLLoaderTest, NumberListsNeedEnoughNumbersElseTheDefault)
{
    ErrorCapture errors;
    EXPECT_EQ(m_loader.ReadColor("V", "c4"), wxColour(10, 20, 30, 40));
    EXPECT_EQ(m_loader.ReadColor("V", "c300").Red(), 44) << "each component keeps its low byte";
    EXPECT_EQ(m_loader.ReadColor("V", "c5"), wxColour(1, 2, 3, 4)) << "surplus numbers ignored";
    for (const char* notSet : {"c3", "missing", "two"})
        EXPECT_FALSE(m_loader.ReadColor("V", notSet).IsOk()) << notSet;
    EXPECT_EQ(m_loader.ReadSize("V", "lead"), wxSize(7, 8)) << "leading separators count for nothing";
    EXPECT_EQ(m_loader.ReadSize("V", "one1"), wxSize(0, 0));
    EXPECT_EQ(m_loader.ReadRect("V", "c4"), wxRect(10, 20, 30, 40));
    EXPECT_EQ(m_loader.ReadRect("V", "c3"), wxRect(0, 0, 0, 0));
    // The reports' wording is the reports test's; here which reads give one.
    EXPECT_EQ(errors.Lines().size(), 4u) << "a missing attribute is no error; a short or wordy list is";
}

TEST_F(XMLLoaderTest, PaddingsAreIndependentUnlessEmpty)
{
    const auto a = m_loader.ReadPadding("V", "pad");
    const auto b = m_loader.ReadPadding("V", "rect");
    ASSERT_TRUE(a && b);
    EXPECT_NE(a.get(), b.get());
    EXPECT_EQ(wxRect(a->GetLeft(), a->GetTop(), a->GetRight(), a->GetBottom()),
              wxRect(1, -2, 3, static_cast<int16_t>(70000)));

    const auto none = m_loader.ReadPadding("V", "missing"); // read first: the empty padding is made on first use
    EXPECT_EQ(none.get(), Padding::_EmptyPadding.get());
    EXPECT_EQ(m_loader.ReadPadding("V", "two").get(), none.get());
}

TEST_F(XMLLoaderTest, LabelsAndImagesGoThroughTheLoadersResources)
{
    EXPECT_EQ(m_loader.ReadLabel("Label", ""), L"IDS_OK") << "without resources the key is the text";
    EXPECT_FALSE(m_loader.ReadImage("Image", "").IsOk());

    FakeResources resources;
    resources.strings["IDS_OK"] = L"<IDS_OK>";
    resources.images[L"button.png"] = wxImage(3, 2);
    m_loader.SetResources(&resources);
    ErrorCapture errors;
    EXPECT_EQ(m_loader.ReadLabel("Label", ""), L"<IDS_OK>");
    EXPECT_EQ(m_loader.ReadImage("Image", "").GetWidth(), 3);
    EXPECT_FALSE(m_loader.ReadImage("Missing", "").IsOk()) << "no name, no lookup";
    EXPECT_FALSE(m_loader.LoadSkinImage(L"x.png").IsOk());
    EXPECT_EQ(resources.requested, (std::vector<std::wstring>{L"button.png", L"x.png"}));
    EXPECT_EQ(errors.Lines().size(), 1u) << "x.png, reported as the reports test shows";
    // Nodes carry the loader's resources to whatever is built from them.
    EXPECT_EQ(XMLLoader(m_loader.GetRootNode()).ReadLabel("Label", ""), L"<IDS_OK>");
}

TEST(XMLLoaderReportsTest, ProblemsNameTheFileAndTheElementsLine)
{
    const std::string text = "<Control class=\"A\" bounds=\"1,2,x,4\">\n" "  <Color back=\"red\" fore=\"1,2,3,4\"/>\n"
                             "  <Label>LB_UNDEFINED</Label>\n" "  <Enabled>ghost.png</Enabled>\n"
                             "  <Size min=\"5\" ok=\"5,6\"/>\n" "</Control>";
    FakeResources resources;
    XMLLoader loader;
    loader.SetResources(&resources);
    loader.SetFileName("screen.xml");
    ASSERT_TRUE(loader.LoadFromBytes(text.data(), text.size()));
    ErrorCapture errors;
    EXPECT_EQ(loader.ReadRect("", "bounds"), wxRect(1, 2, 0, 4)) << "words read as 0";
    EXPECT_FALSE(loader.ReadColor("Color", "back").IsOk());
    EXPECT_EQ(loader.ReadLabel("Label", ""), L"LB_UNDEFINED");
    EXPECT_FALSE(loader.ReadImage("Enabled", "").IsOk());
    EXPECT_EQ(loader.ReadSize("Size", "min"), wxSize(0, 0));
    EXPECT_EQ(errors.Lines(), (std::vector<std::string>{
                                "screen.xml:1: bad value '1,2,x,4' of attribute 'bounds': 4 numbers expected",
                                "screen.xml:2: bad value 'red' of attribute 'back': 4 numbers expected",
                                "screen.xml:3: undefined string key 'LB_UNDEFINED'",
                                "screen.xml:4: missing image 'ghost.png'",
                                "screen.xml:5: bad value '5' of attribute 'min': 2 numbers expected",
                            }));
}

TEST(XMLLoaderNodesTest, GetNodesSkipsCommentsAndGetNodeMatchesValues)
{
    const std::string text = R"(<Templates><!-- first --><Control class="A" name="one"/>
        <!-- <Control class="hidden"/> --><Control class="B"/><Other/><Control class="b" name="two"/>
        <Control name="three" class=""/><!-- last --></Templates>)";
    XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromBytes(text.data(), text.size()));
    std::vector<Toolkit::smart_ptr<XMLNode>> nodes;
    loader.GetNodes(nodes, "");
    std::vector<std::wstring> names;
    for (const auto& node : nodes)
        names.push_back(node->GetTagName() + L":" + node->GetClass());
    EXPECT_EQ(names, (std::vector<std::wstring>{L"Control:A", L"Control:B", L"Other:", L"Control:b", L"Control:"}));

    EXPECT_EQ(loader.GetNode("Control", "class", "b")->GetName(), L"two") << "values are case-sensitive";
    EXPECT_EQ(loader.GetNode("Control", "class", "")->GetName(), L"one") << "any value";
    EXPECT_EQ(loader.GetNode("Control", "name", "three")->GetName(), L"three");
    EXPECT_FALSE(loader.GetNode("", "class", "A")) << "a path is required";
    EXPECT_FALSE(loader.GetNode("Other", "class", "")) << "an absent attribute";
}

TEST(XMLLoaderFilesTest, LoadsFilesAndAppearanceDescriptionsOrLogsWhy)
{
    testsupport::TempDir dir;
    testsupport::LogCapture log;
    const auto empty = dir.Write("empty.xml", "").string();
    const auto missing = (dir.Path() / "missing.xml").string();
    XMLLoader loader; // a file that loads is the truncated file's test
    ASSERT_TRUE(loader.LoadFromBytes("<A/>", 4));
    EXPECT_FALSE(loader.LoadFromFile(missing));
    EXPECT_EQ(loader.GetElement(), nullptr) << "a failed load leaves no tree";
    EXPECT_FALSE(loader.LoadFromFile(empty));
    EXPECT_EQ(log.Count(std::wstring(missing.begin(), missing.end())), 1u) << log.Dump();
    EXPECT_EQ(log.Count(std::wstring(empty.begin(), empty.end())), 1u) << log.Dump();

    log.Clear();
    EXPECT_FALSE(loader.LoadFromAppearance(L"settings")) << "no resources";
    FakeResources resources;
    resources.documents[L"settings"] = std::string(R"(<Settings v="1"/>)") + '\0' + "ignored";
    resources.documents[L"blank"] = "";
    loader.SetResources(&resources);
    ErrorCapture errors;
    EXPECT_FALSE(loader.LoadFromAppearance(L"missing"));
    EXPECT_FALSE(loader.LoadFromAppearance(L"blank"));
    EXPECT_EQ(log.Size(), 3u);
    EXPECT_EQ(errors.Lines().size(), 2u);
    EXPECT_TRUE(log.Contains(L"blank.xml"));
    EXPECT_TRUE(loader.LoadFromAppearance(L"settings"));
    EXPECT_EQ(loader.ReadInt("", "v", 0), 1);
}

TEST(XMLLoaderReportsTest, TruncatedFileIsReportedWithItsNameAndLineAndKeepsWhatWasRead)
{
    const std::string path = (testsupport::DataDir() / "xml" / "truncated" / "dashboard.xml").string();
    ErrorCapture reports;
    XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromFile(path));
    EXPECT_EQ(xmltest::CountElements(loader.GetElement()), 10u) << "what could be read stays";
    EXPECT_EQ(
        reports.Lines(),
        std::vector<std::string>{
            path +
            ":13: malformed XML: value of attribute margin in start tag <Enabled> opened on line 13 is not closed"});
}

TEST(XMLLoaderReportsTest, ProblemsInLaterParsedChildrenAreReportedOnceWhenRead)
{
    const std::string text = "<Skin>\n<Screen name=\"a\"><Label>ok</Label></Screen>\n"
                             "<Screen name=\"b\">\n<Label>x</Lable></Screen>\n</Skin>\n";
    ErrorCapture reports;
    XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromBytes(text.data(), text.size()));
    EXPECT_EQ(loader.ReadString("Screen/Label", ""), L"ok");
    EXPECT_TRUE(reports.Lines().empty()) << "the second screen is not parsed yet";
    xmltest::CountElements(loader.GetElement());
    xmltest::CountElements(loader.GetElement());
    // Without a file name the sink prints the message alone.
    EXPECT_EQ(reports.Lines(), (std::vector<std::string>{"malformed XML: closing tag </Lable> matches no open element",
                                                         "malformed XML: <Label> opened on line 4 is not closed"}));
}
