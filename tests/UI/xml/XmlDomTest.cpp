#include "XmlTestTree.h"

#include "xml/XmlDom.h"
#include "xml/XmlEntities.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <functional>
#include <string>
#include <vector>

using namespace UIKit;
using xmltest::Dump;
using xmltest::Parse;

namespace {

struct DocumentCase {
    const char* what;
    std::string text;
    std::string tree;
};

// Trees that the lazy and the eager parse must both give.
const std::vector<DocumentCase> kDocuments = {
    {"attributes and an empty child", R"(<Skin a="1" B="two"><Control/></Skin>)", "Skin[a=1,B=two]{Control[]}"},
    {"names kept as written", "<SKIN><control/></SKIN>", "SKIN[]{control[]}"},
    {"leading blanks skipped, trailing kept", "<L>\n  hi there  </L>", "L[]\"hi there  \""},
    {"later text replaces earlier", "<A>head<B/>tail</A>", "A[]\"tail\"{B[]}"},
    {"CDATA kept raw", "<A><![CDATA[<b> &amp; ]]></A>", "A[]!\"<b> &amp; \""},
    {"entities in text and values", R"(<A t="&quot;x&quot;">a &amp;lt; b &#65;</A>)", "A[t=\"x\"]\"a &lt; b &#65;\""},
    {"empty value reads as absent", R"(<A e="" f="1"/>)", "A[e=~,f=1]"},
    {"unquoted and single-quoted values skipped", R"(<A b=c d='e' f="g"/>)", "A[f=g]"},
    {"blanks before = only", R"(<A b ="1" c= "2"/>)", "A[b=1]"},
    {"self-closing with blanks", "<R><A / ><B c=\"1\"/></R>", "R[]{A[]B[c=1]}"},
    {"declaration and DOCTYPE skipped", R"(<?xml version="1.0"?><!DOCTYPE s "a" "b"><A/>)", "A[]"},
    {"top-level comments skipped", "<!-- one --><!-- <two> --><A/>", "A[]"},
    {"comment before a closing tag", "<A>text<!-- c --></A>", "A[]\"text\""},
    {"comment after the last child", "<A><B/><!-- c --></A>", "A[]{B[]}"},
    {"comments between children", "<A><!--a--><B/><!--b--><!--c--><C/></A>", "A[]{B[]C[]}"},
    {"comment holding tags", "<A><!-- <B></B> --><C/></A>", "A[]{C[]}"},
    {"closing name not checked", "<A><B></A>", "A[]{B[]}"},
    {"text after the top element ignored", "<A/>trailing<B/>", "A[]"},
    {"no element at all", "just text", "root[]"},
    {"nested Control restored whole",
     R"(<Control name="a"><Control name="b"/><Control name="c"><Control/><![CDATA[</Control> <Control>]]></Control>)"
     R"(<Label>x</Label><CONTROL name="d"><control/></CONTROL></Control>)",
     R"(Control[name=a]{Control[name=b]Control[name=c]!"</Control> <Control>"{Control[]}Label[]"x")"
     R"(CONTROL[name=d]{control[]}})"},
    {"same name three deep", "<a><a><a>x</a></a><a/></a>", "a[]{a[]{a[]\"x\"}a[]}"},
};

// Runs the function on a thread with a small stack.
void runWithStack(size_t bytes, std::function<void()> function)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_t thread;
    auto entry = [](void* f) -> void* {
        (*static_cast<std::function<void()>*>(f))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, entry, &function), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

} // namespace

TEST(XmlDomTest, ParsesTheSameTreeLazilyAndEagerly)
{
    for (const auto& c : kDocuments) {
        EXPECT_EQ(Dump(Parse(c.text, false).get()), c.tree) << "eager: " << c.what;
        EXPECT_EQ(Dump(Parse(c.text, true).get()), c.tree) << "lazy: " << c.what;
    }
}

TEST(XmlDomTest, LazyChildrenStayPendingUntilSearched)
{
    auto tree = Parse(R"(<Screen n="1"><Control><Label>x</Label></Control></Screen>)", true);
    XML_NODE* top = tree.get();
    EXPECT_STREQ(node_attribute(top, "n"), "1");
    ASSERT_NE(top->pending, nullptr);
    EXPECT_EQ(top->children.count, 0u);
    XML_NODE* control = node_find_first(top, "Control");
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(top->pending, nullptr);
    EXPECT_NE(control->pending, nullptr);
    EXPECT_STREQ(node_value(node_find_first(control, "Label")), "x");
}

TEST(XmlDomTest, NamesMatchWithoutCaseAndTheFirstAttributeWins)
{
    for (const bool lazy : {false, true}) {
        auto tree = Parse(R"(<Skin><Control bounds="1,2" BOUNDS="3,4" e="" E="x"><Label>t</Label></Control></Skin>)",
                          lazy);
        XML_NODE* control = node_find_first(tree.get(), "CONTROL");
        ASSERT_NE(control, nullptr);
        EXPECT_STREQ(node_attribute(control, "BOUNDS"), "1,2");
        EXPECT_STREQ(node_attribute(control, "Bounds"), "1,2");
        EXPECT_EQ(node_attribute(control, "E"), nullptr) << "first one is empty";
        EXPECT_EQ(node_attribute(control, "bound"), nullptr);
        EXPECT_EQ(node_attribute(control, nullptr), nullptr);
        EXPECT_STREQ(node_value(node_find_first(tree.get(), "control/LABEL")), "t");
        EXPECT_EQ(node_find_first(tree.get(), "Contro"), nullptr);
        EXPECT_EQ(node_find_first(tree.get(), "Control/Label/x"), nullptr);
    }
}

TEST(XmlDomTest, FindNextWalksPathsInDocumentOrder)
{
    const std::string text = R"(<R><A><B n="1"/><X/><B n="2"/></A><C/><a><b n="3"/></a><A/><A><B n="4"/></A></R>)";
    for (const bool lazy : {false, true}) {
        auto tree = Parse(text, lazy);
        XML_NODE* top = tree.get();
        std::vector<std::string> found;
        for (XML_NODE* b = node_find_first(top, "A/B"); b; b = node_find_next(top, "A/B", b))
            found.push_back(node_attribute(b, "n"));
        EXPECT_EQ(found, (std::vector<std::string>{"1", "2", "3", "4"})) << "lazy " << lazy;

        std::vector<std::string> names;
        for (XML_NODE* c = node_find_first(top, nullptr); c; c = node_find_next(top, nullptr, c))
            names.push_back(node_name(c));
        EXPECT_EQ(names, (std::vector<std::string>{"A", "C", "a", "A", "A"}));

        XML_NODE* firstA = node_find_first(top, "A");
        XML_NODE* x = node_find_first(firstA, "X");
        EXPECT_EQ(node_find_next(top, "A", x), nullptr) << "previous is not a child";
        EXPECT_EQ(node_find_next(top, "C", firstA), nullptr) << "previous does not match";
        EXPECT_EQ(node_find_next(top, "A", nullptr), nullptr);
        EXPECT_EQ(node_find_first(nullptr, "A"), nullptr);
    }
}

TEST(XmlDomTest, TopElementsCarryNamespaceDocTypeAndResultCodes)
{
    XML_NODE* top = nullptr;
    EXPECT_EQ(node_create(nullptr, "root", nullptr), XML_NULL_ARGUMENT);
    EXPECT_EQ(node_create(&top, nullptr, nullptr), XML_NULL_ARGUMENT);
    ASSERT_EQ(node_create(&top, "root", "uri"), XML_OK);
    xmltest::Tree tree(top);
    EXPECT_STREQ(node_name(top), "root");
    EXPECT_STREQ(node_attribute(top, "xmlns"), "uri");

    XML_DOCTYPE* doctype = nullptr;
    EXPECT_EQ(node_set_doc(nullptr, "<A/>", &doctype, true), XML_NULL_ARGUMENT);
    EXPECT_EQ(node_set_doc(top, nullptr, &doctype, true), XML_NULL_ARGUMENT);
    EXPECT_TRUE(XML_FAILED(XML_NULL_ARGUMENT) && XML_FAILED(XML_FAILURE) && !XML_FAILED(XML_OK));

    ASSERT_EQ(node_set_doc(top, R"(<!DOCTYPE skin PUBLIC "one" "two"><Skin><A/><B/><C/></Skin>)", &doctype, false),
              XML_OK);
    ASSERT_NE(doctype, nullptr);
    EXPECT_STREQ(doctype->name, "skin");
    EXPECT_STREQ(doctype->first, "one");
    EXPECT_STREQ(doctype->second, "two");
    EXPECT_EQ(node_attribute(top, "xmlns"), nullptr) << "the element was emptied";

    XML_NODE* b = node_find_first(top, "B");
    EXPECT_EQ(node_set_doc(b, "<X/>", nullptr, false), XML_FAILURE) << "inner elements hold no document";
    EXPECT_EQ(node_destroy(b), XML_OK);
    EXPECT_EQ(Dump(top), "Skin[]{A[]C[]}");
    EXPECT_EQ(node_find_next(top, nullptr, node_find_first(top, nullptr)), node_find_first(top, "C"));

    ASSERT_EQ(node_set_doc(top, "<Other/>", &doctype, true), XML_OK) << "parsing again reuses the element";
    EXPECT_EQ(doctype, nullptr);
    EXPECT_EQ(Dump(top), "Other[]");
    EXPECT_EQ(node_destroy(nullptr), XML_NULL_ARGUMENT);
}

TEST(XmlEntitiesTest, DecodesTheFiveEntitiesInOnePass)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"a &amp;lt; b", "a &lt; b"},
        {"&lt;&gt;&amp;&apos;&quot;", "<>&'\""},
        {"&#65; &#x41;", "&#65; &#x41;"},
        {"&", "&"},
        {"x&", "x&"},
        {"&am", "&am"},
        {"&&lt;", "&<"},
        {"&LT;", "&LT;"},
        {"no entity", "no entity"},
        {"", ""},
    };
    for (const auto& [in, out] : cases) {
        std::string separate(in.size(), '?');
        EXPECT_EQ(tag_code_to_tag(separate.data(), in.data(), static_cast<uint32_t>(in.size())), out.size()) << in;
        EXPECT_EQ(separate.substr(0, out.size()), out) << in;
        std::string inPlace = in;
        const uint32_t length = tag_code_to_tag(inPlace.data(), inPlace.data(), static_cast<uint32_t>(in.size()));
        EXPECT_EQ(inPlace.substr(0, length), out) << in;
    }
}

TEST(XmlDomTest, MalformedInputGivesATreeAndStaysInItsBuffer)
{
    const std::vector<DocumentCase> cases = {
        {"empty", "", "root[]"},
        {"lone <", "<", "[]"},
        {"lone closing", "</", "[]"},
        {"truncated start tag", "<Control", "Control[]"},
        {"truncated attribute", R"(<A b="1)", "A[b=1]"},
        {"unclosed elements", "<A><B><C>text", "A[]{B[]{C[]\"text\"}}"},
        {"lone ampersand", "<A>&</A>", "A[]\"&\""},
        {"CDATA never ends", "<A><![CDATA[ open", "A[]!\" open\""},
        {"comment never ends", "<A><!-- open <B/>", "A[]"},
        {"DOCTYPE never ends", R"(<!DOCTYPE x "a)", "root[]"},
        {"stray quote and equals", R"(<A = "x" "y"/>)", "A[]"},
        {"closing tags only", "</A></B>", "[]"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Dump(Parse(c.text, false).get()), c.tree) << "eager: " << c.what;
        EXPECT_EQ(Dump(Parse(c.text, true).get()), c.tree) << "lazy: " << c.what;
    }
}

TEST(XmlDomTest, DeepNestingNeedsNoCallStack)
{
    const int levels = 10000;
    std::string deep;
    for (int i = 0; i < levels; ++i)
        deep += "<Control>";
    deep += "x";
    for (int i = 0; i < levels; ++i)
        deep += "</Control>";
    std::string unclosed;
    for (int i = 0; i < levels; ++i)
        unclosed += i % 2 ? "<b>" : "<a>";

    for (const bool lazy : {false, true}) {
        size_t deepCount = 0;
        size_t unclosedCount = 0;
        std::string innermost;
        // A recursive parse would need far more than this stack.
        runWithStack(256 * 1024, [&] {
            auto tree = Parse(deep, lazy);
            deepCount = xmltest::CountElements(tree.get());
            XML_NODE* e = tree.get();
            while (XML_NODE* child = node_find_first(e, nullptr))
                e = child;
            innermost = node_value(e) ? node_value(e) : "";
            unclosedCount = xmltest::CountElements(Parse(unclosed, lazy).get());
        });
        EXPECT_EQ(deepCount, size_t(levels)) << "lazy " << lazy;
        EXPECT_EQ(innermost, "x");
        EXPECT_EQ(unclosedCount, size_t(levels));
    }
}

TEST(XmlDomTest, ElementsKnowTheLineOfTheirStartTag)
{
    struct LineCase {
        const char* what;
        std::string text;
        const char* path; // null: the top element
        uint32_t line;
    };
    const std::string screen = "<Skin>\n"
                               "  <Screen name=\"a\">\n"
                               "    <Control/>\n"
                               "  </Screen>\n"
                               "  <!-- a comment\n over two lines <Fake/> -->\n"
                               "  <Other a=\"1\"\n         b=\"2\"><Deep><![CDATA[\n\n]]></Deep>\n"
                               "    <Last/></Other>\n"
                               "</Skin>\n";
    const std::vector<LineCase> cases = {
        {"top on the first line", "<A/>", nullptr, 1},
        {"top after a prolog", "<?xml version=\"1.0\"?>\n<!-- c\n-->\n\n<A/>", nullptr, 5},
        {"child", screen, "Screen", 2},
        {"grandchild", screen, "Screen/Control", 3},
        {"after a multi-line comment", screen, "Other", 7},
        {"same line as a multi-line tag ends", screen, "Other/Deep", 8},
        {"after CDATA holding newlines", screen, "Other/Last", 11},
        {"CR LF counts once", "<A>\r\n<B>\r\n\r\n<C/></B></A>", "B/C", 4},
        {"lone CR ends a line", "<A>\r<B/></A>", "B", 2},
        {"several on one line", "<A>\n<B/><C/></A>", "C", 2},
    };
    for (const auto& c : cases)
        for (const bool lazy : {false, true}) {
            auto tree = Parse(c.text, lazy);
            XML_NODE* element = c.path ? node_find_first(tree.get(), c.path) : tree.get();
            ASSERT_NE(element, nullptr) << c.what;
            EXPECT_EQ(node_line(element), c.line) << c.what << (lazy ? " (lazy)" : " (eager)");
        }

    // Elements not read from a text have no line; a new parse forgets the old lines.
    XML_NODE* top = nullptr;
    ASSERT_EQ(node_create(&top, "root", nullptr), XML_OK);
    xmltest::Tree tree(top);
    EXPECT_EQ(node_line(top), 0u);
    EXPECT_EQ(node_line(nullptr), 0u);
    node_set_doc(top, "just text\n", nullptr, true);
    EXPECT_EQ(node_line(top), 0u);
    const std::string borrowed = "\n\n<A>\n<B/></A>";
    node_set_doc_borrowed(top, borrowed.data(), borrowed.size(), nullptr, true);
    EXPECT_EQ(node_line(node_find_first(top, "B")), 4u);
    node_set_doc(top, "<A><B/></A>", nullptr, true);
    EXPECT_EQ(node_line(node_find_first(top, "B")), 1u);
}
