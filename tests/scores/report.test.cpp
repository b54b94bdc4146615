// SPDX-License-Identifier: GPL-3.0-or-later
// The printed page, item by item: a page of 11000 units, characters of 120, lines of 240. And the
// same page of printers that measure otherwise.
#include "support/scored.h"

#include <cmath>
#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

struct Report : Scored {
    explicit Report(int mode, bool limited = true) : Scored(mode, limited) {
        printer.measures = {11000, 120, 240};
    }
    Events page() {
        score.show();
        windows.take();
        EXPECT_TRUE(score.CmdScore[1].userClick());
        return only(windows.take(), "page ");
    }
};

Events top(const std::string &time, const std::string &errors, const std::string &level) {
    return {R"(page texte 240 0 "Samedi, 07 mars 2026 à 14:05:09")",
            "page cadre 120 288 10880 600",
            R"(page texte 5040 312 "Le Grimoval v3.0")",
            R"(page texte 240 648 "Fichier        : ESSAI.DBS")",
            R"(page texte 240 888 "Sujet          : Essai")",
            R"(page texte 240 1128 "Nombre de mots : 40")",
            "page ligne 120 1392 10880 1392",
            "page texte 240 1440 \"Temps de réflexion limitée " + time + "\"",
            "page texte 240 1680 \" Nombre d'erreurs limité à : " + errors + "\"",
            "page texte 240 1920 \"                    Niveau : " + level + "\"",
            "page cadre 120 2208 10880 4608",
            "page ligne 3600 2208 3600 4608",
            "page ligne 7300 2208 7300 4608",
            R"(page texte 4670 2280 "DURAND")",
            R"(page texte 8370 2280 "PETIT")",
            R"(page texte 4670 2520 "MARIE")",
            R"(page texte 8370 2520 "LÉO")",
            "page ligne 120 2808 10880 2808"};
}

Events operator+(Events left, const Events &right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

std::string label(int y, const std::string &text) {
    return "page texte 240 " + std::to_string(y) + " \"" + text + "\"";
}
std::string first(int y, int value) {
    return "page texte 4670 " + std::to_string(y) + " \" " + std::to_string(value) + " \"";
}
std::string second(int y, int value) {
    return "page texte 8370 " + std::to_string(y) + " \" " + std::to_string(value) + " \"";
}

TEST(Report, OfOnePlayerHasTheFormOfTwoWithWordsNotFoundAndNoScore) {
    const Events expected = top("à 45 secondes", "6", " un seul joueur") +
                            Events{label(2880, "Nombre de mots proposés"),
                                   first(2880, 7),
                                   label(3120, "Nombre d'abandons"),
                                   first(3120, 2),
                                   second(3120, 1),
                                   label(3360, "Nombre de mots non trouvés"),
                                   first(3360, 3),
                                   label(3600, "Nombre de mauvaises lettres"),
                                   first(3600, 12),
                                   second(3600, 9),
                                   label(3840, "Nombre de bonnes lettres"),
                                   first(3840, 31),
                                   second(3840, 22),
                                   label(4080, "Nombre de mots trouvés"),
                                   first(4080, 4),
                                   second(4080, 3),
                                   "page fin"};
    EXPECT_EQ(Report(1).page(), expected);
}

TEST(Report, OfTwoPlayersOnOneWordPutsTheWordsProposedBetweenTheNames) {
    const Events expected = top("à 45 secondes", "", " 2 joueurs cherchant le même mot.") +
                            Events{R"(page texte 480 2400 "7 mots proposés")",
                                   label(3120, "Nombre de mauvaises lettres"),
                                   first(3120, 12),
                                   second(3120, 9),
                                   label(3360, "Nombre de bonnes lettres"),
                                   first(3360, 31),
                                   second(3360, 22),
                                   label(3600, "Nombre de mots trouvés"),
                                   first(3600, 4),
                                   second(3600, 3),
                                   label(4320, "SCORE......................."),
                                   first(4320, 51),
                                   second(4320, 37),
                                   "page fin"};
    EXPECT_EQ(Report(2).page(), expected);
}

TEST(Report, OfTwoPlayersEachWithAWordNamesNoLevelAndLeavesARowEmpty) {
    const Events expected =
        top(": NON", "6", "") + Events{label(2880, "Nombre de mots proposés"),
                                       first(2880, 7),
                                       second(2880, 7),
                                       label(3120, "Nombre d'abandons"),
                                       first(3120, 2),
                                       second(3120, 1),
                                       label(3600, "Nombre de mauvaises lettres"),
                                       first(3600, 12),
                                       second(3600, 9),
                                       label(3840, "Nombre de bonnes lettres"),
                                       first(3840, 31),
                                       second(3840, 22),
                                       label(4080, "Nombre de mots trouvés"),
                                       first(4080, 4),
                                       second(4080, 3),
                                       label(4320, "SCORE......................."),
                                       first(4320, 51),
                                       second(4320, 37),
                                       "page fin"};
    EXPECT_EQ(Report(3, false).page(), expected);
}

// A printer, and where its table stands: the line between the players, their values, the heading.
struct Printer {
    int width, character, line;
    int middle, first, second, heading;
};

// Every item of the page of one player, at its place on that printer.
Events pageOn(const Printer &p, const std::string &family, const std::string &title) {
    const auto at = [](int x, double y, const std::string &text) {
        return "page texte " + std::to_string(x) + " " + std::to_string(std::lround(y)) + " \"" +
               text + "\"";
    };
    const auto shape = [](const char *kind, int x1, double y1, int x2, double y2) {
        return std::string("page ") + kind + " " + std::to_string(x1) + " " +
               std::to_string(std::lround(y1)) + " " + std::to_string(x2) + " " +
               std::to_string(std::lround(y2));
    };
    const int C = p.character, right = p.width - C;
    const double H = p.line;
    Events page = {at(2 * C, 0, "Samedi, 07 mars 2026 à 14:05:09"),
                   shape("cadre", C, 1.2 * H, right, 2.5 * H),
                   at(p.heading, 1.3 * H, "Le Grimoval v3.0"),
                   at(2 * C, 2.7 * H, "Fichier        : ESSAI.DBS"),
                   at(2 * C, 3.7 * H, "Sujet          : " + title),
                   at(2 * C, 4.7 * H, "Nombre de mots : 40"),
                   shape("ligne", C, 5.8 * H, right, 5.8 * H),
                   at(2 * C, 6 * H, "Temps de réflexion limitée à 45 secondes"),
                   at(2 * C, 7 * H, " Nombre d'erreurs limité à : 6"),
                   at(2 * C, 8 * H, "                    Niveau :  un seul joueur"),
                   shape("cadre", C, 9.2 * H, right, 19.2 * H),
                   shape("ligne", 30 * C, 9.2 * H, 30 * C, 19.2 * H),
                   shape("ligne", p.middle, 9.2 * H, p.middle, 19.2 * H),
                   at(p.first, 9.5 * H, family),
                   at(p.second, 9.5 * H, "PETIT"),
                   at(p.first, 10.5 * H, "MARIE"),
                   at(p.second, 10.5 * H, "LÉO"),
                   shape("ligne", C, 11.7 * H, right, 11.7 * H)};
    const auto row = [&](int height, const std::string &label, int one, int two = -1) {
        page.push_back(at(2 * C, height * H, label));
        page.push_back(at(p.first, height * H, " " + std::to_string(one) + " "));
        if (two >= 0) {
            page.push_back(at(p.second, height * H, " " + std::to_string(two) + " "));
        }
    };
    row(12, "Nombre de mots proposés", 7);
    row(13, "Nombre d'abandons", 2, 1);
    row(14, "Nombre de mots non trouvés", 3);
    row(15, "Nombre de mauvaises lettres", 12, 9);
    row(16, "Nombre de bonnes lettres", 31, 22);
    row(17, "Nombre de mots trouvés", 4, 3);
    page.push_back("page fin");
    return page;
}

const Printer printers[] = {
    {11000, 120, 240, 7300, 4670, 8370, 5040}, // as above
    {8000, 100, 200, 5500, 3600, 6100, 4200},  // larger letters
    {596, 7, 20, 403, 261, 454, 294},          // points
    {3000, 60, 130, 2400, 1710, 2310, 1680},   // too narrow: values left of their column's line
};

TEST(Report, StandsByTheMeasuresOfAnyPrinter) {
    for (const Printer &printer : printers) {
        Report report(1);
        report.printer.measures = {double(printer.width), double(printer.character),
                                   double(printer.line)};
        EXPECT_EQ(report.page(), pageOn(printer, "DURAND", "Essai")) << printer.width;
    }
}

// Nothing is cut, broken or made smaller, and nothing else moves.
TEST(Report, PrintsAWideNameAndALongTitleWholeOnAnyPrinter) {
    const Texte name(15, u'W');
    const Texte title(90, u'M');
    for (const Printer &printer : printers) {
        Report report(1);
        report.g.joueurs.NomJoueur[1] = name;
        report.g.base.TitreBase = title;
        report.printer.measures = {double(printer.width), double(printer.character),
                                   double(printer.line)};
        EXPECT_EQ(report.page(), pageOn(printer, toUtf8(name), toUtf8(title))) << printer.width;
    }
}

TEST(Report, EachPressPrintsAPageAndWritesNoRecord) {
    Report report(1);
    const Events once = report.page();
    EXPECT_TRUE(report.score.CmdScore[1].userClick());
    EXPECT_EQ(only(report.windows.take(), "page "), once);
    EXPECT_TRUE(report.score.ScoreNonEcrit);
    EXPECT_TRUE(report.score.isShown());
    EXPECT_FALSE(report.folder.exists(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT"));
}

TEST(Report, WithoutAPrinterIsAMessageAndTheWindowStays) {
    Report report(1);
    report.printer.measures.reset();
    EXPECT_TRUE(report.page().empty());
    ASSERT_EQ(report.windows.messages.size(), 1u);
    EXPECT_EQ(report.windows.messages[0].text, u"Problème d'imprimante !!");
    EXPECT_EQ(report.windows.messages[0].title, u"Le Grimoval v3.0");
    EXPECT_EQ(report.windows.messages[0].icon, MessageIcon::critical);
    EXPECT_EQ(report.screen.MousePointer, 0);
    EXPECT_TRUE(report.score.isShown());
}

TEST(Report, AnyOtherFailureIsToldByItsNumberWithNoBlankBefore) {
    Report report(1);
    report.score.show();
    report.g.scores.NbMotsProposes = 32767;
    report.g.scores.MotsTrouves[1] = -1;
    report.score.ImprimerScore();
    ASSERT_EQ(report.windows.messages.size(), 1u);
    EXPECT_EQ(report.windows.messages[0].text, u"L'ERREUR6 est survenue.");
}

} // namespace
} // namespace grimoval::test
