// The factory: generators by class name, controls built in order with their
// ids, templates of the requested kind, the template registry, the path from
// the pack to a control tree, and the depth limit on nested controls.
#include "../descriptors/DescriptorTestSupport.h"

#include "TestSupport.h"
#include "controls/Control.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "factory/CtrlGenerator.h"

#include <chrono>
#include <string>

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

// `levels` nested elements, one per line; each level below the first is a
// "Control", or a "Template" every `templateEvery` levels.
std::string nested(int levels, int templateEvery)
{
    std::string open;
    std::string close;
    for (int level = 1; level <= levels; ++level) {
        const bool isTemplate = level > 1 && templateEvery && level % templateEvery == 0;
        const std::string element = isTemplate ? "Template" : "Control";
        open += "<" + element + " class=\"PanelCtrl\" name=\"n" + std::to_string(level) + "\">\n";
        close = "</" + element + ">" + close;
    }
    return open + close;
}

// Levels of the descriptor tree, following the one child or template.
int descriptorDepth(const BaseCtrlDescriptor* descriptor)
{
    int depth = 0;
    for (; descriptor; ++depth) {
        const auto& next = descriptor->GetControls().empty() ? descriptor->GetTemplates() : descriptor->GetControls();
        descriptor = next.empty() ? nullptr : next.front().get();
    }
    return depth;
}

int windowDepth(const wxWindow* window)
{
    int depth = 0;
    for (; window; ++depth)
        window = window->GetChildren().empty() ? nullptr : window->GetChildren().front();
    return depth;
}

TEST_F(CtrlFactoryTest, FirstRegistrationWinsAndNamesAreCaseSensitive)
{
    auto g1 = CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make();
    auto g2 = CtrlGenerator<PanelCtrlDescriptor, FancyCtrl>::Make();
    Factory().AddGenerator(L"ButtonCtrl", g1);
    testsupport::LogCapture log;
    Factory().AddGenerator(L"ButtonCtrl", g2);
    EXPECT_EQ(Factory().GetGenerator(L"ButtonCtrl").get(), g1.get());
    EXPECT_TRUE(log.Contains(L"ButtonCtrl is already registered")) << "a second registration is logged";
    ErrorCapture errors; // the report is the descriptor test's
    EXPECT_FALSE(Factory().CreateDescriptor(Document(R"(<Control class="buttonctrl"/>)").Root()));
    EXPECT_EQ(Factory().CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor>(), Frame(), -1), nullptr);
}

TEST_F(CtrlFactoryTest, ControlsAreBuiltInOrderWithTheirDeclaredIdsAndUnknownOnesSkipped)
{
    Factory().AddGenerator(L"Plain", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    Factory().AddGenerator(L"Panel", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    const Document doc(R"(<Control class="Panel" name="root">
        <Control class="Plain" name="first" id="ID_OK" bounds="1,2,30,20"/>
        <Control class="Plain" name="last"/>
      </Control>)");
    auto root = Factory().CreateDescriptor(doc.Root());
    ASSERT_TRUE(root);

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
    ErrorCapture errors; // an unknown class is reported as in any description
    templates->Load(first.Root(), Factory());
    templates->Load(second.Root(), Factory());
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

// Controls and templates nested past the factory's depth limit are left out
// of the descriptor tree, and so of the control tree, with one report on the
// line of the first one left out; a tree within the limit is built whole.
TEST_F(CtrlFactoryTest, ControlsPastTheDepthLimitAreLeftOutWithOneReport)
{
    Factory().AddGenerator(L"PanelCtrl", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    const int limit = CtrlFactory::kMaxControlDepth;
    const std::string report = "test.xml:" + std::to_string(limit + 1) + ": controls nested deeper than " +
                               std::to_string(limit) + " levels are left out";
    // templateEvery: 0: controls only
    // depth: descriptor levels kept
    struct Case { int levels; int templateEvery; int depth; bool reported; };
    const Case cases[] = {
        {limit, 0, limit, false}, // exactly at the limit: everything built
        {1000, 0, limit, true},
        {1000, 3, limit, true}, // templates count as levels too
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.levels) + " levels, template every " + std::to_string(c.templateEvery));
        ErrorCapture errors;
        const auto started = std::chrono::steady_clock::now();
        const Document doc(nested(c.levels, c.templateEvery));
        auto root = Factory().CreateDescriptor(doc.Root());
        ASSERT_TRUE(root);
        EXPECT_EQ(descriptorDepth(root.get()), c.depth);
        if (c.reported)
            EXPECT_EQ(errors.Lines(), std::vector<std::string>{report});
        else
            EXPECT_TRUE(errors.Lines().empty()) << errors.Lines().front();
        if (c.templateEvery)
            continue;
        Control* control = Factory().CreateControl(root, Frame(), -1);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(windowDepth(control), c.depth);
        control->Destroy();
        EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::milliseconds(500));
    }
}

TEST_F(CtrlFactoryTest, SiblingsOfADeepNestAreStillBuilt)
{
    Factory().AddGenerator(L"PanelCtrl", CtrlGenerator<PanelCtrlDescriptor, PlainCtrl>::Make());
    const std::string text = "<Control class=\"PanelCtrl\" name=\"root\">\n" + nested(100, 0) +
                             "<Control class=\"PanelCtrl\" name=\"sibling\"/>\n"
                             "<Template class=\"PanelCtrl\" name=\"kept\"/></Control>";
    ErrorCapture errors;
    const Document doc(text);
    auto root = Factory().CreateDescriptor(doc.Root());
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->GetControl(L"sibling") && root->GetTemplate(L"kept", false));
    EXPECT_TRUE(root->GetTemplate(L"nothing", true) == nullptr) << "template lookup walks the limited tree";
    EXPECT_EQ(errors.Lines().size(), 1u);
}

} // namespace
