#include "XmlTestTree.h"

#include "xml/XmlDom.h"
#include "xml/XmlParser.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <algorithm>
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

// Well-formed documents and the trees that the lazy and the eager parse must both give.
const std::vector<DocumentCase> kDocuments = {
    {"attributes and an empty child", R"(<Skin a="1" B="two"><Control/></Skin>)", "Skin[a=1,B=two]{Control[]}"},
    {"comment and declaration after the top element", "<A/>\n<!-- c --><?pi?>\n", "A[]"},
    {"leading blanks skipped, trailing kept", "<L>\n  hi there  </L>", "L[]\"hi there  \""},
    {"later text replaces earlier", "<A>head<B/>tail</A>", "A[]\"tail\"{B[]}"},
    {"CDATA kept raw", "<A><![CDATA[<b> &amp; ]]></A>", "A[]!\"<b> &amp; \""},
    {"entities decoded in one pass", R"(<A t="&quot;x&apos;">a &amp;lt; &&lt;&gt; &#65; &LT; &am</A>)",
     "A[t=\"x']\"a &lt; &<> &#65; &LT; &am\""},
    {"empty value reads as absent", R"(<A e="" f="1"/>)", "A[e=~,f=1]"},
    {"self-closing with blanks", "<R><A / ><B c=\"1\"/></R>", "R[]{A[]B[c=1]}"},
    {"declaration and DOCTYPE skipped", R"(<?xml version="1.0"?><!DOCTYPE s "a" "b"><A/>)", "A[]"},
    {"comments skipped wherever they are", "<!-- <two> --><A>t<!--a--><B/><!-- <B></B> --><C/><!--c--></A>",
     "A[]\"t\"{B[]C[]}"},
    {"nested Control restored whole",
     R"(<Control name="a"><Control name="b"/><Control name="c"><Control/><![CDATA[</Control> <Control>]]></Control>)"
     R"(<Label>x</Label><CONTROL name="d"><control/></CONTROL></Control>)",
     R"(Control[name=a]{Control[name=b]Control[name=c]!"</Control> <Control>"{Control[]}Label[]"x")"
     R"(CONTROL[name=d]{control[]}})"},
    // Contents long enough for the block-wise search of a closing tag, with
    // tags across block edges, quoted "/" and ">", names of other case and
    // names that only start like the searched one.
    {"long contents, two-byte name",
     "<R><ab p=\"" + std::string(40, 'p') + "\"><AB q=\"a/b>c\" r=\"" + std::string(40, 'r') +
         "\"/><Ab t=\"1/>2\">x</Ab><aB s=\"/\"><ab/></aB><!-- </ab> " + std::string(40, '.') +
         " --><abc/></ab><c/></R>",
     "R[]{ab[p=" + std::string(40, 'p') + "]{AB[q=a/b>c,r=" + std::string(40, 'r') +
         "]Ab[t=1/>2]\"x\"aB[s=/]{ab[]}abc[]}c[]}"},
    {"long contents, long and one-byte names",
     "<R><BackgroundImage m=\"" + std::string(40, 'm') + "\"><backgroundimage/><BACKGROUNDIMAGE n=\"1\">x" +
         std::string(40, 'x') + "</BACKGROUNDIMAGE></BackgroundImage><b><b x=\"" + std::string(40, 'b') +
         "\"></b></b><Position><PositionX>t</PositionX>" + std::string(40, ' ') + "</Position></R>",
     "R[]{BackgroundImage[m=" + std::string(40, 'm') + "]{backgroundimage[]BACKGROUNDIMAGE[n=1]\"x" +
         std::string(40, 'x') + "\"}b[]{b[x=" + std::string(40, 'b') + "]}Position[]{PositionX[]\"t\"}}"},
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

TEST(XmlDomTest, NamesMatchWithoutCaseAndTheFirstAttributeWins)
{
    for (const bool lazy : {false, true}) {
        auto tree = Parse(R"(<Skin><Control bounds="1,2" BOUNDS="3,4" e="" E="x"><Label>t</Label></Control></Skin>)",
                          lazy);
        XML_NODE* control = node_find_first(tree.get(), "CONTROL");
        ASSERT_NE(control, nullptr);
        EXPECT_STREQ(node_attribute(control, "BOUNDS"), "1,2");
        EXPECT_EQ(node_attribute(control, "E"), nullptr) << "first one is empty";
        EXPECT_EQ(node_attribute(control, "bound"), nullptr);
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
        XML_NODE* x = node_find_first(node_find_first(top, "A"), "X");
        EXPECT_EQ(node_find_next(top, "A", x), nullptr) << "previous is not a child";
    }
}

TEST(XmlDomTest, TopElementsCarryNamespaceDocTypeAndResultCodes)
{
    XML_NODE* top = nullptr;
    ASSERT_EQ(node_create(&top, "root", "uri"), XML_OK);
    xmltest::Tree tree(top);
    EXPECT_STREQ(node_attribute(top, "xmlns"), "uri");
    XML_DOCTYPE* doctype = nullptr;
    EXPECT_EQ(node_set_doc(top, nullptr, &doctype, true), XML_NULL_ARGUMENT);

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
    EXPECT_EQ(Dump(top), "Skin[]{A[]C[]}") << "indexes follow the removal";

    ASSERT_EQ(node_set_doc(top, "<Other/>", &doctype, true), XML_OK) << "parsing again reuses the element";
    EXPECT_EQ(doctype, nullptr);
    EXPECT_EQ(Dump(top), "Other[]");
}

namespace {

// Parses with a handler that collects every problem as "line: cause", then
// reads the whole tree, so that lazily kept children are parsed too.
std::pair<std::string, std::vector<std::string>> parseAndCollect(const std::string& text, bool lazy)
{
    std::vector<std::string> errors;
    XML_NODE* top = nullptr;
    node_create(&top, "root", nullptr);
    xmltest::Tree tree(top);
    node_set_error_handler(
        top,
        [](const XML_ERROR& e, void* sink) {
            static_cast<std::vector<std::string>*>(sink)->push_back(std::to_string(e.line) + ": " + e.cause);
        },
        &errors);
    node_set_doc(top, text.c_str(), nullptr, lazy);
    std::string dump = Dump(top);
    const XML_ERROR* last = node_last_error(top);
    EXPECT_EQ(last ? std::to_string(last->line) + ": " + last->cause : "", errors.empty() ? "" : errors.back());
    std::sort(errors.begin(), errors.end());
    return {dump, errors};
}

} // namespace

TEST(XmlDomTest, DocumentsAreReadAsFarAsTheyGoAndEachProblemToldOnce)
{
    struct MalformedCase {
        const char* what;
        std::string text;
        std::string tree;
        std::vector<std::string> errors; // sorted
    };
    const std::vector<MalformedCase> cases = {
        {"no element at all", "just text", "root[]", {"1: no element in the text"}},
        {"closing tags only", "</A>\n</B>", "root[]",
         {"1: closing tag </A> matches no open element", "2: closing tag </B> matches no open element",
          "2: no element in the text"}},
        {"truncated in a child's start tag", "<Skin>\n<Screen>\n<Control a=\"1\"/>\n<Cont",
         "Skin[]{Screen[]{Control[a=1]Cont[]}}", {"4: start tag <Cont> opened on line 4 is not finished"}},
        {"truncated attribute", "<A b=\"1", "A[b=1]",
         {"1: value of attribute b in start tag <A> opened on line 1 is not closed"}},
        {"truncated closing tag", "<A></A", "A[]", {"1: closing tag </A> is not finished"}},
        {"unclosed elements", "<A><B>\n<C>text\n", "A[]{B[]{C[]\"text\n\"}}",
         {"2: <C> opened on line 2 is not closed"}},
        {"CDATA never ends", "<A>\n<![CDATA[ open", "A[]!\" open\"",
         {"2: CDATA section opened on line 2 is not closed"}},
        {"comment never ends", "<A><!-- open\n<B/>", "A[]", {"2: comment opened on line 1 is not closed"}},
        {"closing tag of an outer element", "<A>\n<B>\n<C>\n</B>\n</A>", "A[]{B[]{C[]}}",
         {"4: <C> opened on line 3 is not closed"}},
        {"content after the top element", "<A></A>\ntrailing<B/>", "A[]",
         {"2: content after the end of the top element"}},
        {"attributes not written name=\"value\"", "<A b='1'\n c=2 d e= \"3\" f=\"4\"/>", "A[f=4]",
         {"1: attribute b is ignored: write b=\"value\"", "2: attribute c is ignored: write c=\"value\"",
          "2: attribute d is ignored: write d=\"value\"", "2: attribute e is ignored: write e=\"value\""}},
        {"element without a name", "<A>< B/></A>", "A[]{[]}",
         {"1: attribute B is ignored: write B=\"value\"", "1: element without a name"}},
    };
    for (const auto& c : cases)
        for (const bool lazy : {false, true}) {
            const auto [tree, errors] = parseAndCollect(c.text, lazy);
            EXPECT_EQ(tree, c.tree) << c.what << (lazy ? " (lazy)" : " (eager)");
            EXPECT_EQ(errors, c.errors) << c.what << (lazy ? " (lazy)" : " (eager)");
        }
    // Well-formed documents give the same tree in both modes and report nothing.
    for (const auto& c : kDocuments)
        for (const bool lazy : {false, true})
            EXPECT_EQ(parseAndCollect(c.text, lazy), std::make_pair(c.tree, std::vector<std::string>{}))
                << c.what << (lazy ? " (lazy)" : " (eager)");
}

TEST(XmlDomTest, DeepNestingNeedsNoCallStack)
{
    // As deep as the reader keeps; deeper elements are skipped (XmlDepthTest).
    const int levels = int(XmlParser::kMaxDepth);
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
        {"top after a prolog", "<?xml version=\"1.0\"?>\n<!-- c\n-->\n\n<A/>", nullptr, 5},
        {"grandchild", screen, "Screen/Control", 3},
        {"after a multi-line comment", screen, "Other", 7},
        {"same line as a multi-line tag ends", screen, "Other/Deep", 8},
        {"after CDATA holding newlines", screen, "Other/Last", 11},
        {"CR LF counts once", "<A>\r\n<B>\r\n\r\n<C/></B></A>", "B/C", 4},
        {"lone CR ends a line", "<A>\r<B/></A>", "B", 2},
    };
    for (const auto& c : cases)
        for (const bool lazy : {false, true}) {
            auto tree = Parse(c.text, lazy);
            XML_NODE* element = c.path ? node_find_first(tree.get(), c.path) : tree.get();
            ASSERT_NE(element, nullptr) << c.what;
            EXPECT_EQ(node_line(element), c.line) << c.what << (lazy ? " (lazy)" : " (eager)");
        }

    // A new parse forgets the old lines.
    XML_NODE* top = nullptr;
    ASSERT_EQ(node_create(&top, "root", nullptr), XML_OK);
    xmltest::Tree tree(top);
    const std::string borrowed = "\n\n<A>\n<B/></A>";
    node_set_doc_borrowed(top, borrowed.data(), borrowed.size(), nullptr, true);
    EXPECT_EQ(node_line(node_find_first(top, "B")), 4u);
    node_set_doc(top, "<A><B/></A>", nullptr, true);
    EXPECT_EQ(node_line(node_find_first(top, "B")), 1u);
}
