#include "DescriptorTestSupport.h"

#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/EditTextCtrlDescriptor.h"
#include "descriptors/EventDescriptor.h"
#include "descriptors/ProgressBarCtrlDescriptor.h"
#include "descriptors/StatesBoxCtrlDescriptor.h"
#include "descriptors/WritableDataButtonCtrlDescriptor.h"
#include "factory/CtrlGenerator.h"

using namespace UIKit;
using descriptortest::Document;
using descriptortest::ErrorCapture;

namespace {

class DescriptorTest : public descriptortest::FactoryFixture {
protected:
    void SetUp() override
    {
        FactoryFixture::SetUp();
        Factory().AddGenerator(L"Panel", DescriptorGenerator<PanelCtrlDescriptor>::Make());
        Factory().AddGenerator(L"Button", DescriptorGenerator<ButtonCtrlDescriptor>::Make());
    }
};

TEST_F(DescriptorTest, BaseValuesPresentAbsentAndMalformed)
{
    const Document full(R"(<Control class="Panel" NAME="main" id="ID_OK" bounds="1,2,300,40" min_size="10;20"
        max_size="30,40" visible="no" enable="Yes" tab="1" padding="4,5,6,7">
        <Color back="1,2,3,255"/><Style parent_position="TopRight"/></Control>)");
    auto d = full.Make<BaseCtrlDescriptor>();
    EXPECT_EQ(d->GetName() + L"/" + std::to_wstring(d->GetId()), L"main/8020");
    EXPECT_EQ(d->GetBounds(), wxRect(1, 2, 300, 40));
    EXPECT_EQ(d->GetMinSize(), wxSize(10, 20));
    EXPECT_EQ(d->GetMaxSize(), wxSize(30, 40));
    EXPECT_FALSE(d->IsVisible() || d->IsEnabled() || d->IsTab()) << "only the exact text yes is true";
    EXPECT_EQ(d->GetBackColour(), wxColour(1, 2, 3, 255));
    EXPECT_EQ(d->GetPadding(), wxRect(4, 5, 6, 7));
    EXPECT_EQ(d->GetParentPosition(), Drawing::TopRight);

    const Document empty("<Control/>");
    auto e = empty.Make<BaseCtrlDescriptor>();
    EXPECT_TRUE(e->IsVisible() && e->IsEnabled() && e->IsTab());
    EXPECT_FALSE(e->HasPadding());

    const Document zero(R"(<Control padding="0,0,0,0"/>)");
    EXPECT_TRUE(zero.Make<BaseCtrlDescriptor>()->HasPadding()) << "an explicit zero padding is a padding";

    const Document odd(R"(<Control><Style parent_position="topleft"/></Control>)");
    EXPECT_EQ(odd.Make<BaseCtrlDescriptor>()->GetParentPosition(), Drawing::MiddleLeft) << "words are case-sensitive";
}

TEST_F(DescriptorTest, ChildrenAndTemplatesKeepOrderAndSkipUnknownClasses)
{
    const Document doc(R"(<Control class="Panel" name="root">
        <Control class="Button" name="a"/>
        <Control class="Unknown" name="skipped"/>
        <Control name="no class"/>
        <Control class="Panel" name="b">
          <Control class="Panel" name="inner"><Template class="Panel" name="deep"/></Control>
          <Template class="Panel" name="shared"/>
        </Control>
        <Control class="Panel" name="a"/>
        <Template class="Panel" name="top"/>
      </Control>)");
    ErrorCapture errors;
    auto root = Factory().CreateDescriptor(doc.Root());
    EXPECT_EQ(errors.Lines(), (std::vector<std::string>{"test.xml:3: unknown control class 'Unknown'",
                                                      "test.xml:4: control element without a class"}));
    ASSERT_TRUE(root.DynamicCast<PanelCtrlDescriptor>());
    ASSERT_EQ(root->GetControls().size(), 3u);
    EXPECT_EQ(root->GetControls()[1]->GetName(), L"b");
    EXPECT_TRUE(root->GetControls()[0].DynamicCast<ButtonCtrlDescriptor>());
    EXPECT_EQ(root->GetControl(L"a").get(), root->GetControls()[0].get()) << "the first of two wins";
    EXPECT_FALSE(root->GetControl(L"inner")) << "only direct children";

    EXPECT_FALSE(root->GetTemplate(L"deep", false));
    EXPECT_TRUE(root->GetTemplate(L"deep", true)) << "found two levels down";

    // A copy shares the children instead of copying them.
    PanelCtrlDescriptor copy(root.DynamicCast<PanelCtrlDescriptor>());
    EXPECT_EQ(copy.GetControls()[1].get(), root->GetControls()[1].get());
}

TEST_F(DescriptorTest, FontRulesForFaceSizeWeightAndColours)
{
    struct Case { const char* font; const wchar_t* face; int points; wxFontWeight weight; wxFontStyle style; };
    const Case cases[] = {
        {R"(<Font name="Tavro Standard Light" ptsize="12"/>)", L"Sans", 10, wxFONTWEIGHT_NORMAL, wxFONTSTYLE_NORMAL},
        {R"(<Font name="Serif" ptsize="12" weight="BOLD" style="ITALIC"/>)", L"Serif", 11, wxFONTWEIGHT_BOLD,
         wxFONTSTYLE_ITALIC},
        {R"(<Font ptsize="12" weight="bold" style="italic"/>)", nullptr, 11, wxFONTWEIGHT_NORMAL, wxFONTSTYLE_NORMAL},
        {"", nullptr, 9, wxFONTWEIGHT_NORMAL, wxFONTSTYLE_NORMAL},
    };
    for (const auto& c : cases) {
        const Document doc(std::string("<Control>") + c.font + "</Control>");
        FontDescriptor font(doc.Root());
        EXPECT_EQ(font.GetFont().GetPointSize(), c.points) << c.font;
        EXPECT_EQ(font.GetFont().GetWeight(), c.weight) << c.font;
        EXPECT_EQ(font.GetFont().GetStyle(), c.style) << c.font;
        if (c.face) {
            EXPECT_EQ(font.GetFont().GetFaceName(), wxString(c.face)) << c.font;
        }
    }
    const Document colours(R"(<Control><Font fore="1,2,3,255"/></Control>)");
    FontDescriptor font(colours.Root());
    EXPECT_EQ(font.GetDisabledColour(), wxColour(1, 2, 3, 255)) << "disabled falls back to fore";
}

TEST_F(DescriptorTest, LabelPlacementAndEditFlags)
{
    // The short word is an alias, words are case-sensitive, anything else centres.
    const std::pair<const char*, int> placements[] = {{"LEFT", 2048}, {"TopLeft", 0}, {"left", 2304}, {"", 2304}};
    for (const auto& [word, flags] : placements) {
        const Document doc(std::string(R"(<Control><Label placement=")") + word + R"(">x</Label></Control>)");
        EXPECT_EQ(doc.Make<StaticTextCtrlDescriptor>()->GetPlacement(), flags) << word;
    }

    const Document edit(
        R"(<Control><Style password="yes" multiline="yes" border="no"/><Filter>Num</Filter></Control>)");
    auto e = edit.Make<EditTextCtrlDescriptor>();
    EXPECT_TRUE(e->IsPassword() && e->IsMultiline() && !e->IsReadOnly() && !e->HasBorder());
    EXPECT_EQ(e->GetFilter(), EditTextCtrlDescriptor::FilterNum);
    const Document hex(R"(<Control><Filter>Hex</Filter></Control>)");
    EXPECT_EQ(hex.Make<EditTextCtrlDescriptor>()->GetFilter(), EditTextCtrlDescriptor::FilterNone);
}

TEST_F(DescriptorTest, StatesBoxImagesOnlyWithExactlyOneStateImage)
{
    const Document one(R"(<Control><StateImage placement="TopRight" size="16,16" margin="1,2,3,4">
        <ImageActive>on.png</ImageActive></StateImage></Control>)");
    auto box = one.Make<StatesBoxCtrlDescriptor>();
    EXPECT_EQ(box->GetStateImageSide(), Drawing::MiddleRight);
    EXPECT_EQ(box->GetStateImageMargin()->GetTop(), 2);
    ASSERT_TRUE(box->GetActiveImage());

    const Document two(R"(<Control><StateImage placement="right"><ImageActive>on.png</ImageActive></StateImage>
        <StateImage/></Control>)");
    auto twice = two.Make<StatesBoxCtrlDescriptor>();
    EXPECT_FALSE(twice->GetActiveImage());
    EXPECT_EQ(twice->GetStateImageSide(), Drawing::MiddleLeft) << "placement words are case-sensitive";
}

TEST_F(DescriptorTest, ProgressBarFramesAndStyle)
{
    descriptortest::FakeResources provider;
    provider.images[L"strip.png"] = wxImage(500, 10);
    ErrorCapture errors;
    const Document animated(R"(<Control bounds="0,0,50,10"><AnimatedImages>none.png</AnimatedImages>
        <Images>strip.png</Images></Control>)",
                            &provider);
    auto bar = animated.Make<ProgressBarCtrlDescriptor>();
    EXPECT_EQ(bar->GetFrameCount(), 10);
    EXPECT_EQ(bar->GetProgressStyle(), ProgressBarCtrlDescriptor::Animation);
    EXPECT_EQ(errors.Lines(), std::vector<std::string>{"test.xml:1: missing image 'none.png'"})
        << "a missing animation strip still selects the animated style, and says so";

    const Document plain(R"(<Control bounds="0,0,0,10"><Style progressStyle="block"/></Control>)", &provider);
    EXPECT_EQ(plain.Make<ProgressBarCtrlDescriptor>()->GetProgressStyle(), ProgressBarCtrlDescriptor::Block);
}

TEST_F(DescriptorTest, EventIdsAndWritableButton)
{
    EXPECT_EQ(EventDescriptor(Document(R"(<Event id="9100"/>)").Root()).id, 9100) << "a number where no name is known";

    const Document button(R"(<Control><Tooltip>tip</Tooltip><ExpandOnClick>yes</ExpandOnClick></Control>)");
    WritableDataButtonCtrlDescriptor data(button.Make<ButtonCtrlDescriptor>());
    EXPECT_TRUE(data.IsExpandOnClick()) << "a copy of a button description keeps its values";
}

} // namespace
