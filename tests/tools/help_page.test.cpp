// SPDX-License-Identifier: GPL-3.0-or-later
// What of a page of the help goes to the toolkit, and that our own pages lose nothing by it.
#include "tools/aide/page.h"

#include "platform/files.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <regex>

namespace grimoval::test::help_page {

std::string plain(const std::string &html) {
    HelpFile help;
    help.pages["jeu"] = {};
    help.images["A.png"] = "";
    return plainPage(help, html);
}

TEST(HelpPage, KeepsTagsThatAreKnownAndWhatIsInTheHelpFile) {
    struct Row {
        std::string html, shown;
    };
    for (const Row &row : {
             Row{"<p>é &eacute; &#233; &amp; <b>a</b><br>b</p>",
                 "<p>é &eacute; &#233; &amp; <b>a</b><br>b</p>"},
             Row{"<a href=\"JEU.html#x\">a</a>", "<a href=\"aide:/jeu\">a</a>"},
             Row{"<img src=\"A.png\" style=\"vertical-align: middle\" alt=\"flèche\">",
                 "<img src=\"aide:/A.png\" style=\"vertical-align: middle\" alt=\"flèche\">"},
             Row{"<table border=\"1\" cellpadding=\"4\"><tr><td "
                 "valign=\"middle\">a</td></tr></table>",
                 "<table border=\"1\" cellpadding=\"4\"><tr><td "
                 "valign=\"middle\">a</td></tr></table>"},
             Row{"<UL><LI>a</LI></UL>", "<ul><li>a</li></ul>"},
         }) {
        EXPECT_EQ(plain(row.html), row.shown);
    }
}

TEST(HelpPage, LeavesOutWhatLeadsOutsideAndWhatIsNotKnown) {
    struct Row {
        std::string html, shown;
    };
    for (const Row &row : {
             Row{"<a href=\"http://x/\">a</a>", "<a>a</a>"},
             Row{"<a href=\"../jeu.html\">a</a>", "<a>a</a>"},
             Row{"<img src=\"../A.png\" alt=\"a<b\">", "a&lt;b"},
             Row{"<img src=\"/etc/x.png\">", ""},
             Row{"<style>@import \"x\";</style>a<link href=\"x\"><script>b</script>", "a"},
             Row{"<p style=\"background:url(x)\" title=\"<img src=x>\">a", "<p>\"&gt;a</p>"},
             Row{"<body background=\"x\"><iframe src=\"x\">a", "a"},
             Row{"<td colspan=\"9\">a<li>b", "ab"},
             Row{"<table width=\"9\" border=\"99\"><tr><td colspan=\"9\">a",
                 "<table><tr><td>a</td></tr></table>"},
             Row{"<table><tr><td><table><tr><td>a</td></tr></table>b",
                 "<table><tr><td>a</td></tr></table>b"},
             Row{"a & b &x > \x01<", "a &amp; b &amp;x &gt; "},
             Row{"<b><i>a</b>c</i>", "<b><i>a</i></b>c"},
             Row{"<!-- <b> -->a<!-- ", "a"},
         }) {
        EXPECT_EQ(plain(row.html), row.shown) << row.html;
    }
}

TEST(HelpPage, HasBoundsOfDepthAndOfTags) {
    std::string deep, wide;
    for (int i = 0; i < 5000; ++i) {
        deep += "<b>";
        wide += "<br>";
    }
    EXPECT_EQ(plain(deep).size(), deepestTag * 7);
    EXPECT_EQ(plain(wide).size(), mostTags * 4);
}

// A page written with another tag would lose it without a word.
TEST(HelpPage, OfOurOwnLosesNoTagNoLinkAndNoPicture) {
    namespace fs = std::filesystem;
    Files files;
    HelpFile help;
    const fs::path folder = GRIMOVAL_SOURCES "/assets/aide";
    const std::regex source("src=\"([^\"]*)\"");
    for (const auto &file : fs::directory_iterator(folder)) {
        const std::string html = files.read(fromUtf8(file.path().string()));
        help.pages[file.path().stem().string()].html = html;
        for (std::sregex_iterator found(html.begin(), html.end(), source), end; found != end;
             ++found) {
            help.images[(*found)[1]] = "";
        }
    }
    ASSERT_GE(help.pages.size(), 20u);
    // All but what stands around the page.
    const std::regex tag("</?(?!html|head|meta|title|body)[a-z][a-z0-9]*");
    const auto tags = [&](const std::string &html) {
        std::vector<std::string> all;
        for (std::sregex_iterator found(html.begin(), html.end(), tag), end; found != end;
             ++found) {
            all.push_back(found->str());
        }
        return all;
    };
    for (const auto &[name, page] : help.pages) {
        const std::string shown = plainPage(help, page.html);
        EXPECT_EQ(tags(shown), tags(page.html)) << name;
        EXPECT_EQ(shown.find("<a>"), std::string::npos) << name;
        EXPECT_LE(page.html.size(), HelpFile::largestPage / 4) << name;
    }
}

} // namespace grimoval::test::help_page
