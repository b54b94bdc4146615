// SPDX-License-Identifier: GPL-3.0-or-later
// Names: case-blind, patterns, and what a name inside a folder may be.
#include "platform/files.h"

#include "support/failures.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace grimoval {
namespace {

using test::failureNumber;

struct FileNamesTest : testing::Test {
    test::TemporaryFolder folder;
    Files files;

    Texte at(const Texte &name) const { return folder.path(name); }
};

TEST_F(FileNamesTest, AnyCaseNamesTheFileForEveryOperation) {
    folder.write(u"Animaux.Dbs", "aaaabbbb");
    EXPECT_TRUE(files.exists(at(u"ANIMAUX.DBS")));
    EXPECT_EQ(files.read(at(u"animaux.dbs")), "aaaabbbb");
    EXPECT_EQ(files.length(at(u"animaux.DBS")), 8);
    EXPECT_EQ(files.lastWrite(at(u"ANIMAUX.dbs")), files.lastWrite(at(u"Animaux.Dbs")));
    EXPECT_EQ(RecordFile(files, at(u"ANIMAUX.DBS"), 4).count(), 2);
    files.copy(at(u"ANIMAUX.DBS"), at(u"copie"));
    EXPECT_EQ(folder.read(u"copie"), "aaaabbbb");
    files.copy(at(u"copie"), at(u"aNIMAUX.dBS"));
    files.replace(at(u"animaux.DBS"), "neuf");
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"Animaux.Dbs", "copie"}));
    EXPECT_EQ(folder.read(u"Animaux.Dbs"), "neuf");
    files.remove(at(u"ANIMAUX.DBS"));
    EXPECT_EQ(folder.list(), std::vector<std::string>{"copie"});
}

TEST_F(FileNamesTest, FoldersOnTheWayAreCaseBlindToo) {
    folder.write(u"Mask/Thèmes/Été.Dbs", "x");
    EXPECT_EQ(files.read(at(u"MASK/THÈMES/ÉTÉ.DBS")), "x");
    EXPECT_TRUE(files.folderExists(at(u"mask/thèmes/")));
    EXPECT_EQ(files.list(at(u"mask/THÈMES"), u"*.DBS"), std::vector<Texte>{u"Été.Dbs"});
    files.replace(at(u"mask/thèmes/nouveau"), "y");
    EXPECT_TRUE(folder.exists(u"Mask/Thèmes/nouveau"));
}

TEST_F(FileNamesTest, AFolderIsMadeInsideTheOneThatIsMeantAndNotTwice) {
    folder.makeFolder(u"Scores");
    files.makeFolder(at(u"SCORES/2026"));
    EXPECT_TRUE(folder.exists(u"Scores/2026"));
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"scores")); }), failure::pathAccess);
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"Scores/", "Scores/2026/"}));
}

TEST_F(FileNamesTest, AnAccentIsNoCase) {
    folder.write(u"été", "x");
    EXPECT_FALSE(files.exists(at(u"ete")));
    EXPECT_FALSE(files.exists(at(u"ETE")));
    EXPECT_TRUE(files.exists(at(u"ÉTÉ")));
}

TEST_F(FileNamesTest, TheExactNameWinsOverAnotherCase) {
    folder.write(u"base", "petite");
    folder.write(u"BASE", "grande");
    EXPECT_EQ(files.read(at(u"base")), "petite");
    EXPECT_EQ(files.read(at(u"BASE")), "grande");
    EXPECT_EQ(files.read(at(u"Base")), "grande") << "of two the first in order of the bytes";
}

TEST_F(FileNamesTest, AFileMadeAfterAFirstLookIsFound) {
    folder.write(u"a", "x");
    EXPECT_FALSE(files.exists(at(u"NOUVEAU")));
    folder.write(u"nouveau", "y");
    EXPECT_TRUE(files.exists(at(u"NOUVEAU")));
    folder.write(u"autre", "z");
    EXPECT_EQ(files.read(at(u"AUTRE")), "z");
}

TEST_F(FileNamesTest, AFileDeletedAndMadeAgainUnderAnotherCaseIsFound) {
    folder.write(u"Base.dbs", "1");
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "1");
    std::filesystem::remove(folder.bytePath(u"Base.dbs"));
    EXPECT_FALSE(files.exists(at(u"BASE.DBS")));
    folder.write(u"bASE.dbs", "2");
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "2");
    std::filesystem::rename(folder.bytePath(u"bASE.dbs"), folder.bytePath(u"base.Dbs"));
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "2");
}

// The file system's clock may stand still between two changes, or be set back.
TEST_F(FileNamesTest, AChangeThatTheFoldersTimeDoesNotTellIsSeen) {
    struct stat status {};
    const std::string bytes = toUtf8(folder.path());
    folder.write(u"Base.dbs", "1");
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "1");
    ASSERT_EQ(::stat(bytes.c_str(), &status), 0);
    const timespec same[2] = {status.st_atim, status.st_mtim};
    folder.write(u"nouveau", "2");
    std::filesystem::rename(folder.bytePath(u"Base.dbs"), folder.bytePath(u"bASE.dbs"));
    ASSERT_EQ(::utimensat(AT_FDCWD, bytes.c_str(), same, 0), 0);
    EXPECT_EQ(files.read(at(u"NOUVEAU")), "2");
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "1");
    folder.write(u"dernier", "3");
    const timespec lastYear[2] = {{1'735'689'600, 0}, {1'735'689'600, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, bytes.c_str(), lastYear, 0), 0);
    EXPECT_EQ(files.read(at(u"DERNIER")), "3");
}

TEST_F(FileNamesTest, AFileRenamedWithinOneTickOfTheFoldersClockIsFound) {
    struct stat status {};
    const std::string bytes = toUtf8(folder.path());
    folder.write(u"Base.dbs", "1");
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "1");
    ASSERT_EQ(::stat(bytes.c_str(), &status), 0);
    const timespec same[2] = {status.st_atim, status.st_mtim};
    std::filesystem::rename(folder.bytePath(u"Base.dbs"), folder.bytePath(u"bASE.dbs"));
    ASSERT_EQ(::utimensat(AT_FDCWD, bytes.c_str(), same, 0), 0);
    EXPECT_EQ(files.read(at(u"BASE.DBS")), "1");
}

// Names of one length that differ in what is no letter of 16 bits, and in bytes that are no UTF-8.
const std::string oddNames[] = {
    "\xF0\x9F\x98\x80", "\xF0\x9F\x90\xB1", "\xE9", "\xE8", "\xE2\x82", "\xFF", "\xEF\xBF\xBD"};

TEST_F(FileNamesTest, OddBytesNameTheirFileAndNoOtherForEveryOperation) {
    for (const std::string &name : oddNames) {
        files.makeFolder(at(fromPath(name)));
        files.replace(at(fromPath(name) + u"/Fichier"), name);
    }
    for (const std::string &name : oddNames) {
        SCOPED_TRACE(testing::PrintToString(name));
        const Texte path = at(fromPath(name) + u"/FICHIER");
        EXPECT_EQ(files.read(path), name);
        EXPECT_EQ(RecordFile(files, path, 1).count(), static_cast<std::int64_t>(name.size()));
        AppendFile(files, path).write("+");
        EXPECT_EQ(files.length(path), static_cast<std::int64_t>(name.size()) + 1);
    }
}

TEST_F(FileNamesTest, OddBytesThatAreMissingAreNoOtherOddOnes) {
    for (const std::string &there : oddNames) {
        for (const std::string &wanted : oddNames) {
            if (there == wanted) {
                continue;
            }
            SCOPED_TRACE(testing::PrintToString(there) + testing::PrintToString(wanted));
            folder.write(fromPath(there), "x");
            EXPECT_FALSE(files.exists(at(fromPath(wanted))));
            EXPECT_EQ(failureNumber([&] { files.read(at(fromPath(wanted))); }),
                      failure::fileNotFound);
            files.remove(at(fromPath(there)));
        }
    }
}

TEST_F(FileNamesTest, OddBytesAreListedAndOpenedByTheirListing) {
    for (const std::string &name : oddNames) {
        folder.write(fromPath(name) + u".dbs", name);
    }
    const auto names = files.list(folder.path(), u"*.DBS");
    ASSERT_EQ(names.size(), std::size(oddNames));
    for (const Texte &name : names) {
        EXPECT_EQ(files.read(at(name)) + ".dbs", toPath(name));
        EXPECT_EQ(insideFolder(name), name);
    }
    EXPECT_EQ(files.read(at(fromPath("\xE9.DBS"))), "\xE9"); // in another case
}

TEST_F(FileNamesTest, WithASignForALostCharacterAreExactOrNone) {
    folder.write(u"a\uFFFDb", "x");
    EXPECT_TRUE(files.exists(at(u"a\uFFFDb")));
    EXPECT_FALSE(files.exists(at(u"A\uFFFDB")));
}

TEST_F(FileNamesTest, ThatNoPathReadsAsAre52) {
    for (const Texte &name : {Texte{0xD83D}, Texte{0xDE00}, Texte{0xDC41}, Texte{0xDCC3, 0xDCA9}}) {
        EXPECT_EQ(failureNumber([&] { files.read(at(name)); }), failure::badFileNameOrNumber);
        EXPECT_EQ(failureNumber([&] { files.replace(at(name), ""); }),
                  failure::badFileNameOrNumber);
    }
    EXPECT_TRUE(folder.list().empty());
}

TEST_F(FileNamesTest, AMissingFileIsMadeUnderTheNameAsItIsGiven) {
    RecordFile(files, at(u"Nouvelle.Dbs"), 84);
    files.replace(at(u"Autre.Txt"), "");
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"Autre.Txt", "Nouvelle.Dbs"}));
}

// Times are loose: of a few tries on a busy machine one is enough.
TEST_F(FileNamesTest, TwoThousandFilesUnderAnotherCaseTakeTimeInProportion) {
    const auto fill = [&](const Texte &place, int count) {
        for (int i = 0; i < count; ++i) {
            folder.write(place + u"/base" + decimal(i) + u".dbs", "x");
        }
    };
    const auto seconds = [&](const Texte &place, int count) {
        Files fresh;
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(fresh.length(at(place + u"/BASE" + decimal(i) + u".DBS")), 1);
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    fill(u"peu", 250);
    fill(u"beaucoup", 2000);
    bool inProportion = false;
    for (int attempt = 0; attempt < 4 && !inProportion; ++attempt) {
        // 8 times as many files; 64 times the work would be the square.
        inProportion = seconds(u"beaucoup", 2000) < seconds(u"peu", 250) * 8 * 3;
    }
    EXPECT_TRUE(inProportion);
}

TEST_F(FileNamesTest, ListsThePlainFilesThatFitInOrderOfTheirCapitals) {
    for (const Texte name : {u"b.DBS", u"A.dbs", u"é.dbs", u"c.Dbs", u"c.dbsx", u"dbs", u"z.txt"}) {
        folder.write(name, "");
    }
    folder.makeFolder(u"dossier.dbs");
    std::filesystem::create_symlink("b.DBS", folder.bytePath(u"lien.dbs"));
    std::filesystem::create_symlink("absent", folder.bytePath(u"vide.dbs"));
    std::filesystem::create_symlink("dossier.dbs", folder.bytePath(u"vers.dbs"));
    EXPECT_EQ(files.list(folder.path(), u"*.dbs"),
              (std::vector<Texte>{u"A.dbs", u"b.DBS", u"c.Dbs", u"lien.dbs", u"é.dbs"}));
    EXPECT_EQ(files.list(folder.path() + u'/', u"*.DBS"), files.list(folder.path(), u"*.dbs"));
}

TEST_F(FileNamesTest, AFolderThatIsMissingListsNothing) {
    folder.write(u"fichier", "");
    EXPECT_TRUE(files.list(at(u"absent"), u"*").empty());
    EXPECT_TRUE(files.list(at(u"fichier"), u"*").empty());
}

struct PatternRow {
    Texte name, pattern;
    bool fits;
};

TEST(Pattern, StarsAndQuestionMarksAreCaseBlind) {
    const PatternRow rows[] = {
        {u"IMG01.BMP", u"IMG??.BMP", true},
        {u"img1a.bmp", u"IMG??.BMP", true},
        {u"IMG1.BMP", u"IMG??.BMP", false},
        {u"IMG001.BMP", u"IMG??.BMP", false},
        {u"IMG01.BMPX", u"IMG??.BMP", false},
        {u"XIMG01.BMP", u"IMG??.BMP", false},
        {u"a.dbs", u"*.DBS", true},
        {u".dbs", u"*.dbs", true},
        {u"a.dbs.dbs", u"*.dbs", true},
        {u"adbs", u"*.dbs", false},
        {u"été.dbs", u"ÉTÉ.*", true},
        {u"", u"*", true},
        {u"", u"", true},
        {u"a", u"", false},
        {u"", u"?", false},
        {u"abcabd", u"*ab?", true},
        {u"aXbXc", u"a*b*c", true},
        {u"aXbX", u"a*b*c", false},
        {u"abc", u"abc***", true},
        {u"a", u"**?", true},
    };
    for (const PatternRow &row : rows) {
        EXPECT_EQ(matches(row.name, row.pattern), row.fits)
            << toUtf8(row.name) << " " << toUtf8(row.pattern);
    }
}

// The definition itself, without any care for time.
bool fits(std::u16string_view name, std::u16string_view pattern) {
    if (pattern.empty()) {
        return name.empty();
    }
    if (pattern.front() == u'*') {
        return fits(name, pattern.substr(1)) || (!name.empty() && fits(name.substr(1), pattern));
    }
    return !name.empty() &&
           (pattern.front() == u'?' || upper(pattern.front()) == upper(name.front())) &&
           fits(name.substr(1), pattern.substr(1));
}

// Every text of the characters up to a length.
std::vector<Texte> texts(const Texte &characters, std::size_t longest) {
    std::vector<Texte> all = {u""};
    for (std::size_t i = 0; all[i].size() < longest; ++i) {
        for (const char16_t character : characters) {
            all.push_back(all[i] + character);
        }
    }
    return all;
}

TEST(Pattern, AgreesWithItsDefinitionForEveryShortNameAndPattern) {
    for (const Texte &pattern : texts(u"aB*?", 5)) {
        for (const Texte &name : texts(u"ab", 4)) {
            ASSERT_EQ(matches(name, pattern), fits(name, pattern))
                << toUtf8(name) << " " << toUtf8(pattern);
        }
    }
}

TEST(InsideFolder, TakesAPlainNameAsItIs) {
    for (const Texte name : {u"ANIMAUX.DBS", u"Été 2026.dbs", u".cache", u"a..b", u"...a", u"é",
                             u"a'b!#$%&()-@^_`{}~+,;=[]"}) {
        EXPECT_EQ(insideFolder(name), name);
    }
}

TEST(InsideFolder, ANameThatCouldLeadElsewhereIs64) {
    for (const Texte &name :
         {Texte(u""),    Texte(u"."),     Texte(u".."),   Texte(u"..."),     Texte(u"../a"),
          Texte(u"a/b"), Texte(u"/a"),    Texte(u"a\\b"), Texte(u"..\\a"),   Texte(u"C:"),
          Texte(u"C:a"), Texte(u"*.dbs"), Texte(u"a?"),   Texte(u"a\"b"),    Texte(u"<a"),
          Texte(u"a>"),  Texte(u"a|b"),   Texte(u"a\nb"), Texte(u"a\u007F"), Texte(u"a\0b", 3)}) {
        EXPECT_EQ(failureNumber([&] { insideFolder(name); }), failure::badFileName) << toUtf8(name);
    }
}

TEST(AsFolder, EndsInOneSeparator) {
    EXPECT_EQ(asFolder(u"/jeu"), u"/jeu/");
    EXPECT_EQ(asFolder(u"/jeu/"), u"/jeu/");
    EXPECT_EQ(asFolder(u""), u"/");
}

} // namespace
} // namespace grimoval
