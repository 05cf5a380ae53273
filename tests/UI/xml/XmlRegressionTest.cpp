// Replays every input kept under tests/data/xml/regressions (inputs that
// once crashed the reader, and malformed documents worth keeping) through
// both parse modes and a full walk.
#include "TestSupport.h"
#include "XmlTestTree.h"

#include "xml/XmlDom.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

TEST(XmlRegressionTest, KeptInputsParseAndWalk)
{
    const auto folder = testsupport::DataDir() / "xml" / "regressions";
    size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string bytes = testsupport::ReadFile(entry.path());
        for (const bool lazy : {false, true}) {
            UIKit::XML_NODE* top = nullptr;
            ASSERT_EQ(UIKit::node_create(&top, "root", nullptr), UIKit::XML_OK);
            xmltest::Tree tree(top);
            EXPECT_EQ(UIKit::node_set_doc_n(top, bytes.data(), bytes.size(), nullptr, lazy), UIKit::XML_OK);
            EXPECT_GE(xmltest::CountElements(top), 1u) << entry.path();
            EXPECT_EQ(UIKit::node_set_doc(top, bytes.c_str(), nullptr, lazy), UIKit::XML_OK);
            EXPECT_GE(xmltest::CountElements(top), 1u) << entry.path();
        }
        ++files;
    }
    EXPECT_GE(files, 10u);
}
