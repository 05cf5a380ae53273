#include "TestSupport.h"

#include "xml/IResourceProvider.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

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

class FakeResources : public IResourceProvider {
public:
    bool ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) override
    {
        const auto it = descriptors.find(name);
        if (it == descriptors.end())
            return false;
        bytes.assign(it->second.begin(), it->second.end());
        return true;
    }
    wxImage GetGraphic(const TString<wchar_t>& name) override
    {
        requested.push_back(name);
        return wxImage(3, 2);
    }
    const TString<wchar_t>& GetAddStr(const TString<char>& key) override
    {
        return strings.emplace(key, L"<" + std::wstring(key.begin(), key.end()) + L">").first->second;
    }

    std::map<std::wstring, std::string> descriptors;
    std::vector<std::wstring> requested;
    std::map<std::string, TString<wchar_t>> strings;
};

class XMLLoaderTest : public testing::Test {
protected:
    void SetUp() override
    {
        XMLLoader::SetResourceProvider(nullptr);
        ASSERT_TRUE(m_loader.LoadFromBytes(kDocument.data(), kDocument.size()));
    }
    void TearDown() override { XMLLoader::SetResourceProvider(nullptr); }

    XMLLoader m_loader;
};

struct TextRow {
    const char* path;
    const char* attribute;
    const wchar_t* expected;
};

} // namespace

TEST_F(XMLLoaderTest, ReadStringTakesTheElementChildAttributeOrText)
{
    const std::vector<TextRow> rows = {
        {"", "class", L"UIKit::ButtonCtrl"}, {"", "CLASS", L"UIKit::ButtonCtrl"}, {"", "empty", L""},
        {"", "missing", L""},                {"Label", "", L"IDS_OK"},           {"label", "", L"IDS_OK"},
        {"Image", "", L"button.png"},         {"Missing", "", L""},               {"Missing", "class", L""},
        {"V", "one", L"1"},                   {"", "", L""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(m_loader.ReadString(row.path, row.attribute), row.expected) << row.path << " " << row.attribute;
    EXPECT_EQ(XMLLoader().ReadString("", "class"), L"") << "a loader without element reads nothing";
}

TEST_F(XMLLoaderTest, ReadBoolIsTrueOnlyForYes)
{
    const std::vector<std::tuple<const char*, bool, bool>> rows = {
        {"yes", false, true}, {"cap", true, false}, {"one", true, false},
        {"missing", true, true}, {"missing", false, false},
    };
    for (const auto& [attribute, defaultValue, expected] : rows)
        EXPECT_EQ(m_loader.ReadBool("V", attribute, defaultValue), expected) << attribute;
    EXPECT_TRUE(m_loader.ReadBool("", "visible", false));
    EXPECT_TRUE(m_loader.ReadBool("", "empty", true)) << "empty text gives the default";
}

TEST_F(XMLLoaderTest, ReadIntReadsTheLeadingNumber)
{
    const std::vector<std::pair<const char*, int>> rows = {
        {"one", 1}, {"int", 12}, {"px", 0}, {"neg", -7}, {"big", 2147483647}, {"missing", 33}, {"c4", 10},
    };
    for (const auto& [attribute, expected] : rows)
        EXPECT_EQ(m_loader.ReadInt("V", attribute, 33), expected) << attribute;
    EXPECT_EQ(m_loader.ReadInt("", "empty", 33), 33);
}

TEST_F(XMLLoaderTest, ReadIdKnowsOnlyExactSymbolicNames)
{
    const std::vector<std::pair<const char*, int>> rows = {
        {"id", 8020}, {"idlow", -1}, {"sms", 4}, {"smslow", -1}, {"browser", 0}, {"num", -1}, {"missing", -1},
    };
    for (const auto& [attribute, expected] : rows)
        EXPECT_EQ(m_loader.ReadId("V", attribute), expected) << attribute;
    EXPECT_EQ(m_loader.ReadId("", "id"), 8020) << "attribute names ignore case";
}

TEST_F(XMLLoaderTest, ReadColorNeedsFourNumbersAndKeepsLowBytes)
{
    EXPECT_EQ(m_loader.ReadColor("V", "c4"), wxColour(10, 20, 30, 40));
    EXPECT_EQ(m_loader.ReadColor("V", "c300").Red(), 44);
    EXPECT_EQ(m_loader.ReadColor("V", "cneg"), wxColour(255, 0, 0, 0));
    EXPECT_EQ(m_loader.ReadColor("V", "c5"), wxColour(1, 2, 3, 4)) << "surplus numbers ignored";
    EXPECT_EQ(m_loader.ReadColor("V", "cx"), wxColour(0, 0, 0, 0)) << "words read as 0";
    for (const char* notSet : {"c3", "missing", "two"})
        EXPECT_FALSE(m_loader.ReadColor("V", notSet).IsOk()) << notSet;
    EXPECT_FALSE(m_loader.ReadColor("", "empty").IsOk());
}

TEST_F(XMLLoaderTest, SizesPointsAndRectanglesFallBackToZero)
{
    EXPECT_EQ(m_loader.ReadSize("V", "two"), wxSize(5, 6));
    EXPECT_EQ(m_loader.ReadSize("V", "one1"), wxSize(0, 0));
    EXPECT_EQ(m_loader.ReadSize("V", "lead"), wxSize(7, 8)) << "leading separators count for nothing";
    EXPECT_EQ(m_loader.ReadPoint("V", "two"), wxPoint(5, 6));
    EXPECT_EQ(m_loader.ReadPoint("V", "missing"), wxPoint(0, 0));
    EXPECT_EQ(m_loader.ReadRect("V", "rect"), wxRect(1, 2, 3, 4));
    EXPECT_EQ(m_loader.ReadRect("V", "c4"), wxRect(10, 20, 30, 40));
    EXPECT_EQ(m_loader.ReadRect("V", "c3"), wxRect(0, 0, 0, 0));
}

TEST_F(XMLLoaderTest, PaddingsAreIndependentUnlessEmpty)
{
    const auto a = m_loader.ReadPadding("V", "pad");
    const auto b = m_loader.ReadPadding("V", "rect");
    ASSERT_TRUE(a && b);
    EXPECT_NE(a.get(), b.get());
    EXPECT_EQ(a->GetLeft(), 1);
    EXPECT_EQ(a->GetTop(), -2);
    EXPECT_EQ(a->GetRight(), 3);
    EXPECT_EQ(a->GetBottom(), static_cast<int16_t>(70000));
    EXPECT_EQ(b->GetBottom(), 4);

    const auto none = m_loader.ReadPadding("V", "missing");
    const auto tooShort = m_loader.ReadPadding("V", "two");
    EXPECT_EQ(none.get(), Padding::_EmptyPadding.get());
    EXPECT_EQ(tooShort.get(), none.get());
    EXPECT_EQ(none->GetLeft() | none->GetTop() | none->GetRight() | none->GetBottom(), 0);
}

TEST_F(XMLLoaderTest, LabelsAndImagesGoThroughTheResourceProvider)
{
    EXPECT_EQ(m_loader.ReadLabel("Label", ""), L"IDS_OK") << "without a provider the key is the text";
    EXPECT_FALSE(m_loader.ReadImage("Image", "").IsOk());

    FakeResources resources;
    XMLLoader::SetResourceProvider(&resources);
    EXPECT_EQ(XMLLoader::GetResourceProvider(), &resources);
    EXPECT_EQ(m_loader.ReadLabel("Label", ""), L"<IDS_OK>");
    EXPECT_EQ(m_loader.ReadLabel("Missing", ""), L"");
    EXPECT_EQ(m_loader.ReadImage("Image", "").GetWidth(), 3);
    EXPECT_FALSE(m_loader.ReadImage("Missing", "").IsOk()) << "no name, no lookup";
    EXPECT_EQ(XMLLoader::LoadSkinImage(L"x.png").GetHeight(), 2);
    EXPECT_EQ(resources.requested, (std::vector<std::wstring>{L"button.png", L"x.png"}));
}

TEST_F(XMLLoaderTest, NodesKeepNameClassAndNameAttribute)
{
    std::vector<Toolkit::smart_ptr<XMLNode>> nodes{Toolkit::make_smart<XMLNode>(nullptr)};
    m_loader.GetNodes(nodes, "");
    ASSERT_EQ(nodes.size(), 3u);
    EXPECT_EQ(nodes[0]->GetTagName(), L"V");
    EXPECT_EQ(nodes[2]->GetTagName(), L"Image");
    m_loader.GetNodes(nodes, "label");
    ASSERT_EQ(nodes.size(), 1u);
    m_loader.GetNodes(nodes, "Nothing");
    EXPECT_TRUE(nodes.empty());

    const auto root = m_loader.GetRootNode();
    ASSERT_TRUE(root);
    EXPECT_EQ(root->GetTagName(), L"Control");
    EXPECT_EQ(root->GetClass(), L"UIKit::ButtonCtrl");
    EXPECT_EQ(root->GetName(), L"Ok");
    const XMLLoader borrowed(root);
    EXPECT_EQ(borrowed.ReadString("Label", ""), L"IDS_OK");
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

    EXPECT_EQ(loader.GetNode("Control", "class", "B")->GetClass(), L"B");
    EXPECT_EQ(loader.GetNode("Control", "class", "b")->GetName(), L"two") << "values are case-sensitive";
    EXPECT_EQ(loader.GetNode("Control", "class", "")->GetName(), L"one") << "any value";
    EXPECT_EQ(loader.GetNode("Control", "", "ignored")->GetName(), L"one");
    EXPECT_EQ(loader.GetNode("Control", "name", "three")->GetName(), L"three");
    EXPECT_FALSE(loader.GetNode("Control", "class", "C"));
    EXPECT_FALSE(loader.GetNode("", "class", "A")) << "a path is required";
    EXPECT_FALSE(loader.GetNode("Other", "class", "")) << "an absent attribute";
}

TEST(XMLLoaderFilesTest, LoadsFilesAndAppearanceDescriptionsOrLogsWhy)
{
    testsupport::TempDir dir;
    testsupport::LogCapture log;
    const auto good = dir.Write("skin.xml", R"(<Skin><Screen name="s"/></Skin>)").string();
    const auto empty = dir.Write("empty.xml", "").string();
    const auto missing = (dir.Path() / "missing.xml").string();

    XMLLoader loader;
    EXPECT_TRUE(loader.LoadFromFile(good));
    EXPECT_EQ(loader.ReadString("Screen", "name"), L"s");
    EXPECT_EQ(log.Size(), 0u);

    EXPECT_FALSE(loader.LoadFromFile(missing));
    EXPECT_EQ(loader.GetElement(), nullptr) << "a failed load leaves no tree";
    EXPECT_FALSE(loader.LoadFromFile(empty));
    ASSERT_EQ(log.Size(), 2u) << testing::PrintToString(log.Dump());
    EXPECT_TRUE(log.Contains(std::wstring(missing.begin(), missing.end())));
    EXPECT_TRUE(log.Contains(std::wstring(empty.begin(), empty.end())));

    log.Clear();
    XMLLoader::SetResourceProvider(nullptr);
    EXPECT_FALSE(loader.LoadFromAppearance(L"settings"));
    FakeResources resources;
    resources.descriptors[L"settings"] = std::string(R"(<Settings v="1"/>)") + '\0' + "ignored";
    resources.descriptors[L"blank"] = "";
    XMLLoader::SetResourceProvider(&resources);
    EXPECT_FALSE(loader.LoadFromAppearance(L"missing"));
    EXPECT_FALSE(loader.LoadFromAppearance(L"blank"));
    EXPECT_EQ(log.Size(), 3u);
    EXPECT_TRUE(log.Contains(L"blank"));
    EXPECT_TRUE(loader.LoadFromAppearance(L"settings"));
    EXPECT_EQ(loader.ReadInt("", "v", 0), 1);
    XMLLoader::SetResourceProvider(nullptr);
}
