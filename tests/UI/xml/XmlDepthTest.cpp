// Elements nested past the reader's depth limit are skipped whole with one
// reported problem on the line of the first one left out; the rest of the
// document is still read, eagerly or lazily.
#include "xml/XmlDom.h"
#include "xml/XmlParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace UIKit;

namespace {

// `depth` nested <e> elements, one start tag per line, inside <root>, with
// an <after/> sibling following the nest.
std::string nested(size_t depth)
{
    std::string text = "<root>\n";
    for (size_t i = 0; i < depth; ++i)
        text += "<e a=\"1\"><!-- c --><![CDATA[<x>]]>\n";
    for (size_t i = 0; i < depth; ++i)
        text += "</e>";
    return text + "\n<after/></root>";
}

struct Parsed {
    size_t depth = 0;   // levels of the tree, <root> being level 1
    bool after = false; // the sibling after the nest was read
    std::vector<std::string> errors;
};

void collect(const XML_ERROR& error, void* context)
{
    static_cast<Parsed*>(context)->errors.push_back(std::string(error.file ? error.file : "") + ":" +
                                                   std::to_string(error.line) + ": " + error.cause);
}

Parsed parse(const std::string& text, bool lazy)
{
    Parsed parsed;
    XML_NODE* root = nullptr;
    node_create(&root, "root", nullptr);
    node_set_doc_name(root, "deep.xml");
    node_set_error_handler(root, collect, &parsed);
    EXPECT_FALSE(XML_FAILED(node_set_doc_n(root, text.data(), text.size(), nullptr, lazy)));
    parsed.after = node_find_first(root, "after") != nullptr;
    for (XML_NODE* e = root; e; e = node_find_first(e, "e"))
        ++parsed.depth;
    node_destroy(root);
    return parsed;
}

} // namespace

TEST(XmlDepthTest, ElementsPastTheLimitAreSkippedWithOneErrorAndTheRestIsKept)
{
    const size_t limit = XmlParser::kMaxDepth;
    const std::string report = "deep.xml:" + std::to_string(limit + 1) + ": elements nested deeper than " +
                               std::to_string(limit) + " levels are left out";
    struct Case {
        size_t nesting; // <e> levels below <root>
        size_t depth;   // levels kept
        bool reported;
    };
    const Case cases[] = {
        {limit - 1, limit, false}, // exactly at the limit: everything kept
        {limit, limit, true},
    };
    for (const bool lazy : {false, true})
        for (const Case& c : cases) {
            const Parsed parsed = parse(nested(c.nesting), lazy);
            SCOPED_TRACE("nesting " + std::to_string(c.nesting) + (lazy ? " lazy" : " eager"));
            EXPECT_EQ(parsed.depth, c.depth);
            EXPECT_TRUE(parsed.after);
            if (c.reported)
                EXPECT_EQ(parsed.errors, std::vector<std::string>{report});
            else
                EXPECT_TRUE(parsed.errors.empty()) << parsed.errors.front();
        }
}

TEST(XmlDepthTest, SkippedElementsThatNeverCloseEndTheDocumentWithoutACrash)
{
    // Unbalanced, self-closing and unfinished tags inside the skipped part.
    const std::string tails[] = {"", "<e/><e/></e>", "<e", "</e></e></e></e>", "<!-- open", "<![CDATA[ open"};
    for (const std::string& tail : tails) {
        std::string text = "<root>";
        for (size_t i = 0; i < XmlParser::kMaxDepth + 10; ++i)
            text += "<e>";
        text += tail;
        for (const bool lazy : {false, true}) {
            const Parsed parsed = parse(text, lazy);
            EXPECT_EQ(parsed.depth, XmlParser::kMaxDepth) << tail;
            EXPECT_FALSE(parsed.errors.empty()) << tail;
        }
    }
}
