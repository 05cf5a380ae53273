// The tour's index page: every PNG of the folder, the tour's shots first in
// the order taken, then the others by name; nothing else listed.
#include "TestSupport.h"
#include "TourSupport.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

TEST(ScreenshotIndex, ListsEveryPngInTourOrderThenByName)
{
    const struct {
        std::vector<std::string> files, order, listed;
    } cases[] = {
        {{"z.png", "pin.png", "a.png", "notes.txt"}, {"pin.png", "gone.png"}, {"pin.png", "a.png", "z.png"}},
        {{"a&b.png"}, {}, {"a&amp;b.png"}},
    };
    for (const auto& c : cases) {
        testsupport::TempDir dir;
        for (const std::string& file : c.files)
            dir.Write(file, "");
        const std::vector<wxString> order(c.order.begin(), c.order.end());
        ASSERT_TRUE(host::WriteScreenshotIndex(wxString::FromUTF8(dir.Str()), order));
        std::stringstream page;
        page << std::ifstream(dir.Path() / "index.html").rdbuf();
        const std::string html = page.str();
        std::vector<std::string> listed;
        const std::regex caption("<figcaption>([^<]*)</figcaption>");
        for (auto it = std::sregex_iterator(html.begin(), html.end(), caption); it != std::sregex_iterator(); ++it)
            listed.push_back((*it)[1]);
        EXPECT_EQ(listed, c.listed);
    }
}
