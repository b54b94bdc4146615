// SPDX-License-Identifier: GPL-3.0-or-later
// Lists as the programs of people write them: code pages, ends of lines, tables, typography; and
// files that are no list at all.
#include "support/conditions.h"
#include "support/game.h"
#include "support/themes.h"
#include "tools/bases/texte.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sstream>

namespace grimoval::test::theme_input {

struct ListInput : ReadThemes {
    Told read(const std::string &source, const Texte &name = u"ESSAI.txt") {
        return words(ReadThemes::read(source, name));
    }
};

std::string utf16(const Texte &text, bool lowFirst) {
    std::string bytes = lowFirst ? "\xFF\xFE" : "\xFE\xFF";
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
        bytes += lowFirst ? low : high;
        bytes += lowFirst ? high : low;
    }
    return bytes;
}

TEST_F(ListInput, IsUtf8OrWindows1252OrUtf16AndAMarkOfOrderDoesNotCount) {
    const Texte text = u"FORÊT\nCŒUR\nGARÇON\n";
    const Told expected{"FORÊT", "CŒUR", "GARÇON"};
    for (const std::string &bytes : {toUtf8(text), "\xEF\xBB\xBF" + toUtf8(text), toAnsi(text),
                                     utf16(text, true), utf16(text, false)}) {
        EXPECT_EQ(read(bytes), expected) << testing::PrintToString(bytes);
        EXPECT_EQ(told(), Told{});
    }
}

TEST_F(ListInput, HasLinesThatEndAsOnAnySystem) {
    for (const char *source :
         {"CHAT\nCHIEN\n", "CHAT\r\nCHIEN\r\n", "CHAT\rCHIEN\r", "CHAT\rCHIEN", "CHAT\vCHIEN\f",
          "CHAT\xE2\x80\xA8"
          "CHIEN"}) {
        EXPECT_EQ(read(source), (Told{"CHAT", "CHIEN"}));
        EXPECT_EQ(told(), Told{});
    }
    ReadThemes::read("CHAT\r\n\r\nAB\r\n");
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].ligne, 3);
}

TEST_F(ListInput, LosesItsTypographyInSilence) {
    EXPECT_EQ(toUtf8(outils::nettoyer(u"l’île\u00A0: e\u0301le\u0300ve, nai\u0308f, "
                                      u"garc\u0327on, man\u0303ana, S\u030Cip")),
              "l'île : élève, naïf, garçon, mañana, Šip");
    EXPECT_EQ(read("\xEF\xBB\xBFl’île au\u202Ftrésor\nof\u00ADfice\nporte‑clé\n\uFB01celle\n"),
              (Told{"L'ÎLE AU TRÉSOR", "OFFICE", "PORTE-CLÉ", "FICELLE"}));
    EXPECT_EQ(told(), Told{});
    // An accent that no letter of the game bears stays, and is told.
    read("te\u0323le\n");
    EXPECT_EQ(problems.size(), 1u);
}

TEST_F(ListInput, MayBeATableOfWordsAndClues) {
    const Told expected{"CHEVAL (animal)", "PORTE-\"CLÉ\"", "POMME, POIRE"};
    for (const char *source :
         {"mot;indice\ncheval;animal\n\"porte-\"\"clé\"\"\";\n\"pomme, poire\";\n",
          "cheval\tanimal\n\"porte-\"\"clé\"\"\"\t\npomme, poire\n",
          "Mots,Indices\ncheval,(animal)\n\"porte-\"\"clé\"\"\",\n\"pomme, poire\",\n"}) {
        EXPECT_EQ(read(source, u"liste.csv"), expected) << source;
        EXPECT_EQ(told(), Told{});
    }
    // In a text the two names, or a tab within a line, make a table as well; nothing else does.
    EXPECT_EQ(read("mot;indice\ncheval;animal\n"), Told{"CHEVAL (animal)"});
    EXPECT_EQ(read("cheval\tanimal\nchien\t\n\tchat\n"), (Told{"CHEVAL (animal)", "CHIEN"}));
    EXPECT_EQ(read("cheval;animal\n\"chat\"\n \tchien\t \n"),
              (Told{"CHEVAL;ANIMAL", "\"CHAT\"", "CHIEN"}));
    EXPECT_EQ(told(), Told{});
}

TEST_F(ListInput, OfATableMayHaveHeadings) {
    const Theme theme = ReadThemes::read(
        "\"Titre : Le marché, les fruits\";\nNiveau : facile;\n# note\nmot;indice\npomme;fruit\n",
        u"a.CSV");
    EXPECT_EQ(toUtf8(theme.titre), "Le marché, les fruits");
    EXPECT_EQ(words(theme), Told{"POMME (fruit)"});
    EXPECT_EQ(told(), Told{});
}

TEST_F(ListInput, IsRemarkedUponWhereSomethingOfATableIsLeftOut) {
    EXPECT_EQ(
        read("mots\ncheval;un animal à quatre longues jambes;1\nrat;語;2\nsouris (grise);bête\n",
             u"a.csv"),
        (Told{"CHEVAL", "RAT", "SOURIS (grise)"}));
    EXPECT_EQ(
        told(),
        (Told{"a.csv:1 [] cette ligne donne le nom de la colonne, elle n'est pas un mot",
              "a.csv:2 [] CHEVAL : l'indice « un animal à quatre longues jambes » ne peut pas être "
              "mis, le mot reste sans lui",
              "a.csv:2 [] le jeu ne se sert que des deux premières colonnes, le mot et son indice",
              "a.csv:3 [] RAT : l'indice « 語 » ne peut pas être mis, le mot reste sans lui",
              "a.csv:4 [] SOURIS (grise) : l'indice « bête » ne peut pas être mis, le mot reste "
              "sans lui"}));
    EXPECT_FALSE(outils::graves(problems));
    read("\"cheval;animal\nchien;animal\n", u"a.csv");
    EXPECT_EQ(told(), Told{"a.csv:1 cheval;animal : un guillemet n'est pas fermé : corrigez cette "
                           "ligne"});
}

TEST_F(ListInput, IsNoListWhereItIsNoText) {
    using namespace std::string_literals;
    for (const std::string &bytes :
         {"PK\x03\x04\0\0table"s, "CHAT\0CHIEN\n"s, utf16(u"CHAT\n", true).substr(2)}) {
        EXPECT_EQ(read(bytes), Told{});
        EXPECT_EQ(told(), Told{"ESSAI.txt:0 ce n'est pas un fichier de texte : enregistrez votre "
                               "liste comme « texte » ou « CSV »"});
    }
}

TEST_F(ListInput, OfAnEndlessLineIsShownInShort) {
    read(std::string(5'000'000, 'A'));
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_LT(problems[0].texte.size(), 200u);
    read("\x1B[2J\xE2\x80\xAE\n");
    EXPECT_EQ(told()[0].substr(0, 19), "ESSAI.txt:1 ?[2J? :");
    read(std::string(1'000'000, ';'), u"a.csv");
    EXPECT_EQ(told(), Told{"a.csv:0 il n'y a aucun mot : écrivez-en un par ligne"});
}

TEST_F(ListInput, IsNotReadWhereTheFileIsTooLarge) {
    const TemporaryFolder folder;
    folder.write(u"GROS.txt", std::string((8 << 20) + 1, '\n'));
    Files files;
    outils::lireTheme(files, folder.path(u"GROS.txt"), problems);
    EXPECT_EQ(told(), Told{"GROS.txt:0 ce fichier est trop gros pour une liste de mots"});
}

RC_GTEST_FIXTURE_PROP(ListInput, OfAnyBytesEndsWithGoodEntriesOrAProblem,
                      (const std::string &bytes, bool table)) {
    const Deadline soon(60);
    const Theme theme = ReadThemes::read(bytes, table ? u"a.csv" : u"a.txt");
    RC_ASSERT(outils::graves(problems) || !theme.entrees.empty());
    if (!outils::graves(problems)) {
        for (const Theme::Entree &entry : theme.entrees) {
            RC_ASSERT(outils::defautDeLEntree(entry.texte).empty());
        }
    }
}

RC_GTEST_FIXTURE_PROP(ListInput, IsTheSameInAnyCodePageAndWithAnyEndOfLine,
                      (const std::vector<std::vector<std::uint8_t>> &lines)) {
    static constexpr std::u16string_view alphabet = u"ABCDEFabcéçœÉ -'(),;\"#:";
    const auto text = [&](const Texte &end) {
        Texte all;
        for (const auto &line : lines) {
            for (const std::uint8_t place : line) {
                all += alphabet[place % alphabet.size()];
            }
            all += end;
        }
        return all;
    };
    const std::string ansi = toAnsi(text(u"\n"));
    const Texte ends[] = {u"\n", u"\r\n", u"\r"};
    const Told expected = read(toUtf8(text(u"\n"))), expectedTold = told();
    for (const Texte &end : ends) {
        RC_ASSERT(read(utf16(text(end), true)) == expected);
        RC_ASSERT(told() == expectedTold);
        // Bytes of one code page may happen to be well-formed in the other.
        const std::string bytes = toAnsi(text(end));
        if (!isUtf8(bytes)) {
            RC_ASSERT(read(bytes) == expected);
            RC_ASSERT(told() == expectedTold);
        }
    }
}

TEST_F(ListInput, GetsATitleThatCanBeKeptFromAnyNameOfAFile) {
    const Theme theme = ReadThemes::read("MOTS\n", u"li\x7fste\u0081.\u009D.txt");
    EXPECT_EQ(toUtf8(theme.titre), "Li ste .");
    read(outils::ecrireTheme(theme));
    EXPECT_EQ(told(), Told{});
}

TEST_F(ListInput, TellsNamesOfColumnsThatStandWhereAWordShould) {
    read("\"mots,indice\";\nchat;animal\n", u"liste.csv");
    EXPECT_EQ(
        told(),
        Told{"liste.csv:1 mots,indice : ce sont les noms des colonnes : effacez cette ligne"});
    read("chat\nmot;indice\nchien\n");
    EXPECT_EQ(told(),
              Told{"ESSAI.txt:2 mot;indice : ce sont les noms des colonnes : effacez cette ligne"});
}

TEST_F(ListInput, CommandsNoTerminalByItsNameNorByItsLines) {
    read("\x1b[2J\n\xE2\x81\xA6" // turns the direction
         "AB\n",
         u"\x1b]0;x\a\u202Eliste.txt");
    ASSERT_EQ(problems.size(), 2u);
    std::ostringstream said;
    outils::dire(problems, said);
    const std::string name = "?]0;x??liste.txt";
    EXPECT_EQ(said.str().substr(0, name.size() + 12), name + ":1 : ?[2J : ");
    EXPECT_NE(said.str().find("\n" + name + ":2 : ?AB : "), std::string::npos) << said.str();
    EXPECT_EQ(said.str().find('\x1b'), std::string::npos);
}

} // namespace grimoval::test::theme_input
