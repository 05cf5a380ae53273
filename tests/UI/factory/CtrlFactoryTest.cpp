#include "../descriptors/DescriptorTestSupport.h"

#include "TestSupport.h"
#include "controls/Control.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "factory/CtrlGenerator.h"

using namespace UIKit;
using descriptortest::Document;
using descriptortest::ErrorCapture;
using descriptortest::FakeResources;

namespace {

int g_destroyed = 0;

class PlainCtrl : public Control {
public:
    PlainCtrl(wxWindow* parent, int id, const wxRect& bounds) : Control(parent, id, bounds, 0) {}
    ~PlainCtrl() override { ++g_destroyed; }
    void RefreshUpdate(bool) override {}
};

class FancyCtrl : public PlainCtrl {
public:
    using PlainCtrl::PlainCtrl;
};

class CtrlFactoryTest : public descriptortest::FactoryFixture {};

TEST_F(CtrlFactoryTest, FirstRegistrationWinsAndNamesAreCaseSensitive)
{
    auto g1 = CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make();
    auto g2 = CtrlGenerator<PanelCtrlDescriptor, FancyCtrl>::Make();
    Factory().AddGenerator(L"ButtonCtrl", g1);
    testsupport::LogCapture log;
    Factory().AddGenerator(L"ButtonCtrl", g2);
    EXPECT_EQ(Factory().GetGenerator(L"ButtonCtrl").get(), g1.get());
    EXPECT_TRUE(log.Contains(L"ButtonCtrl is already registered")) << "a second registration is logged";
    ErrorCapture errors;
    const Document unknown(R"(<Control class="buttonctrl"/>)");
    EXPECT_FALSE(Factory().CreateDescriptor(unknown.Root()));
    EXPECT_EQ(errors.Lines(), (std::vector<std::string>{"test.xml:1: unknown control class 'buttonctrl'"}));
    EXPECT_EQ(Factory().CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor>(), Frame(), -1), nullptr);
}

TEST_F(CtrlFactoryTest, ControlsAreBuiltInOrderWithTheirDeclaredIdsAndUnknownOnesSkipped)
{
    Factory().AddGenerator(L"Plain", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    Factory().AddGenerator(L"Panel", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    const Document doc(R"(<Control class="Panel" name="root">
        <Control class="Plain" name="first" id="ID_OK" bounds="1,2,30,20"/>
        <Control class="Nobody" name="middle"/>
        <Control class="Plain" name="last"/>
      </Control>)");
    ErrorCapture errors;
    auto root = Factory().CreateDescriptor(doc.Root());
    ASSERT_TRUE(root);
    ASSERT_EQ(root->GetControls().size(), 2u) << "the unknown class is left out of the description";
    EXPECT_EQ(errors.Lines(), std::vector<std::string>{"test.xml:3: unknown control class 'Nobody'"});

    // A description of a class nobody builds, made directly, sits between them.
    const Document nobody(R"(<Control class="Nobody"/>)");
    DescriptorList three = root->GetControls();
    three.insert(three.begin() + 1, Toolkit::make_smart<PanelCtrlDescriptor>(nobody.Root()));
    std::list<Control*> built{nullptr};
    Factory().CreateControls(built, three, Frame(), -1);
    ASSERT_EQ(built.size(), 2u);
    EXPECT_EQ(built.front()->GetId(), 8020) << "a control takes the id its description declares";
    EXPECT_EQ(built.front()->GetRect(), wxRect(1, 2, 30, 20));
    EXPECT_EQ(built.back()->GetName(), "last");
}

TEST_F(CtrlFactoryTest, TemplatesBuildOnlyTheRequestedKind)
{
    g_destroyed = 0;
    Factory().AddGenerator(L"Plain", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    Factory().AddGenerator(L"Fancy", CtrlGenerator<PanelCtrlDescriptor, FancyCtrl>::Make());
    const Document templates(R"(<Templates><Control class="Plain"/><Control class="Fancy"/></Templates>)");
    TemplateManager::Instance()->Load(templates.Root(), Factory());

    EXPECT_NE(Factory().CreateControl<FancyCtrl>(L"Fancy", Frame(), -1), nullptr);
    const size_t children = Frame()->GetChildren().size();
    EXPECT_EQ(Factory().CreateControl<FancyCtrl>(L"Plain", Frame(), -1), nullptr);
    EXPECT_EQ(Frame()->GetChildren().size(), children) << "a control of the wrong kind is destroyed";
    EXPECT_EQ(g_destroyed, 1);

    ErrorCapture errors;
    EXPECT_EQ(Factory().CreateControl<Control>(L"Missing", Frame(), -1), nullptr);
    EXPECT_EQ(errors.Lines(), (std::vector<std::string>{"undefined template 'Missing'"}));
}

TEST_F(CtrlFactoryTest, TemplateRegistryKeysByClassAndKeepsTheFirst)
{
    Factory().AddGenerator(L"Plain", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    Factory().AddGenerator(L"", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    const Document first(R"(<Templates><Control class="Plain" name="one"/><Control class="Unknown"/>
        <Control name="nameless"/><Other class="Plain"/></Templates>)");
    const Document second(R"(<Templates><Control class="Plain" name="two"/></Templates>)");
    auto templates = TemplateManager::Instance();
    ErrorCapture errors;
    templates->Load(first.Root(), Factory());
    templates->Load(second.Root(), Factory());
    EXPECT_EQ(errors.Lines(), std::vector<std::string>{"test.xml:1: unknown control class 'Unknown'"});
    EXPECT_EQ(templates->Size(), 2u);
    EXPECT_EQ(templates->Get(L"Plain")->GetName(), L"one");
    EXPECT_EQ(templates->Get(L"")->GetName(), L"nameless") << "an empty class is a key like any other";
    EXPECT_FALSE(templates->Get(L"plain"));
}

TEST_F(CtrlFactoryTest, OnePathFromPackToControlTreeWithTheFactorysResources)
{
    FakeResources pack;
    pack.documents[L"screen"] = R"(<Control class="Plain" name="root">
        <Control class="Plain" name="row"><Control class="Plain" name="cell"/></Control>
      </Control>)";
    Factory().AddGenerator(L"Plain", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    Factory().SetResources(&pack);
    auto descriptor = Factory().CreateDescriptorFromPack(L"screen");
    ASSERT_TRUE(descriptor);
    Control* root = Factory().CreateControl(descriptor, Frame(), -1);
    ASSERT_NE(root, nullptr);
    auto* cell = dynamic_cast<Control*>(wxWindow::FindWindowByName("cell", root));
    ASSERT_NE(cell, nullptr) << "children are built below their loaded parent, depth first";
    EXPECT_EQ(cell->GetParent()->GetName(), "row");
    EXPECT_EQ(cell->GetResources(), &pack);

    ErrorCapture errors;
    EXPECT_FALSE(Factory().CreateDescriptorFromPack(L"absent"));
    EXPECT_EQ(errors.Lines(), (std::vector<std::string>{
                                "absent.xml: the description cannot be read from the appearance pack"}));
}

} // namespace
