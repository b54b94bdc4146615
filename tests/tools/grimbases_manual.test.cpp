// SPDX-License-Identifier: GPL-3.0-or-later
// The manual pages: well-formed, and of the program that there is.
#include "platform/files.h"
#include "support/process.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace grimoval::test::grimbases_manual {

const std::string pages = GRIMOVAL_SOURCES "/packaging/man/";

TEST(ManualPages, AreWellFormed) {
    const std::string groff = "/usr/bin/groff";
    if (!std::filesystem::exists(groff)) {
        GTEST_SKIP() << "groff (Debian: groff-base) is missing";
    }
    int count = 0;
    for (const auto &page : std::filesystem::directory_iterator(pages)) {
        ++count;
        const Answer answer =
            run({groff, "-K", "utf8", "-man", "-T", "utf8", "-ww", "-z", page.path().string()});
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.errors, "");
    }
    EXPECT_GE(count, 1);
}

TEST(ManualPages, OfGrimbasesTellsEveryCommand) {
    Files files;
    const std::string page = files.read(fromUtf8(pages + "grimbases.1"));
    const std::string help = run({GRIMBASES, "--aide"}).output;
    int count = 0;
    const std::string mark = "\n  grimbases ";
    for (auto place = help.find(mark); place != std::string::npos;
         place = help.find(mark, place + 1)) {
        const auto start = place + mark.size();
        const std::string command = help.substr(start, help.find(' ', start) - start);
        if (command.front() != '[') {
            ++count;
            EXPECT_NE(page.find("\n.TP\n.B " + command + "\n"), std::string::npos) << command;
            EXPECT_NE(page.find("\n.SY grimbases\n.B " + command + "\n"), std::string::npos)
                << command;
        }
    }
    EXPECT_GE(count, 7);
}

} // namespace grimoval::test::grimbases_manual
