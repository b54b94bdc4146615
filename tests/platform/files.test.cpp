// SPDX-License-Identifier: GPL-3.0-or-later
// What each operation on whole files and folders does, and how it fails in an ordinary folder.
#include "platform/files.h"

#include "support/conditions.h"
#include "support/failures.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace grimoval {
namespace {

using test::failureNumber;

struct FilesTest : testing::Test {
    test::TemporaryFolder folder;
    Files files;

    Texte at(const Texte &name) const { return folder.path(name); }

    // The failure of each operation that reads or writes a file of this path, in one order: read,
    // length, lastWrite, remove, copy from, copy to, replace.
    std::vector<int> failures(const Texte &path) {
        folder.write(u"source", "source");
        return {
            failureNumber([&] { files.read(path); }),
            failureNumber([&] { files.length(path); }),
            failureNumber([&] { files.lastWrite(path); }),
            failureNumber([&] { files.remove(path); }),
            failureNumber([&] { files.copy(path, at(u"copie")); }),
            failureNumber([&] { files.copy(at(u"source"), path); }),
            failureNumber([&] { files.replace(path, "x"); }),
        };
    }
};

TEST_F(FilesTest, ReadsAWholeFileByteForByte) {
    std::string bytes;
    for (int i = 0; i < 200'000; ++i) {
        bytes += static_cast<char>(i * 7 % 256);
    }
    folder.write(u"gros", bytes);
    folder.write(u"vide", "");
    EXPECT_EQ(files.read(at(u"gros")), bytes);
    EXPECT_EQ(files.read(at(u"vide")), "");
    EXPECT_EQ(files.length(at(u"gros")), 200'000);
    EXPECT_EQ(files.length(at(u"vide")), 0);
}

TEST_F(FilesTest, TellsFilesAndFoldersThatExist) {
    folder.write(u"fichier", "x");
    folder.makeFolder(u"dossier");
    EXPECT_TRUE(files.exists(at(u"fichier")));
    EXPECT_FALSE(files.exists(at(u"absent")));
    EXPECT_TRUE(files.folderExists(at(u"dossier")));
    EXPECT_TRUE(files.folderExists(at(u"dossier/")));
    EXPECT_FALSE(files.folderExists(at(u"fichier")));
    EXPECT_FALSE(files.folderExists(at(u"absent")));
}

TEST_F(FilesTest, MakesOneLevelOfFolders) {
    files.makeFolder(at(u"un"));
    files.makeFolder(at(u"un/deux/"));
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"un/", "un/deux/"}));
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"a/b")); }), failure::pathNotFound);
    EXPECT_FALSE(folder.exists(u"a"));
}

TEST_F(FilesTest, AFolderCannotBeMadeWhereSomethingStands) {
    folder.write(u"fichier", "x");
    folder.makeFolder(u"dossier");
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"dossier")); }), failure::pathAccess);
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"fichier")); }), failure::pathAccess);
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"fichier/x")); }), failure::pathNotFound);
}

TEST_F(FilesTest, TellsTheTimeOfTheLastWriteInLocalTimeSummerAndWinter) {
    const test::ParisTime paris;
    folder.write(u"fichier", "x");
    const auto written = [&](std::time_t seconds) {
        const timespec times[2] = {{seconds, 0}, {seconds, 999'999'999}};
        EXPECT_EQ(::utimensat(AT_FDCWD, folder.bytePath(u"fichier").c_str(), times, 0), 0);
        return files.lastWrite(at(u"fichier"));
    };
    EXPECT_EQ(written(1'720'951'509), (DateTime{2024, 7, 14, 12, 5, 9}));
    EXPECT_EQ(written(1'704'063'599), (DateTime{2023, 12, 31, 23, 59, 59}));
    EXPECT_EQ(written(1'704'063'600), (DateTime{2024, 1, 1, 0, 0, 0}));
}

TEST_F(FilesTest, RemovesAFileAndLeavesTheOthers) {
    folder.write(u"a", "x");
    folder.write(u"b", "y");
    files.remove(at(u"a"));
    EXPECT_EQ(folder.list(), std::vector<std::string>{"b"});
}

TEST_F(FilesTest, CopiesAndReplacesTheTarget) {
    folder.write(u"de", std::string("\0\xFF texte", 8));
    folder.write(u"vers", "un contenu plus long");
    files.copy(at(u"de"), at(u"vers"));
    EXPECT_EQ(folder.read(u"vers"), std::string("\0\xFF texte", 8));
    EXPECT_EQ(folder.read(u"de"), std::string("\0\xFF texte", 8));
    files.copy(at(u"de"), at(u"nouveau"));
    EXPECT_EQ(folder.read(u"nouveau"), folder.read(u"de"));
}

TEST_F(FilesTest, ACopyOntoItselfKeepsTheFile) {
    folder.write(u"a", "contenu");
    files.copy(at(u"a"), at(u"a"));
    EXPECT_EQ(folder.read(u"a"), "contenu");
}

TEST_F(FilesTest, ReplacesAWholeContentAndLeavesNothingBeside) {
    files.replace(at(u"a"), "premier contenu");
    files.replace(at(u"a"), "second");
    EXPECT_EQ(folder.read(u"a"), "second");
    EXPECT_EQ(folder.list(), std::vector<std::string>{"a"});
}

TEST_F(FilesTest, AMissingFileIs53AndAMissingFolderIs76) {
    EXPECT_EQ(failures(at(u"absent")), (std::vector<int>{53, 53, 53, 53, 53, 0, 0}));
    EXPECT_EQ(failures(at(u"absente/fichier")), (std::vector<int>(7, 76)));
}

TEST_F(FilesTest, AFileInAFoldersPlaceIs76) {
    folder.write(u"fichier", "x");
    EXPECT_EQ(failures(at(u"fichier/dedans")), (std::vector<int>(7, 76)));
}

TEST_F(FilesTest, AFolderInAFilesPlaceIs75AndStays) {
    folder.makeFolder(u"dossier");
    folder.write(u"dossier/dedans", "x");
    const Texte path = at(u"dossier");
    EXPECT_EQ(failureNumber([&] { files.read(path); }), 75);
    EXPECT_EQ(failureNumber([&] { files.remove(path); }), 75);
    EXPECT_EQ(failureNumber([&] { files.copy(path, at(u"copie")); }), 75);
    EXPECT_EQ(failureNumber([&] { files.replace(path, "x"); }), 75);
    folder.write(u"source", "x");
    EXPECT_EQ(failureNumber([&] { files.copy(at(u"source"), path); }), 75);
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"dossier/", "dossier/dedans", "source"}));
}

TEST_F(FilesTest, ANameThatNoSystemTakesIs52) {
    const Texte longName(300, u'a');
    EXPECT_EQ(failures(at(longName)), (std::vector<int>(7, 52)));
    EXPECT_EQ(failures(at(u"saut\nde ligne")), (std::vector<int>(7, 52)));
    EXPECT_EQ(failures(at(Texte(u"a\0b", 3))), (std::vector<int>(7, 52)));
    EXPECT_EQ(failures(u""), (std::vector<int>(7, 52)));
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(longName)); }), 52);
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"a\tb")); }), 52);
}

TEST_F(FilesTest, LinksThatTurnInARingAre76) {
    std::filesystem::create_symlink("anneau", folder.bytePath(u"anneau"));
    EXPECT_EQ(failureNumber([&] { files.read(at(u"anneau")); }), 76);
    EXPECT_EQ(failureNumber([&] { files.length(at(u"anneau")); }), 76);
    EXPECT_FALSE(files.exists(at(u"anneau")));
}

TEST_F(FilesTest, APipeInAFilesPlaceFailsAndKeepsNobodyWaiting) {
    const test::Deadline deadline(10);
    ASSERT_EQ(::mkfifo(folder.bytePath(u"tube").c_str(), 0666), 0);
    folder.write(u"source", "x");
    EXPECT_EQ(failureNumber([&] { files.read(at(u"tube")); }), failure::pathAccess);
    EXPECT_EQ(failureNumber([&] { files.copy(at(u"tube"), at(u"copie")); }), failure::pathAccess);
    EXPECT_EQ(failureNumber([&] { files.copy(at(u"source"), at(u"tube")); }),
              failure::deviceUnavailable);
    EXPECT_EQ(failureNumber([&] { RecordFile(files, at(u"tube"), 84); }), failure::pathAccess);
    EXPECT_EQ(files.list(at(u""), u"*"), std::vector<Texte>{u"source"});
}

TEST_F(FilesTest, AFileThatTheDiskCannotReadIs57) {
    if (!std::filesystem::exists("/proc/self/mem")) {
        GTEST_SKIP() << "this system has no file whose first byte cannot be read";
    }
    EXPECT_EQ(failureNumber([&] { files.read(u"/proc/self/mem"); }), failure::deviceError);
}

TEST_F(FilesTest, AFileTooLargeToBeOneOfOursIs7) {
    folder.write(u"enorme", "");
    ASSERT_EQ(::truncate(folder.bytePath(u"enorme").c_str(), 80 << 20), 0);
    EXPECT_EQ(failureNumber([&] { files.read(at(u"enorme")); }), failure::outOfMemory);
    EXPECT_EQ(files.length(at(u"enorme")), 80 << 20);
}

TEST_F(FilesTest, AMovedFileTakesThePlaceOfAnotherUnderAnyCase) {
    folder.write(u"Ancien", "neuf");
    folder.write(u"Autre", "vieux");
    files.move(at(u"ANCIEN"), at(u"AUTRE"));
    EXPECT_EQ(folder.list(), std::vector<std::string>{"Autre"});
    EXPECT_EQ(folder.read(u"Autre"), "neuf");
    EXPECT_EQ(failureNumber([&] { files.move(at(u"absent"), at(u"Autre")); }), 53);
    EXPECT_EQ(failureNumber([&] { files.move(at(u"rien/absent"), at(u"Autre")); }), 76);
    folder.makeFolder(u"dossier");
    EXPECT_EQ(failureNumber([&] { files.move(at(u"Autre"), at(u"dossier")); }), 75);
    EXPECT_EQ(folder.read(u"Autre"), "neuf");
}

} // namespace
} // namespace grimoval
