// SPDX-License-Identifier: GPL-3.0-or-later
// Profile files byte for byte; é is one byte, E9.
#include "platform/profile.h"

#include "support/conditions.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace grimoval {
namespace {

struct ProfileTest : testing::Test {
    test::TemporaryFolder folder;
    Files files;
    const Texte path = folder.path(u"GRIMOVA.INI");

    Texte read(const Texte &section, const Texte &key) {
        return readProfile(files, path, section, key);
    }
    void write(const Texte &section, const Texte &key, const Texte &value) {
        writeProfile(files, path, section, key, value);
    }
    void given(const std::string &bytes) { folder.write(u"GRIMOVA.INI", bytes); }
    std::string bytes() { return folder.read(u"GRIMOVA.INI"); }
};

TEST_F(ProfileTest, AMissingFileReadsAsNothingAndIsNotCreated) {
    EXPECT_EQ(read(u"ConfigPC", u"ConfDep"), u"");
    EXPECT_TRUE(folder.list().empty());
}

TEST_F(ProfileTest, AMissingSectionOrKeyReadsAsNothing) {
    given("[Autre]\r\nConfDep=1\r\n[ConfigPC]\r\nMusic=2\r\n");
    EXPECT_EQ(read(u"ConfigPC", u"ConfDep"), u"");
    EXPECT_EQ(read(u"Absente", u"Music"), u"");
    EXPECT_EQ(read(u"ConfigPC", u"Musi"), u"");
    EXPECT_EQ(read(u"ConfigPC", u"Musics"), u"");
}

TEST_F(ProfileTest, TheFirstWriteCreatesTheFileWithItsSection) {
    write(u"ConfigPC", u"WavPrésent", u"1");
    EXPECT_EQ(bytes(), "[ConfigPC]\r\nWavPr\xE9sent=1\r\n");
}

TEST_F(ProfileTest, KeysAndSectionsFollowInTheOrderOfTheirWriting) {
    write(u"ConfigPC", u"ConfDep", u"-1");
    write(u"Le Grimoval", u"Music", u"1");
    write(u"ConfigPC", u"MidiPrésent", u"0");
    write(u"Le Grimoval", u"Parole", u"1");
    EXPECT_EQ(bytes(), "[ConfigPC]\r\nConfDep=-1\r\nMidiPr\xE9sent=0\r\n"
                       "[Le Grimoval]\r\nMusic=1\r\nParole=1\r\n");
}

TEST_F(ProfileTest, AKeyIsReplacedWhereItStands) {
    given("[A]\r\nun=1\r\ndeux=2\r\ntrois=3\r\n[B]\r\ndeux=9\r\n");
    write(u"A", u"deux", u"22");
    EXPECT_EQ(bytes(), "[A]\r\nun=1\r\ndeux=22\r\ntrois=3\r\n[B]\r\ndeux=9\r\n");
}

TEST_F(ProfileTest, ANewKeyFollowsItsSectionsLastLineBeforeBlankLines) {
    given("[A]\r\nun=1\r\n\r\n  \r\n[B]\r\nx=1\r\n");
    write(u"A", u"deux", u"2");
    EXPECT_EQ(bytes(), "[A]\r\nun=1\r\ndeux=2\r\n\r\n  \r\n[B]\r\nx=1\r\n");
}

TEST_F(ProfileTest, ANewKeyFollowsAnEmptySectionsHead) {
    given("[A]\r\n\r\n[B]\r\n");
    write(u"A", u"un", u"1");
    write(u"B", u"un", u"2");
    EXPECT_EQ(bytes(), "[A]\r\nun=1\r\n\r\n[B]\r\nun=2\r\n");
}

TEST_F(ProfileTest, NamesAreComparedWithoutCaseAccentsIncluded) {
    given("[le GRIMOVAL]\r\nR\xC9"
          "FLEXIONlimite=7\r\n");
    EXPECT_EQ(read(u"Le Grimoval", u"RéflexionLimite"), u"7");
    write(u"LE grimoval", u"réflexionLIMITE", u"8");
    EXPECT_EQ(read(u"Le Grimoval", u"RéflexionLimite"), u"8");
    EXPECT_EQ(read(u"Le Grimoval", u"ReflexionLimite"), u"") << "an accent is no case";
}

TEST_F(ProfileTest, BlanksAroundNamesAndValuesDoNotCount) {
    given("  [ A ]  \r\n\t un \t=  deux mots \t\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"deux mots");
    EXPECT_EQ(read(u" A ", u" un "), u"deux mots");
}

TEST_F(ProfileTest, TheValueStartsAfterTheFirstEqualsSign) {
    given("[A]\r\nun=a=b\r\nvide=\r\n=rien\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"a=b");
    EXPECT_EQ(read(u"A", u"vide"), u"");
    EXPECT_EQ(read(u"A", u""), u"");
}

TEST_F(ProfileTest, CommentsAreNoKeys) {
    given("[A]\r\n;un=1\r\n ; un=2\r\nun=3\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"3");
    EXPECT_EQ(read(u"A", u";un"), u"");
}

TEST_F(ProfileTest, KeysBeforeTheFirstSectionBelongToNone) {
    given("un=1\r\n[A]\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"");
    EXPECT_EQ(read(u"", u"un"), u"");
}

TEST_F(ProfileTest, EverythingElseIsKeptByteForByte) {
    const std::string before = "; ent\xEAte\n\n \tn'importe quoi\r\n[A]\nun =  1\n;note\x81\xFF\n";
    const std::string after = "\n\n[C]\r\ny=2\r\n\r\n\r\n";
    given(before + "deux=2\n" + after);
    write(u"A", u"deux", u"3");
    EXPECT_EQ(bytes(), before + "deux=3\n" + after) << "the line keeps its own ending";
    write(u"A", u"trois", u"4");
    EXPECT_EQ(bytes(), before + "deux=3\ntrois=4\r\n" + after);
    write(u"D", u"z", u"5");
    EXPECT_EQ(bytes(), before + "deux=3\ntrois=4\r\n" + after + "[D]\r\nz=5\r\n");
}

TEST_F(ProfileTest, ALastLineWithoutAnEndGetsOneOnlyBeforeANewLine) {
    given("[A]\r\nun=1");
    EXPECT_EQ(read(u"A", u"un"), u"1");
    write(u"A", u"un", u"2");
    EXPECT_EQ(bytes(), "[A]\r\nun=2");
    write(u"A", u"deux", u"3");
    EXPECT_EQ(bytes(), "[A]\r\nun=2\r\ndeux=3\r\n");
    given("[A]\r\nun=1");
    write(u"B", u"x", u"1");
    EXPECT_EQ(bytes(), "[A]\r\nun=1\r\n[B]\r\nx=1\r\n");
}

TEST_F(ProfileTest, OfTwoSectionsOrKeysOfOneNameTheFirstCounts) {
    given("[A]\r\nun=1\r\nun=2\r\n[B]\r\n[A]\r\nun=3\r\ndeux=4\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"1");
    EXPECT_EQ(read(u"A", u"deux"), u"");
    write(u"A", u"un", u"9");
    write(u"A", u"deux", u"8");
    EXPECT_EQ(bytes(), "[A]\r\nun=9\r\nun=2\r\ndeux=8\r\n[B]\r\n[A]\r\nun=3\r\ndeux=4\r\n");
}

TEST_F(ProfileTest, AHeadWithoutItsBracketStillOpensItsSection) {
    given("[A\r\nun=1\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"1");
}

TEST_F(ProfileTest, AValueOutsideWindows1252IsWrittenWithQuestionMarks) {
    write(u"A", u"un", u"œuf→€");
    EXPECT_EQ(bytes(), "[A]\r\nun=\x9Cuf?\x80\r\n");
    EXPECT_EQ(read(u"A", u"un"), u"œuf?€");
}

TEST_F(ProfileTest, AFolderInItsPlaceIsSilentAndStays) {
    folder.makeFolder(u"GRIMOVA.INI");
    EXPECT_EQ(read(u"A", u"un"), u"");
    write(u"A", u"un", u"1");
    EXPECT_EQ(folder.list(), std::vector<std::string>{"GRIMOVA.INI/"});
}

TEST_F(ProfileTest, AMissingFolderIsSilent) {
    const Texte elsewhere = folder.path(u"absent/GRIMOVA.INI");
    writeProfile(files, elsewhere, u"A", u"un", u"1");
    EXPECT_EQ(readProfile(files, elsewhere, u"A", u"un"), u"");
    EXPECT_TRUE(folder.list().empty());
}

TEST_F(ProfileTest, AWriteThatFailsIsSilentAndKeepsTheOldFileWhole) {
    const std::string before = "[A]\r\nun=1\r\n;" + std::string(5000, 'x') + "\r\n";
    given(before);
    {
        const test::FileSizeLimit limit(1000);
        write(u"A", u"un", u"2");
    }
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(folder.list(), std::vector<std::string>{"GRIMOVA.INI"});
}

TEST_F(ProfileTest, AFileThatMayNotBeReadIsNotOverwritten) {
    given("[A]\r\nun=1\r\n");
    std::filesystem::permissions(folder.bytePath(u"GRIMOVA.INI"), std::filesystem::perms(0));
    std::filesystem::permissions(toUtf8(folder.path()), std::filesystem::perms(0777));
    {
        const test::OrdinaryUser user;
        EXPECT_EQ(read(u"A", u"un"), u"");
        write(u"A", u"un", u"2");
    }
    std::filesystem::permissions(folder.bytePath(u"GRIMOVA.INI"), std::filesystem::perms(0644));
    EXPECT_EQ(bytes(), "[A]\r\nun=1\r\n");
}

TEST_F(ProfileTest, AnEqualValueLeavesTheFileAlone) {
    given("[A]\r\nun=1\r\n");
    const std::filesystem::path file = folder.bytePath(u"GRIMOVA.INI");
    const auto old = std::filesystem::last_write_time(file) - std::chrono::hours(24);
    std::filesystem::last_write_time(file, old);
    write(u"A", u"un", u"1");
    EXPECT_EQ(std::filesystem::last_write_time(file), old);
    write(u"A", u"un", u"2");
    EXPECT_NE(std::filesystem::last_write_time(file), old);
    EXPECT_EQ(bytes(), "[A]\r\nun=2\r\n");
}

// Any file at all: what is written is read back, and all its other lines stay as they are.
RC_GTEST_FIXTURE_PROP(ProfileTest, AWrittenValueReadsBackFromAnyFile, ()) {
    static const std::vector<std::string> pieces = {
        "[A]", "[a]", "[B]", "un=1", "UN=2", "deux=3", ";un=4", "", " ", "un", "[", "=", "\r"};
    std::string before;
    const int lines = *rc::gen::inRange(0, 12);
    for (int i = 0; i < lines; ++i) {
        before += *rc::gen::elementOf(pieces);
        before += *rc::gen::element<std::string>("\r\n", "\n");
    }
    before += *rc::gen::element<std::string>("", "un=5", "[A]");
    given(before);
    const Texte other = read(u"B", u"deux");
    write(u"A", u"un", u"nouveau");
    RC_ASSERT(read(u"A", u"un") == Texte(u"nouveau"));
    RC_ASSERT(read(u"B", u"deux") == other);
    const std::string once = bytes();
    RC_CLASSIFY(once.size() > before.size() + 20, "section added");
    write(u"A", u"un", u"nouveau");
    RC_ASSERT(bytes() == once);
}

} // namespace
} // namespace grimoval
