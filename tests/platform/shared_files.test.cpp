// SPDX-License-Identifier: GPL-3.0-or-later
// Files that games on several machines work on at once, where no lock holds between them.
#include "platform/files.h"

#include "support/conditions.h"
#include "support/failures.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::failureNumber;
namespace fs = std::filesystem;

struct SharedFiles : testing::Test {
    test::TemporaryFolder folder;
    Files files;

    Texte at(const Texte &name) const { return folder.path(name); }
    std::string read(const RecordFile &records) {
        std::string all;
        for (int i = 1; i <= records.count(); ++i) {
            all += records.read(i) + ' ';
        }
        return all;
    }
    void age(const std::string &name, std::chrono::minutes by) const {
        fs::last_write_time(toPath(folder.path()) + "/" + name,
                            fs::file_time_type::clock::now() - by);
    }
};

TEST_F(SharedFiles, AWorkFileHasItsNameWhereTheGameIsAlone) {
    WorkFile work(files, at(u"~TRAVAIL"));
    EXPECT_EQ(folder.list(), std::vector<std::string>{"~TRAVAIL"});
    work.write("aabbc");
    EXPECT_EQ(folder.read(u"~TRAVAIL"), "aabbc");
    EXPECT_EQ(read(work.records(2)), "aa bb ");
    work.remove();
    EXPECT_TRUE(folder.list().empty());
}

TEST_F(SharedFiles, AWorkFileThatMeetsAnotherTakesANameOfItsOwnAndLeavesTheOther) {
    folder.write(u"~TRAVAIL", "à un autre");
    fs::create_symlink("ailleurs", folder.bytePath(u"~LIEN"));
    WorkFile one(files, at(u"~TRAVAIL")), two(files, at(u"~travail")), three(files, at(u"~LIEN"));
    one.write("1");
    two.write("2");
    three.write("3");
    EXPECT_EQ(read(one.records(1)), "1 ");
    EXPECT_EQ(read(two.records(1)), "2 ");
    EXPECT_EQ(folder.list().size(), 5u);
    one.remove();
    two.remove();
    three.remove();
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"~LIEN", "~TRAVAIL"}));
    EXPECT_EQ(folder.read(u"~TRAVAIL"), "à un autre");
}

TEST_F(SharedFiles, AWorkFileThatAnotherRemovesOrReplacesIsReadToItsEnd) {
    WorkFile work(files, at(u"~TRAVAIL"));
    work.write("aabb");
    files.remove(at(u"~TRAVAIL"));
    const RecordFile records = work.records(2);
    EXPECT_EQ(read(records), "aa bb ");
    work.remove(); // nothing is there, and nothing fails
    folder.write(u"~TRAVAIL", "à un autre");
    EXPECT_EQ(read(records), "aa bb ");
    work.remove();
    EXPECT_EQ(folder.read(u"~TRAVAIL"), "à un autre");
}

TEST_F(SharedFiles, AWorkFileOfWhichAPartWasWrittenHasTheRecordsOfThatPart) {
    WorkFile work(files, at(u"~TRAVAIL"));
    {
        const test::FileSizeLimit limit(5);
        EXPECT_EQ(failureNumber([&] { work.write("aabbccdd"); }), failure::diskFull);
    }
    EXPECT_EQ(read(work.records(2)), "aa bb ");
}

TEST_F(SharedFiles, AFreeNameIsGivenAndATakenOneNever) {
    folder.write(u"a", "un");
    EXPECT_TRUE(files.moveToFreeName(at(u"A"), at(u"b")));
    EXPECT_EQ(folder.list(), std::vector<std::string>{"b"});
    folder.write(u"a", "deux");
    EXPECT_FALSE(files.moveToFreeName(at(u"a"), at(u"B")));
    EXPECT_EQ(folder.read(u"a") + folder.read(u"b"), "deuxun");
    EXPECT_EQ(failureNumber([&] { files.moveToFreeName(at(u"absent"), at(u"c")); }), 53);
    EXPECT_EQ(failureNumber([&] { files.moveToFreeName(at(u"rien/a"), at(u"c")); }), 76);
}

TEST_F(SharedFiles, WhatKilledGamesHaveLeftGoesOnceItIsAnHourOld) {
    for (const char16_t *name : {u"INI", u"INI~abcdefghij", u"ini~defghijklm", u"INI~",
                                 u"AUTRE~xxxxxxxxxx", u"XINI~yyyyyyyyyy"}) {
        folder.write(name, "x");
        age(toUtf8(name), std::chrono::minutes(61));
    }
    folder.write(u"INI~nouveau123", "x");
    age("INI~nouveau123", std::chrono::minutes(50));
    folder.makeFolder(u"INI~dossier123");
    files.removeLeftOver(folder.path(),
                         u"INI"); // a shorter addition is a backup of a person's editor
    EXPECT_EQ(folder.list(),
              (std::vector<std::string>{"AUTRE~xxxxxxxxxx", "INI", "INI~", "INI~dossier123/",
                                        "INI~nouveau123", "XINI~yyyyyyyyyy"}));
    files.removeLeftOver(at(u"absent"), u"INI");
}

} // namespace
} // namespace grimoval
