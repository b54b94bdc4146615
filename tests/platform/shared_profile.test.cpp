// SPDX-License-Identifier: GPL-3.0-or-later
// Several games on one account write one settings file: what is read is always a whole file.
#include "platform/profile.h"

#include "support/conditions.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grimoval {
namespace {

TEST(SharedProfile, IsAlwaysOneWholeFileWhileSeveralWriteIt) {
    const test::TemporaryFolder folder;
    const Texte path = folder.path(u"GRIMOVA.INI");
    const auto content = [](int value) {
        return "[Jeu]\r\nA=" + std::to_string(value) + "\r\n" + std::string(5000, ';') +
               "\r\nZ=1\r\n";
    };
    folder.write(u"GRIMOVA.INI", content(0));
    int gate[2]; // they write as long as it is open
    ASSERT_EQ(::pipe2(gate, O_NONBLOCK), 0);
    std::vector<pid_t> writers;
    for (int writer = 1; writer <= 4; ++writer) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Files files;
            char none = 0;
            ::close(gate[1]);
            while (::read(gate[0], &none, 1) != 0) {
                writeProfile(files, path, u"Jeu", u"A", decimal(writer));
            }
            ::_exit(0);
        }
        writers.push_back(child);
    }
    Files files;
    const test::Deadline deadline(30);
    std::string before;
    for (int changes = 0; changes < 30 && !HasFailure();) {
        const std::string now = files.read(path);
        changes += now != before ? 1 : 0;
        before = now;
        EXPECT_TRUE(now.size() == content(0).size() && now.ends_with("Z=1\r\n")) << now.size();
        EXPECT_EQ(readProfile(files, path, u"Jeu", u"A").size(), 1u);
        EXPECT_EQ(toUtf8(readProfile(files, path, u"Jeu", u"Z")), "1");
    }
    ::close(gate[0]);
    ::close(gate[1]);
    for (const pid_t writer : writers) {
        ::waitpid(writer, nullptr, 0);
    }
    EXPECT_EQ(folder.list(), std::vector<std::string>{"GRIMOVA.INI"});
}

TEST(SharedProfile, IsWrittenWhereOthersHaveLeftWhatTheyWrote) {
    const test::TemporaryFolder folder;
    Files files;
    for (const char16_t *rest : {u"GRIMOVA.INI~", u"GRIMOVA.INI~4711"}) {
        folder.write(rest, "[Je");
    }
    writeProfile(files, folder.path(u"GRIMOVA.INI"), u"Jeu", u"A", u"1");
    EXPECT_EQ(folder.read(u"GRIMOVA.INI"), "[Jeu]\r\nA=1\r\n");
    EXPECT_EQ(folder.read(u"GRIMOVA.INI~"), "[Je"); // it may be in use
    EXPECT_EQ(folder.read(u"GRIMOVA.INI~4711"), "[Je");
    EXPECT_EQ(folder.list().size(), 3u);
}

} // namespace
} // namespace grimoval
