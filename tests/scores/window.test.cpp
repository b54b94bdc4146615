// SPDX-License-Identifier: GPL-3.0-or-later
// The score window: its table, its labels, what it writes and clears.
#include "support/scored.h"

#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

struct Window : Scored {
    using Scored::Scored;
    Rows table() {
        score.show();
        return score.LstScore.Rows;
    }
};

TEST(ScoreTable, OfOnePlayerHasTwoColumnsAndEightRows) {
    EXPECT_EQ(Window(1).table(), (Rows{{u"Nom et prénom :", u"DURAND MARIE"},
                                       {u"Mots proposés :", u"7"},
                                       {u"Abandons :", u"2"},
                                       {u"Mots non trouvés :", u"3"},
                                       {u"Mauvaises lettres :", u"12"},
                                       {u"Bonnes lettres :", u"31"},
                                       {u"Mots trouvés :", u"4"},
                                       {u"Score :", u"51"}}));
}

TEST(ScoreTable, IsOneHalfWideForEachColumnOfOnePlayer) {
    Window window(1);
    window.table();
    EXPECT_EQ(window.score.LstScore.columnWidths, (std::vector{3500, 3500}));
    EXPECT_EQ(window.score.LstScore.mergedRows, (std::vector<bool>{false, true}));
}

TEST(ScoreTable, PutsTheNamesBackAtTheLeftOfTheirFields) {
    Window window(2);
    auto &names = window.g.joueurs.NomJoueur;
    names = {Texte(), u"  DURAND", u" MARIE", u"   PETIT", u" LÉO"};
    EXPECT_EQ(window.table()[0],
              (std::vector<Texte>{u"Nom et prénom :", u"DURAND MARIE", u"PETIT  LÉO"}));
    const char16_t *left[] = {u"DURAND", u"MARIE", u"PETIT", u"LÉO"};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(names[i + 1].text().substr(0, Texte(left[i]).size()), left[i]);
    }
}

TEST(ScoreTable, OfTwoPlayersOnOneWordKnowsNeitherAbandonsNorWordsNotFound) {
    Window window(2);
    EXPECT_EQ(window.table(), (Rows{{u"Nom et prénom :", u"DURAND MARIE", u"PETIT  LÉO"},
                                    {u"Mots proposés :", u"7", u"7"},
                                    {u"Mauvaises lettres :", u"12", u"9"},
                                    {u"Bonnes lettres :", u"31", u"22"},
                                    {u"Mots trouvés :", u"4", u"3"},
                                    {u"Score :", u"51", u"37"}}));
    EXPECT_EQ(window.score.LstScore.mergedRows, (std::vector<bool>{false, true}));
    EXPECT_EQ(window.score.LstScore.columnWidths, (std::vector{3000, 2000, 2000}));
}

TEST(ScoreTable, OfTwoPlayersEachWithAWordShowsAllOfBoth) {
    EXPECT_EQ(Window(3).table(), (Rows{{u"Nom et prénom :", u"DURAND MARIE", u"PETIT  LÉO"},
                                       {u"Mots proposés :", u"7", u"7"},
                                       {u"Abandon :", u"2", u"1"},
                                       {u"Mots non trouvés :", u"3", u"4"},
                                       {u"Mauvaises lettres :", u"12", u"9"},
                                       {u"Bonnes lettres :", u"31", u"22"},
                                       {u"Mots trouvés :", u"4", u"3"},
                                       {u"Score :", u"51", u"37"}}));
}

TEST(ScoreTable, TheSecondPlayerAloneDecidesOnThePluralOfAbandons) {
    struct Row {
        int mode, first, second;
        const char16_t *label;
    };
    for (const Row &row :
         {Row{1, 0, 9, u"Abandon :"}, Row{1, 1, 9, u"Abandon :"}, Row{1, 2, 0, u"Abandons :"},
          Row{3, 0, 2, u"Abandons :"}, Row{3, 3, 0, u"Abandon :"}, Row{3, 5, 1, u"Abandon :"}}) {
        Window window(row.mode);
        window.g.scores.Abandons = {0, row.first, row.second};
        EXPECT_EQ(window.table()[2][0], row.label) << row.mode << row.first << row.second;
    }
}

TEST(ScoreLabels, TellTheSettingsOfEachMode) {
    const auto labels = [](int mode, bool limited) {
        Window window(mode, limited);
        window.score.show();
        std::vector<Texte> texts;
        for (int i = 0; i < 4; ++i) {
            texts.push_back(window.score.Etiquette[i].Caption);
            texts.push_back(window.score.Resultat[i].Caption);
        }
        return texts;
    };
    const std::vector<Texte> one = {u" TITRE : ",
                                    u"Essai",
                                    u" NOMBRE DE MOT DE LA BASE           : ",
                                    u"40",
                                    u" TEMPS DE REFLEXION                 : ",
                                    u"45",
                                    u" NOMBRE D'ERREURS LIMITE A          : ",
                                    u"6"};
    EXPECT_EQ(labels(1, true), one);
    EXPECT_EQ(labels(3, true), one);
    std::vector<Texte> two = one;
    two[4] = u" TEMPS DE REFLEXION LIMITE          : ";
    two[5] = u"NON";
    two[6] = two[7] = u"";
    EXPECT_EQ(labels(2, false), two);
}

TEST(ScoreWindow, SpeaksThenFillsItsTableAndTakesTheFaces) {
    Window window(1);
    window.score.show();
    const Events events = window.windows.take();
    EXPECT_EQ(events.front(), "parole Score.Wav");
    EXPECT_EQ(window.score.CmdScore[0].Face.get(),
              window.g.dossiers.DossierImages + u"_Quitter.tga");
    EXPECT_EQ(window.score.CmdScore[1].Face.get(),
              window.g.dossiers.DossierImages + u"_IMPRIMER.tga");
    EXPECT_EQ(toUtf8(window.score.Horodatage), "Samedi, 07 mars 2026 à 14:05:09");
    EXPECT_TRUE(window.g.TexteMessage.empty());
    EXPECT_EQ(window.screen.MousePointer, 0);
}

TEST(ScoreWindow, EscapeLeavesAsTheButtonDoesAndTheRecordIsWrittenOnce) {
    Window window(1);
    window.score.show();
    window.press(Key::escape);
    EXPECT_FALSE(window.score.isLoaded());
    const Texte journal = u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT";
    const std::string once = window.folder.read(journal);
    EXPECT_FALSE(once.empty());
    EXPECT_FALSE(window.score.CmdScore[0].isOpen() && window.score.isShown());
    window.score.CmdScore_Click(0); // a second press finds the window gone
    EXPECT_EQ(window.folder.read(journal), once);
}

TEST(ScoreWindow, ClosedInAnyOtherWayWritesNoRecordAndClearsTheCountersAllTheSame) {
    Window window(3);
    window.g.scores.ChangementsTour = {0, 8, 9};
    window.score.show();
    window.score.requestClose();
    EXPECT_FALSE(window.folder.exists(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT"));
    const ScoresPartie &s = window.g.scores;
    EXPECT_EQ(s.NbMotsProposes, 0);
    for (const auto *counter :
         {&s.Score, &s.MotsTrouves, &s.MauvaisesLettres, &s.BonnesLettres, &s.Abandons}) {
        EXPECT_EQ((*counter)[1], 0);
        EXPECT_EQ((*counter)[2], 0);
    }
    EXPECT_EQ(s.ChangementsTour[1], 8); // never reset
    EXPECT_EQ(s.NbMotsBase, 40);
}

TEST(ScoreWindow, LeavesTheSharedTextEmptyAndNothingOfItselfWhenItGoes) {
    Window window(1);
    window.g.TexteMessage = u"ancien";
    window.score.show();
    EXPECT_EQ(toUtf8(window.g.TexteMessage), "");
    window.score.HauteurLigne = 12; // as a printing leaves it
    window.score.requestClose();
    EXPECT_EQ(window.score.HauteurLigne, 0);
    EXPECT_EQ(toUtf8(window.score.Horodatage), "");
    EXPECT_FALSE(window.score.PartieAEcrire);
    EXPECT_FALSE(window.score.ScoreNonEcrit);
}

TEST(ScoreWindow, GivesTheKeyboardToTheWayOut) {
    Window window(1);
    window.score.show();
    EXPECT_EQ(window.score.focus(), &window.score.CmdScore[0]);
}

TEST(ScoreWindow, ASecondShowingBeginsAnew) {
    Window window(1);
    window.score.show();
    window.press(Key::escape);
    window.clock.set({2026, 3, 7, 15, 0, 0});
    window.score.show();
    EXPECT_TRUE(window.score.PartieAEcrire);
    EXPECT_TRUE(window.score.ScoreNonEcrit);
    EXPECT_EQ(toUtf8(window.score.Horodatage), "Samedi, 07 mars 2026 à 15:00:00");
    EXPECT_EQ(window.score.LstScore.cell(1, 1), u"0");
}

} // namespace
} // namespace grimoval::test
