// SPDX-License-Identifier: GPL-3.0-or-later
// A settings file that a person has arranged, or that somebody means ill with: closed to writing, a
// link to another place, far too large.
#include "platform/profile.h"

#include "support/conditions.h"
#include "support/odd_files.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <unistd.h>

namespace grimoval {
namespace {

namespace fs = std::filesystem;

struct ArrangedProfile : testing::Test {
    test::TemporaryFolder folder;
    Files files;
    const Texte path = folder.path(u"GRIMOVA.INI");
    const std::string before = "[A]\r\nun=1\r\n";

    std::string name(const Texte &file) const { return folder.bytePath(file); }
    void write(const Texte &value) { writeProfile(files, path, u"A", u"un", value); }
    static unsigned permissions(const std::string &file) {
        return static_cast<unsigned>(fs::status(file).permissions());
    }
};

TEST_F(ArrangedProfile, ThatMayOnlyBeReadKeepsNothingInSilence) {
    for (const unsigned mode : {0444U, 0400U, 0555U}) {
        folder.write(u"GRIMOVA.INI", before);
        fs::permissions(name(u"GRIMOVA.INI"), fs::perms(mode));
        fs::permissions(toUtf8(folder.path()), fs::perms(0777));
        write(u"2"); // also of the administrator
        {
            const test::OrdinaryUser child;
            write(u"3");
        }
        EXPECT_EQ(folder.read(u"GRIMOVA.INI"), before);
        EXPECT_EQ(permissions(name(u"GRIMOVA.INI")), mode);
        EXPECT_EQ(toUtf8(readProfile(files, path, u"A", u"un")), "1");
        EXPECT_EQ(folder.list(), std::vector<std::string>{"GRIMOVA.INI"});
        fs::remove(name(u"GRIMOVA.INI"));
    }
}

TEST_F(ArrangedProfile, OfAnotherAccountThatMayOnlyBeReadKeepsNothing) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "nobody else's file can be made here";
    }
    folder.write(u"GRIMOVA.INI", before); // the administrator's, 0644
    fs::permissions(toUtf8(folder.path()), fs::perms(0777));
    const test::OrdinaryUser child;
    write(u"2");
    EXPECT_EQ(folder.read(u"GRIMOVA.INI"), before);
}

TEST_F(ArrangedProfile, KeepsItsPermissions) {
    for (const unsigned mode : {0600U, 0640U, 0666U}) {
        folder.write(u"GRIMOVA.INI", before);
        fs::permissions(name(u"GRIMOVA.INI"), fs::perms(mode));
        write(u"2");
        EXPECT_EQ(folder.read(u"GRIMOVA.INI"), "[A]\r\nun=2\r\n");
        EXPECT_EQ(permissions(name(u"GRIMOVA.INI")), mode);
    }
}

TEST_F(ArrangedProfile, BehindLinksIsWrittenWhereItLiesAndTheLinksStay) {
    folder.write(u"ailleurs/reglages", before);
    fs::create_symlink("ailleurs/reglages", name(u"un"));
    fs::create_symlink(name(u"un"), name(u"GRIMOVA.INI"));
    write(u"2");
    EXPECT_EQ(folder.read(u"ailleurs/reglages"), "[A]\r\nun=2\r\n");
    EXPECT_EQ(fs::read_symlink(name(u"GRIMOVA.INI")), name(u"un"));
    EXPECT_EQ(fs::read_symlink(name(u"un")), "ailleurs/reglages");
    EXPECT_EQ(folder.list(),
              (std::vector<std::string>{"GRIMOVA.INI", "ailleurs/", "ailleurs/reglages", "un"}));
}

TEST_F(ArrangedProfile, BehindALinkIsMadeWhereItIsStillMissing) {
    folder.makeFolder(u"ailleurs");
    fs::create_symlink("ailleurs/reglages", name(u"GRIMOVA.INI"));
    write(u"2");
    EXPECT_EQ(folder.read(u"ailleurs/reglages"), "[A]\r\nun=2\r\n");
    EXPECT_TRUE(fs::is_symlink(name(u"GRIMOVA.INI")));
}

TEST_F(ArrangedProfile, BehindALinkToWhatIsNoFileOrClosedChangesNothing) {
    folder.write(u"ferme", before);
    fs::permissions(name(u"ferme"), fs::perms(0444));
    for (const test::OddFile &odd : test::oddFiles()) {
        SCOPED_TRACE(odd.name);
        test::put(odd, folder, u"chose");
        fs::remove(name(u"GRIMOVA.INI"));
        fs::create_symlink("chose", name(u"GRIMOVA.INI"));
        const auto type = fs::symlink_status(name(u"chose")).type();
        const test::Deadline deadline(10);
        write(u"2");
        EXPECT_TRUE(fs::is_symlink(name(u"GRIMOVA.INI")));
        EXPECT_EQ(fs::symlink_status(name(u"chose")).type(), type);
    }
    fs::remove(name(u"GRIMOVA.INI"));
    fs::create_symlink("ferme", name(u"GRIMOVA.INI"));
    write(u"2");
    EXPECT_EQ(folder.read(u"ferme"), before);
}

TEST_F(ArrangedProfile, OfMoreThanAMebibyteReadsAsNothingAndStaysAsItIs) {
    std::string content = before + std::string(1 << 20, ';');
    content.resize(1 << 20);
    folder.write(u"GRIMOVA.INI", content);
    write(u"2");
    EXPECT_EQ(toUtf8(readProfile(files, path, u"A", u"un")), "2");
    content += ";";
    folder.write(u"GRIMOVA.INI", content);
    EXPECT_EQ(toUtf8(readProfile(files, path, u"A", u"un")), "");
    write(u"3");
    EXPECT_EQ(folder.read(u"GRIMOVA.INI"), content);
}

// What takes the longest: line ends, heads, entries, one line. Twenty readings in five seconds,
// with much time to spare.
TEST_F(ArrangedProfile, OfManyLinesTakesNoTime) {
    const std::size_t most = 1 << 20;
    std::string heads, keys = "[A]\n";
    while (heads.size() < most - 10) {
        heads += "[B]\n";
        keys += "=\n";
    }
    for (const std::string &content :
         {std::string(most, '\n'), heads, keys, "[A]\n" + std::string(most - 9, 'x')}) {
        folder.write(u"GRIMOVA.INI", content);
        const test::Deadline deadline(60);
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < 20; ++i) {
            readProfile(files, path, u"A", u"un");
        }
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        EXPECT_LT(taken.count(), 5.0) << content.substr(0, 10);
    }
    folder.write(u"GRIMOVA.INI", std::string(20 << 20, '\n'));
    const test::Deadline deadline(10);
    EXPECT_EQ(toUtf8(readProfile(files, path, u"A", u"un")), "");
    write(u"2");
    EXPECT_EQ(files.length(path), 20 << 20);
}

} // namespace
} // namespace grimoval
