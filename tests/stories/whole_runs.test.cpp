// SPDX-License-Identifier: GPL-3.0-or-later
// Whole runs over real files: from the splash to the end of the process, and once more.
#include "support/game.h"
#include "support/startup.h"

#include <gtest/gtest.h>

namespace grimoval::test::whole_runs {

struct WholeRun : testing::Test {
    std::vector<std::string> scores; // the tables of the score windows, row by row

    static void install(Startup &run) {
        run.folder.write(u"grimoval/MASK/LETTRES.DBS", wordRecords({u"AB", u"CD", u"EF", u"GH"}));
        run.folder.write(u"grimoval/MASK/GRIMV.LST", baseRecord(1, 4, u"LETTRES", u"Des lettres"));
        run.folder.write(u"grimoval/IMAGES/IMG01.BMP", "BM");
    }
    // Mode, names, theme.
    static void expectWayIn(Startup &run, int mode) {
        run.windows.expectModal("FCHoix", [&run, mode](Form &) {
            run.all.choix.TxtPlay[mode - 1].userClick();
            run.all.choix.Cmd[1].userClick();
        });
        for (int player = 1; player <= (mode == 1 ? 1 : 2); ++player) {
            run.windows.expectModal("Fnom", [&run, player](Form &form) {
                for (int field = 0; field < 2; ++field) {
                    form.setFocus(run.all.nom.Saisie[field]);
                    for (const char16_t c : player == 1 ? Texte(u"abc") : Texte(u"xyz")) {
                        form.pressKey(Key::typed(c));
                    }
                }
                EXPECT_TRUE(run.all.nom.Cmd[0].userClick());
            });
        }
        run.windows.expectModal(
            "FLstTitre", [&run](Form &) { EXPECT_TRUE(run.all.titres.CmdTitre[1].userClick()); });
    }
    void expectScore(Startup &run) {
        run.windows.expectModal("FScore2", [this, &run](Form &) {
            for (const auto &row : run.all.score.LstScore.Rows.get()) {
                scores.push_back(shownValue(row));
            }
            EXPECT_TRUE(run.all.score.CmdScore[0].userClick());
        });
    }
    static void type(Startup &run, const std::string &letters) {
        for (const char letter : letters) {
            run.all.menu.pressKey(letter == '\n' ? Key{Key::enter}
                                                 : Key::typed(static_cast<char16_t>(letter)));
        }
    }
};

TEST_F(WholeRun, PlaysAGameOfEachModeToTheUsedUpList) {
    const struct {
        int mode;
        const char *keys; // Enter for the next word
        std::vector<std::string> table;
    } rows[] = {
        {1,
         "abxy\ncd\nqrstuv\ngh\n",
         {R"("Nom et prénom :" "ABC ABC")", R"("Mots proposés :" "4")", R"("Abandon :" "0")",
          R"("Mots non trouvés :" "1")", R"("Mauvaises lettres :" "6")",
          R"("Bonnes lettres :" "6")", R"("Mots trouvés :" "3")", R"("Score :" "21")"}},
        {2,
         "axb\ncd\nxyef\ngh\n",
         {R"("Nom et prénom :" "ABC ABC" "XYZ  XYZ")", R"("Mots proposés :" "4" "4")",
          R"("Mauvaises lettres :" "2" "1")", R"("Bonnes lettres :" "7" "1")",
          R"("Mots trouvés :" "3" "1")", R"("Score :" "22" "6")"}},
        {3,
         "axbcd\nefyzgh\n",
         {R"("Nom et prénom :" "ABC ABC" "XYZ  XYZ")", R"("Mots proposés :" "2" "2")",
          R"("Abandon :" "0" "0")", R"("Mots non trouvés :" "0" "0")",
          R"("Mauvaises lettres :" "2" "2")", R"("Bonnes lettres :" "4" "4")",
          R"("Mots trouvés :" "2" "2")", R"("Score :" "14" "14")"}},
    };
    for (const auto &row : rows) {
        Startup run;
        install(run);
        scores.clear();
        run.atMenu = [&] {
            expectWayIn(run, row.mode);
            ASSERT_TRUE(run.all.menu.CmdTjr[2].userClick());
            expectScore(run);
            type(run, row.keys);
            EXPECT_EQ(run.windows.messages.size(), 1u) << row.mode; // all words proposed
            EXPECT_FALSE(run.all.menu.CmdTjr[2].Inactif);
        };
        EXPECT_EQ(run.run(), 0);
        EXPECT_EQ(scores, row.table) << row.mode;
        // The game was recorded and the settings kept.
        EXPECT_TRUE(run.folder.exists(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT"));
        EXPECT_NE(run.settingsFile().find("NombreJoueur=" + std::to_string(row.mode) + "\r\n"),
                  std::string::npos);
    }
}

TEST_F(WholeRun, FindsTheSettingsOfTheOneBefore) {
    Startup first;
    install(first);
    first.atMenu = [&] {
        first.windows.expectModal("FCHoix", [&](Form &) {
            first.all.choix.TxtPlay[2].userClick();
            first.all.choix.DefReflec[0].userScroll(75);
            first.all.choix.DefReflec[1].userScroll(9);
            first.all.choix.ConfActive.userClick();
            first.all.choix.Cmd[1].userClick();
        });
        for (int player = 0; player < 2; ++player) {
            first.windows.expectModal("Fnom", [&](Form &) {
                first.all.nom.Saisie[0].Text = u"A";
                first.all.nom.Saisie[1].Text = u"B";
                first.all.nom.Cmd[0].userClick();
            });
        }
        ASSERT_TRUE(first.all.menu.CmdCfg[0].userClick());
    };
    EXPECT_EQ(first.run(), 0);
    const std::string kept = first.settingsFile();
    EXPECT_EQ(kept, "[ConfigPC]\r\nConfDep=-1\r\nWavPr\xE9sent=1\r\nMidiPr\xE9sent=1\r\n"
                    "[Le Grimoval]\r\nMusic=1\r\nParole=1\r\nNombreJoueur=3\r\nR\xE9"
                    "flexionLimite=0\r\nTempsR\xE9"
                    "flexion=75\r\nNombreErreur=9\r\n");
    Startup second;
    install(second);
    second.folder.write(Startup::settings, kept);
    EXPECT_EQ(second.run(), 0);
    EXPECT_EQ(second.g.reglages.NombreJoueur, 3);
    EXPECT_EQ(second.g.reglages.RéflexionLimite, 0);
    EXPECT_EQ(second.g.reglages.TempsRéflexion, 75);
    EXPECT_EQ(second.g.reglages.NombreErreur, 9);
    EXPECT_EQ(second.settingsFile(), kept);
    // The names are not kept.
    EXPECT_EQ(second.g.joueurs.NomJoueur[1].text(), Texte(15, u' '));
}

TEST_F(WholeRun, StopsInTheChooserWhenTheCatalogueFails) {
    Startup run; // its catalogue has one byte
    run.folder.write(u"grimoval/MASK/LETTRES.DBS", wordRecords({u"AB"}));
    bool after = false;
    run.atMenu = [&] {
        run.all.menu.CmdBase.userClick();
        after = true;
    };
    EXPECT_EQ(run.run(), 0); // the process ends in good order
    EXPECT_FALSE(after);
    ASSERT_EQ(run.windows.messages.size(), 1u);
    EXPECT_EQ(toUtf8(run.windows.messages[0].title), "ERREUR : 63");
}

TEST_F(WholeRun, LeavesByTheQuitQuestionWithTheScoreOfTheRunningGame) {
    Startup run;
    install(run);
    run.atMenu = [&] {
        expectWayIn(run, 1);
        ASSERT_TRUE(run.all.menu.CmdTjr[2].userClick());
        type(run, "a");
        run.windows.expectModal("Fmsg1", [&](Form &form) { form.pressKey(Key{Key::enter}); });
        expectScore(run);
        run.all.menu.requestClose();
        EXPECT_FALSE(run.all.menu.isLoaded());
    };
    EXPECT_EQ(run.run(), 0);
    EXPECT_EQ(scores.back(), R"("Score :" "1")");
    const Events prompts = only(run.windows.take(), "parole");
    EXPECT_EQ(prompts, (Events{"parole CALVENO.Wav", "parole AttCaCOm.Wav", "parole Quitter.Wav",
                               "parole Score.Wav", "parole AlaProch.Wav"}));
}

} // namespace grimoval::test::whole_runs
