// The reader's tree: names, paths, document types, malformed documents read
// as far as they go with each problem told once, depth, lines, the kept
// regression inputs; and trees built, changed, copied and written.
#include "TestSupport.h"
#include "XmlTestTree.h"

#include "xml/XmlDom.h"
#include "xml/XmlEdit.h"
#include "xml/XmlParser.h"
#include "xml/XmlWriter.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using namespace UIKit;
using xmltest::Dump;
using xmltest::Parse;

namespace {

struct DocumentCase { const char* what; std::string text; std::string tree; };

// Well-formed documents and the trees that the lazy and the eager parse must both give.
const std::vector<DocumentCase> kDocuments = {
    {"comment and declaration after the top element", "<A/>\n<!-- c --><?pi?>\n", "A[]"},
    {"leading blanks skipped, trailing kept", "<L>\n  hi there  </L>", "L[]\"hi there  \""},
    {"later text replaces earlier", "<A>head<B/>tail</A>", "A[]\"tail\"{B[]}"},
    {"CDATA kept raw", "<A><![CDATA[<b> &amp; ]]></A>", "A[]!\"<b> &amp; \""},
    {"entities decoded in one pass", R"(<A t="&quot;x&apos;">a &amp;lt; &&lt;&gt; &#65; &LT; &am</A>)",
     "A[t=\"x']\"a &lt; &<> &#65; &LT; &am\""},
    {"empty value reads as absent", R"(<A e="" f="1"/>)", "A[e=~,f=1]"},
    {"self-closing with blanks", "<R><A / ><B c=\"1\"/></R>", "R[]{A[]B[c=1]}"},
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
    auto entry = [](void* f) -> void* { return (*static_cast<std::function<void()>*>(f))(), nullptr; };
    ASSERT_EQ(pthread_create(&thread, &attributes, entry, &function), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

// Parses with a handler that collects every problem as "line: cause", then
// runs `read` on the top element, so that lazily kept children it reads
// are parsed (and report) too.
std::vector<std::string> parseAndRead(const std::string& text, bool lazy, const std::function<void(XML_NODE*)>& read)
{
    std::vector<std::string> errors;
    XML_NODE* top = nullptr;
    node_create(&top, "root", nullptr);
    xmltest::Tree tree(top);
    node_set_error_handler(top, [](const XML_ERROR& e, void* sink) {
        static_cast<std::vector<std::string>*>(sink)->push_back(std::to_string(e.line) + ": " + e.cause);
    }, &errors);
    node_set_doc_n(top, text.data(), text.size(), nullptr, lazy);
    read(top);
    const XML_ERROR* last = node_last_error(top);
    EXPECT_EQ(last ? std::to_string(last->line) + ": " + last->cause : "", errors.empty() ? "" : errors.back());
    return errors;
}

// The whole tree dumped, and its problems sorted.
std::pair<std::string, std::vector<std::string>> parseAndCollect(const std::string& text, bool lazy)
{
    std::string dump;
    auto errors = parseAndRead(text, lazy, [&](XML_NODE* top) { dump = Dump(top); });
    std::sort(errors.begin(), errors.end());
    return {dump, errors};
}

std::string write(XML_NODE* element)
{
    std::string text;
    EXPECT_EQ(node_write(element, text), XML_OK);
    return text;
}

} // namespace

TEST(XmlDomTest, NamesMatchWithoutCaseAndTheFirstAttributeWins)
{
    for (const bool lazy : {false, true}) {
        auto tree =
            Parse(R"(<Skin><Control bounds="1,2" BOUNDS="3,4" e="" E="x"><Label>t</Label></Control></Skin>)", lazy);
        XML_NODE* control = node_find_first(tree.get(), "CONTROL");
        ASSERT_NE(control, nullptr);
        EXPECT_STREQ(node_attribute(control, "BOUNDS"), "1,2");
        EXPECT_EQ(node_attribute(control, "E"), nullptr) << "first one is empty";
        EXPECT_EQ(node_attribute(control, "bound"), nullptr);
        EXPECT_EQ(node_find_first(tree.get(), "Contro"), nullptr);
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
    EXPECT_EQ(std::string(doctype->name) + doctype->first + doctype->second, "skinonetwo");
    EXPECT_EQ(node_attribute(top, "xmlns"), nullptr) << "the element was emptied";

    XML_NODE* b = node_find_first(top, "B");
    EXPECT_EQ(node_set_doc(b, "<X/>", nullptr, false), XML_FAILURE) << "inner elements hold no document";
    EXPECT_EQ(node_destroy(b), XML_OK);
    EXPECT_EQ(Dump(top), "Skin[]{A[]C[]}") << "indexes follow the removal";

    ASSERT_EQ(node_set_doc(top, "<Other/>", &doctype, true), XML_OK) << "parsing again reuses the element";
    EXPECT_EQ(doctype, nullptr);
    EXPECT_EQ(Dump(top), "Other[]");
}

TEST(XmlDomTest, DocumentsAreReadAsFarAsTheyGoAndEachProblemToldOnce)
{
    // errors: sorted
    struct MalformedCase { const char* what; std::string text; std::string tree; std::vector<std::string> errors; };
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
        {"attributes not written name=\"value\"",
         "<A b='1'\n c=2 d e= \"3\" f=\"4\"/>",
         "A[f=4]",
         {"1: attribute b is ignored: write b=\"value\"", "2: attribute c is ignored: write c=\"value\"",
          "2: attribute d is ignored: write d=\"value\"", "2: attribute e is ignored: write e=\"value\""}},
        {"element without a name", "<A>< B/></A>", "A[]{[]}",
         {"1: attribute B is ignored: write B=\"value\"", "1: element without a name"}},
    };
    for (const bool lazy : {false, true}) {
        for (const auto& c : cases)
            EXPECT_EQ(parseAndCollect(c.text, lazy), std::make_pair(c.tree, c.errors)) << c.what << " lazy " << lazy;
        // Well-formed documents give the same tree in both modes and report nothing.
        for (const auto& c : kDocuments)
            EXPECT_EQ(parseAndCollect(c.text, lazy), std::make_pair(c.tree, std::vector<std::string>{}))
                << c.what << " lazy " << lazy;
    }
}

// Elements nested past the reader's depth limit are skipped whole with one
// report on the line of the first one left out; the rest of the document
// is still read, eagerly or lazily, and no nesting needs the call stack.
TEST(XmlDomTest, ElementsPastTheDepthLimitAreSkippedWithOneReportAndTheRestIsKept)
{
    const size_t limit = XmlParser::kMaxDepth;
    const std::string report = std::to_string(limit + 1) + ": elements nested deeper than " + std::to_string(limit) +
                               " levels are left out";
    // `nesting` <e> levels in <root>, one start tag per line, then `tail`.
    const auto parse = [](size_t nesting, const std::string& tail, bool lazy) {
        std::string text = "<root>\n";
        for (size_t i = 0; i < nesting; ++i)
            text += "<e a=\"1\"><!-- c --><![CDATA[<x>]]>\n";
        std::string levels;
        const auto errors = parseAndRead(text + tail, lazy, [&](XML_NODE* top) {
            size_t depth = 0;
            for (XML_NODE* e = top; e; e = node_find_first(e, "e")) ++depth;
            levels = std::to_string(depth) + (node_find_first(top, "after") ? " after" : "");
        });
        return std::make_pair(levels, errors);
    };
    std::string closes;
    for (size_t i = 0; i < limit; ++i)
        closes += "</e>";
    const std::string after = "\n<after/></root>";
    // A recursive parse of a nest as deep as the limit would need far more than this stack.
    runWithStack(256 * 1024, [&] {
        for (const bool lazy : {false, true}) {
            SCOPED_TRACE(lazy ? "lazy" : "eager");
            EXPECT_EQ(parse(limit - 1, closes.substr(4) + after, lazy),
                      std::make_pair(std::to_string(limit) + " after", std::vector<std::string>{}));
            EXPECT_EQ(parse(limit, closes + after, lazy),
                      std::make_pair(std::to_string(limit) + " after", std::vector<std::string>{report}));
            // Skipped elements that never close end the document without a crash.
            for (const std::string tail : {"<e/><e/></e>", "<e", "</e></e></e></e>", "<!-- open", "<![CDATA[ open"}) {
                const auto [levels, errors] = parse(limit + 10, tail, lazy);
                EXPECT_EQ(levels, std::to_string(limit)) << tail;
                EXPECT_FALSE(errors.empty()) << tail;
            }
        }
    });
}

TEST(XmlDomTest, ElementsKnowTheLineOfTheirStartTag)
{
    // path: null: the top element
    struct LineCase { const char* what; std::string text; const char* path; uint32_t line; };
    const std::string screen = "<Skin>\n" "  <Screen name=\"a\">\n" "    <Control/>\n" "  </Screen>\n"
                               "  <!-- a comment\n over two lines <Fake/> -->\n"
                               "  <Other a=\"1\"\n         b=\"2\"><Deep><![CDATA[\n\n]]></Deep>\n"
                               "    <Last/></Other>\n" "</Skin>\n";
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
    auto tree = Parse("\n\n<A>\n<B/></A>", true);
    node_set_doc(tree.get(), "<A><B/></A>", nullptr, true);
    EXPECT_EQ(node_line(node_find_first(tree.get(), "B")), 1u);
}

TEST(XmlDomTest, KeptRegressionInputsParseAndWalk)
{
    // Inputs that once crashed the reader, and malformed documents worth keeping.
    size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(testsupport::DataDir() / "xml" / "regressions")) {
        for (const bool lazy : {false, true})
            EXPECT_GE(xmltest::CountElements(Parse(testsupport::ReadFile(entry.path()), lazy).get()), 1u)
                << entry.path();
        ++files;
    }
    EXPECT_GE(files, 10u);
}

// Building, changing, copying and writing trees: what is written reads back
// as the same tree, in both parse modes.
TEST(XmlEditTest, WrittenTreesReadBackTheSame)
{
    const std::string skin = R"(<!DOCTYPE skin "one" "two">
<Skin version="2">
  <Control class="PanelCtrl" name="a&amp;b" tip="&lt;&quot;quoted&quot;&gt; &apos;x&apos;">
    <Control class="ButtonCtrl" name="ok" empty=""><Label>LB_OK</Label></Control>
    head<Control name="nested"/>tail &#65; &amp;amp;
  </Control>
  <Script><![CDATA[if (a < b && c) { x = "]]" + ">"; }]]></Script>
  <Template name="t">  trailing blanks kept  </Template>
</Skin>
)";
    for (const bool lazy : {false, true}) {
        const std::string text = write(Parse(skin, lazy).get());
        EXPECT_EQ(Dump(Parse(text, !lazy).get()), Dump(Parse(skin, false).get())) << text;
        EXPECT_EQ(write(Parse(text, lazy).get()), text) << "writing is stable";
        auto again = Parse(text, false);
        EXPECT_EQ(node_last_error(again.get()), nullptr) << "written text is well formed";
        EXPECT_STREQ(again->doctype ? again->doctype->second : "", "two");
    }
}

TEST(XmlEditTest, ChangedTreesReadBackWithTheirChanges)
{
    for (const bool lazy : {false, true}) {
        auto tree = Parse(R"(<Skin><A n="1">x<B/></A><C k="1"/></Skin>)", lazy);
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
        EXPECT_EQ(node_set_value(node_find_first(a, "B"), "", false), XML_OK);
        ASSERT_EQ(node_set_attribute(node_find_first(top, "C"), "K", nullptr), XML_OK);

        const std::string expected = R"(Skin[]{A[n=2,new=v]!"<raw>"{First[]B[]Last[]"a < b & "c""}C[]})";
        EXPECT_EQ(Dump(top), expected) << "lazy " << lazy;
        EXPECT_EQ(Dump(Parse(write(top), lazy).get()), expected);
        EXPECT_EQ(node_find_next(a, nullptr, node_find_first(a, "B")), added) << "indexes follow the prepend";
    }
    EXPECT_EQ(node_append_child(nullptr, "x", nullptr), XML_NULL_ARGUMENT);
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
}
