// Controls and templates nested past the factory's depth limit are left out
// of the descriptor tree, and so of the control tree, with one report on the
// line of the first one left out; a tree within the limit is built whole.
#include "../descriptors/DescriptorTestSupport.h"

#include "controls/Control.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "factory/CtrlGenerator.h"

#include <chrono>
#include <string>

using namespace UIKit;
using descriptortest::Document;
using descriptortest::ErrorCapture;

namespace {

class NestCtrl : public Control {
public:
    NestCtrl(wxWindow* parent, int id, const wxRect& bounds) : Control(parent, id, bounds, 0) {}
    void RefreshUpdate(bool) override {}
};

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

class ControlDepthTest : public descriptortest::FactoryFixture {
protected:
    void SetUp() override
    {
        FactoryFixture::SetUp();
        Factory().AddGenerator(L"PanelCtrl", CtrlGenerator<PanelCtrlDescriptor, NestCtrl>::Make());
    }
};

} // namespace

TEST_F(ControlDepthTest, ControlsPastTheLimitAreLeftOutWithOneReport)
{
    const int limit = CtrlFactory::kMaxControlDepth;
    const std::string report = "test.xml:" + std::to_string(limit + 1) + ": controls nested deeper than " +
                               std::to_string(limit) + " levels are left out";
    struct Case {
        int levels;
        int templateEvery; // 0: controls only
        int depth;         // descriptor levels kept
        bool reported;
    };
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

TEST_F(ControlDepthTest, SiblingsOfADeepNestAreStillBuilt)
{
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
