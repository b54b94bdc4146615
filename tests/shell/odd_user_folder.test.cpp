// SPDX-License-Identifier: GPL-3.0-or-later
// The per-user folder as it should not be: missing, closed, gone while the game runs, or with
// something else in the place of a file. Nothing waits, nothing is overwritten elsewhere.
#include "support/conditions.h"
#include "support/failures.h"
#include "support/odd_files.h"
#include "support/startup.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace grimoval::test::odd_user_folder {

namespace fs = std::filesystem;
const Texte user = u"donnees/Calvenor/Le Grimoval/";

struct OddUserFolder : testing::Test {
    // Its start; the failure that ends it, or 0.
    static int start(Startup &run) {
        const Deadline deadline(20);
        const int number = failureNumber([&] { EXPECT_EQ(run.run(), 0); });
        EXPECT_TRUE(run.windows.messages.empty());
        return number;
    }
    // No main window comes.
    static int refused(Startup &run) {
        run.windows.expectModal("frmSplash", [](Form &form) { form.unload(); });
        const Deadline deadline(20);
        const int number = failureNumber([&] { Main(run.g, run.all); });
        EXPECT_TRUE(run.windows.messages.empty());
        return number;
    }
};

TEST_F(OddUserFolder, ThatCannotBeThereEndsTheStartInTheFailureReport) {
    const struct {
        const char *what;
        const char16_t *name;
        int number;
    } rows[] = {
        {"", u"donnees", failure::pathNotFound}, // missing
        {"pipe", u"donnees", failure::pathNotFound},
        {"fullDevice", u"donnees", failure::pathNotFound},
        {"linkToItself", u"donnees", failure::pathNotFound},
        {"linkIntoNothing", u"donnees", failure::pathNotFound},
        {"pipe", u"donnees/Calvenor", failure::pathAccess},
        {"fullDevice", u"donnees/Calvenor", failure::pathAccess},
        {"linkToItself", u"donnees/Calvenor", failure::pathAccess},
        {"linkIntoNothing", u"donnees/Calvenor", failure::pathAccess},
        {"pipe", u"donnees/Calvenor/Le Grimoval", failure::pathAccess},
        {"linkIntoNothing", u"donnees/Calvenor/Le Grimoval", failure::pathAccess},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.what) + " " + toUtf8(row.name));
        Startup run;
        put(row.what, run.folder, row.name);
        EXPECT_EQ(refused(run), row.number);
    }
}

TEST_F(OddUserFolder, ThatMayNotBeWrittenEndsTheStartInTheFailureReport) {
    Startup fresh;
    fs::permissions(fresh.folder.bytePath(u"donnees"), fs::perms(0555));
    {
        const OrdinaryUser child;
        EXPECT_EQ(refused(fresh), failure::permissionDenied);
    }
    EXPECT_FALSE(fresh.folder.exists(u"donnees/Calvenor"));
    fs::permissions(fresh.folder.bytePath(u"donnees"), fs::perms(0755));

    Startup known;
    const std::string settings = "[Le Grimoval]\r\nMusic=0\r\nNombreJoueur=9\r\n";
    known.folder.write(Startup::settings, settings);
    fs::permissions(known.folder.bytePath(user), fs::perms(0555));
    {
        const OrdinaryUser child;
        EXPECT_EQ(refused(known), failure::permissionDenied);
    }
    EXPECT_EQ(known.g.son.MusiqueActive, 0); // what is there was read
    EXPECT_EQ(known.settingsFile(), settings);
    fs::permissions(known.folder.bytePath(user), fs::perms(0755));
}

TEST_F(OddUserFolder, WithSomethingElseForTheSettingsStartsWithTheDefaults) {
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        Startup run;
        put(odd, run.folder, Startup::settings);
        EXPECT_EQ(start(run), 0);
        EXPECT_EQ(run.g.reglages.TempsRéflexion, 20);
        EXPECT_EQ(run.g.son.ParoleActive, 1);
    }
}

TEST_F(OddUserFolder, WithSomethingElseForTheNewSettingsKeepsTheOldOnes) {
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        Startup run;
        run.folder.write(Startup::settings, "[Le Grimoval]\r\nNombreErreur=4\r\n");
        put(odd, run.folder, Texte(Startup::settings) + u"~");
        EXPECT_EQ(start(run), 0);
        EXPECT_EQ(run.g.reglages.NombreErreur, 4);
        EXPECT_NE(run.settingsFile().find("NombreErreur=4\r\n"), std::string::npos);
    }
}

TEST_F(OddUserFolder, WithSomethingElseForAWorkFileEndsTheStartInTheFailureReport) {
    for (const OddFile &odd : oddFiles()) {
        for (const char16_t *name : {u"~GRIMOVA.TMP", u"~GRIMV.TMP"}) {
            SCOPED_TRACE(odd.name + (" " + toUtf8(name)));
            Startup run;
            put(odd, run.folder, user + name);
            const int number = refused(run);
            EXPECT_TRUE(number == failure::pathAccess || number == failure::pathNotFound ||
                        number == failure::fileNotFound)
                << number;
        }
    }
}

TEST_F(OddUserFolder, ThatGoesWhileTheGameRunsTellsOfTheScoreAloneAndTheGameGoesOn) {
    Startup run;
    bool played = false;
    run.atMenu = [&] {
        fs::remove_all(run.folder.bytePath(u"donnees/Calvenor"));
        run.windows.expectModal("FOption", [&](Form &) { run.all.option.Cmd[0].userClick(); });
        EXPECT_TRUE(run.all.menu.CmdCfg[1].userClick());
        EXPECT_TRUE(run.windows.messages.empty());
        run.g.joueurs.NomJoueur[1] = Texte(u"DURAND");
        run.all.menu.LstMot[0].Items = {u"AB"};
        run.g.base.BaseChargee = true;
        run.all.menu.AfficherJoueurs();
        ASSERT_TRUE(run.all.menu.CmdTjr[2].userClick());
        run.all.menu.VsAlpha[0].userClick();
        run.all.menu.VsAlpha[1].userClick();
        run.windows.expectModal(
            "FScore2", [&](Form &) { EXPECT_TRUE(run.all.score.CmdScore[0].userClick()); });
        ASSERT_TRUE(run.all.menu.CmdTjr[0].userClick());
        ASSERT_EQ(run.windows.messages.size(), 1u);
        EXPECT_EQ(toUtf8(run.windows.messages[0].text),
                  "ERREUR 76\u00A0: Ce chemin d'accès n'existe pas.");
        EXPECT_TRUE(run.all.menu.CmdTjr[2].userClick()); // the next game
        EXPECT_EQ(toUtf8(run.all.menu.AffMot[0].Caption.get()), "##");
        played = true;
    };
    EXPECT_EQ(run.run(), 0);
    EXPECT_TRUE(played);
    EXPECT_FALSE(run.folder.exists(u"donnees/Calvenor"));
}

} // namespace grimoval::test::odd_user_folder
