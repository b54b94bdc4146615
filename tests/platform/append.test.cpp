// SPDX-License-Identifier: GPL-3.0-or-later
// Files that only grow.
#include "platform/files.h"

#include "support/conditions.h"
#include "support/failures.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::failureNumber;

struct AppendTest : testing::Test {
    test::TemporaryFolder folder;
    Files files;

    Texte at(const Texte &name) const { return folder.path(name); }
    int opening(const Texte &path) {
        return failureNumber([&] { AppendFile file(files, path); });
    }
};

TEST_F(AppendTest, CreatesAMissingFileAndWritesInOrder) {
    {
        AppendFile file(files, at(u"score"));
        EXPECT_EQ(folder.read(u"score"), "");
        file.write("un");
        file.write("");
        file.write(std::string("\0deux", 5));
        file.flush();
        EXPECT_EQ(folder.read(u"score"), std::string("un\0deux", 7));
    }
    EXPECT_EQ(folder.read(u"score"), std::string("un\0deux", 7));
}

TEST_F(AppendTest, WritesBehindWhatIsThereUnderAnyCase) {
    folder.write(u"Score.Dat", "ancien ");
    AppendFile(files, at(u"SCORE.DAT")).write("neuf");
    EXPECT_EQ(folder.read(u"Score.Dat"), "ancien neuf");
    EXPECT_EQ(folder.list(), std::vector<std::string>{"Score.Dat"});
}

TEST_F(AppendTest, WritesBehindWhatAnotherHasAddedMeanwhile) {
    AppendFile file(files, at(u"score"));
    file.write("a");
    AppendFile(files, at(u"score")).write("b");
    file.write("c");
    EXPECT_EQ(folder.read(u"score"), "abc");
}

TEST_F(AppendTest, FailsToOpenWhereThereCanBeNoFile) {
    folder.makeFolder(u"dossier");
    folder.write(u"fichier", "x");
    EXPECT_EQ(opening(at(u"absent/score")), failure::pathNotFound);
    EXPECT_EQ(opening(at(u"fichier/score")), failure::pathNotFound);
    EXPECT_EQ(opening(at(u"dossier")), failure::pathAccess);
    EXPECT_EQ(opening(at(Texte(300, u'a'))), failure::badFileNameOrNumber);
    EXPECT_EQ(opening(u""), failure::badFileNameOrNumber);
}

TEST_F(AppendTest, FailsToOpenWhatMayNotBeWritten) {
    folder.write(u"score", "ancien");
    std::filesystem::permissions(folder.bytePath(u"score"), std::filesystem::perms(0444));
    const test::OrdinaryUser user;
    EXPECT_EQ(opening(at(u"score")), failure::permissionDenied);
    EXPECT_EQ(folder.read(u"score"), "ancien");
}

TEST_F(AppendTest, AFullDiskIs61AndKeepsWhatWasThere) {
    folder.write(u"score", std::string(1000, 'a'));
    AppendFile file(files, at(u"score"));
    const test::FileSizeLimit limit(1000);
    EXPECT_EQ(failureNumber([&] { file.write("b"); }), failure::diskFull);
    EXPECT_EQ(folder.read(u"score"), std::string(1000, 'a'));
}

} // namespace
} // namespace grimoval
