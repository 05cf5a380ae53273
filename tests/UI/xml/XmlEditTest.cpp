// Building, changing, copying and writing trees: what is written reads back
// as the same tree, in both parse modes.
#include "XmlTestTree.h"

#include "xml/XmlDom.h"
#include "xml/XmlEdit.h"
#include "xml/XmlWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace UIKit;
using xmltest::Dump;
using xmltest::Parse;

namespace {

std::string write(XML_NODE* element)
{
    std::string text;
    EXPECT_EQ(node_write(element, text), XML_OK);
    return text;
}

const std::string kSkin = R"(<!DOCTYPE skin "one" "two">
<Skin version="2">
  <Control class="PanelCtrl" name="a&amp;b" tip="&lt;&quot;quoted&quot;&gt; &apos;x&apos;">
    <Control class="ButtonCtrl" name="ok" empty=""><Label>LB_OK</Label></Control>
    head<Control name="nested"/>tail &#65; &amp;amp;
  </Control>
  <Script><![CDATA[if (a < b && c) { x = "]]" + ">"; }]]></Script>
  <Template name="t">  trailing blanks kept  </Template>
</Skin>
)";

} // namespace

TEST(XmlEditTest, WrittenTreesReadBackTheSame)
{
    for (const bool lazy : {false, true}) {
        auto tree = Parse(kSkin, lazy);
        const std::string text = write(tree.get());
        EXPECT_EQ(Dump(Parse(text, !lazy).get()), Dump(Parse(kSkin, false).get())) << text;
        EXPECT_EQ(write(Parse(text, lazy).get()), text) << "writing is stable";
        auto again = Parse(text, false);
        EXPECT_EQ(node_last_error(again.get()), nullptr) << "written text is well formed";
        ASSERT_NE(again->doctype, nullptr);
        EXPECT_STREQ(again->doctype->second, "two");
    }
}

TEST(XmlEditTest, ChangedTreesReadBackWithTheirChanges)
{
    for (const bool lazy : {false, true}) {
        auto tree = Parse(R"(<Skin><A n="1">x<B/></A><C/></Skin>)", lazy);
        XML_NODE* top = tree.get();
        XML_NODE* a = node_find_first(top, "A");
        XML_NODE* added = nullptr;
        ASSERT_EQ(node_append_child(a, "Last", &added), XML_OK);
        EXPECT_EQ(node_line(added), 0u);
        ASSERT_EQ(node_prepend_child(a, "First", nullptr), XML_OK);
        EXPECT_EQ(node_set_value(added, "a < b & \"c\"", false), XML_OK);
        EXPECT_EQ(node_set_value(a, "<raw>", true), XML_OK);
        EXPECT_EQ(node_set_attribute(a, "N", "2"), XML_OK) << "replaces n";
        EXPECT_EQ(node_set_attribute(a, "new", "v"), XML_OK);
        EXPECT_EQ(node_set_attribute(node_find_first(top, "C"), "gone", nullptr), XML_OK) << "nothing to remove";
        EXPECT_EQ(node_set_value(node_find_first(a, "B"), "", false), XML_OK);
        XML_NODE* c = node_find_first(top, "C");
        ASSERT_EQ(node_set_attribute(c, "k", "1"), XML_OK);
        ASSERT_EQ(node_set_attribute(c, "K", nullptr), XML_OK);

        const std::string expected = R"(Skin[]{A[n=2,new=v]!"<raw>"{First[]B[]Last[]"a < b & "c""}C[]})";
        EXPECT_EQ(Dump(top), expected) << "lazy " << lazy;
        EXPECT_EQ(Dump(Parse(write(top), lazy).get()), expected);
        EXPECT_EQ(node_find_next(a, nullptr, node_find_first(a, "B")), added) << "indexes follow the prepend";
    }
    EXPECT_EQ(node_append_child(nullptr, "x", nullptr), XML_NULL_ARGUMENT);
    EXPECT_EQ(node_set_attribute(nullptr, "x", "y"), XML_NULL_ARGUMENT);
}

TEST(XmlEditTest, CopiesAreDeepAndOwnedByTheTargetTree)
{
    auto target = Parse("<T><Slot/></T>", true);
    {
        auto source = Parse(R"(<S><Screen name="s"><Control id="1">text<Label>l</Label></Control></Screen></S>)", true);
        XML_NODE* copy = nullptr;
        ASSERT_EQ(node_copy(node_find_first(target.get(), "Slot"), node_find_first(source.get(), "Screen"), &copy),
                  XML_OK);
        EXPECT_EQ(node_line(copy), 0u);
    } // the source tree is freed: the copy must not point into it
    EXPECT_EQ(Dump(target.get()), R"(T[]{Slot[]{Screen[name=s]{Control[id=1]"text"{Label[]"l"}}}})");

    // Copying an element into its own subtree copies it as it was.
    XML_NODE* slot = node_find_first(target.get(), "Slot");
    ASSERT_EQ(node_copy(node_find_first(slot, "Screen/Control"), slot, nullptr), XML_OK);
    EXPECT_EQ(Dump(target.get()), R"(T[]{Slot[]{Screen[name=s]{Control[id=1]"text"{Label[]"l")"
                                   R"(Slot[]{Screen[name=s]{Control[id=1]"text"{Label[]"l"}}}}}}})");
}

TEST(XmlEditTest, FindByAttributeOrValueComparesBytesExactly)
{
    auto tree = Parse(R"(<R><A id="x">1</A><A ID="X">2</A><B id="x">1</B><A id="x">3</A></R>)", true);
    XML_NODE* top = tree.get();
    std::vector<std::string> found;
    for (XML_NODE* e = node_find_by_attribute(top, "A", "ID", "x", nullptr); e;
         e = node_find_by_attribute(top, "A", "ID", "x", e))
        found.push_back(node_value(e));
    EXPECT_EQ(found, (std::vector<std::string>{"1", "3"})) << "names ignore case, values do not";
    EXPECT_STREQ(node_name(node_find_by_value(top, nullptr, "1", node_find_first(top, "A"))), "B");
    EXPECT_EQ(node_find_by_value(top, "A", "4", nullptr), nullptr);
    EXPECT_EQ(node_find_by_attribute(top, "A", "id", nullptr, nullptr), nullptr);
}
