// SPDX-License-Identifier: GPL-3.0-or-later
// Game after game in the real windows: what one takes it gives back. After a thousand of them the
// memory was 0.3 MB larger than after thirty.
#include "qt/bench.h"
#include "qt/memory.h"
#include "shell/mdAppData.h"
#include "support/program.h"

#include <filesystem>

namespace grimoval::test {
namespace {

class ManyGames : public testing::Test {
protected:
    ManyGames() {
        windows.guard().end = [](int status) { ADD_FAILURE() << "ended with " << status; };
        Globales &g = program.g;
        g.TitreAppli = u"Le Grimoval ";
        g.dossiers.DossierAppli = asFolder(fromUtf8(GRIMOVAL_SOUNDS "/.."));
        g.dossiers.DossierUtilisateur = asFolder(program.folder.path());
        DefinirRepertoires(g);
        g.reglages.RéflexionLimite = 1;
        g.reglages.TempsRéflexion = 20;
        g.reglages.NombreErreur = 6;
        for (std::size_t field = 1; field <= 4; ++field) {
            g.joueurs.NomJoueur[field] = u"NOM";
        }
        menu.show();
        menu.LstMot[0].Items = {u"CHAT", u"LAPIN", u"ÉLÉPHANT", u"CHÈVRE (FEMELLE)"};
        menu.DessTmp.PictureFile = g.dossiers.DossierImages + u"FERME.JPG";
        menu.VSDessin.PictureFile = menu.DessTmp.PictureFile;
        menu.VSDessin.Visible = true;
        g.base.BaseChargee = true;
        g.base.TitreBase = u"Essai";
        g.base.FichierBase = u"ESSAI.DBS";
        ready = QTest::qWaitForWindowActive(windows.windowOf(menu));
    }

    void click(PictureButton &button) {
        QTest::mouseClick(windows.windowOf(menu)->mirrorOf(&button)->widget(), Qt::LeftButton);
    }

    // Every letter until the word is over, then the next word or the end of the game.
    void play(int mode, int words) {
        program.g.reglages.NombreJoueur = mode;
        menu.AfficherJoueurs();
        click(menu.CmdTjr[2]);
        for (int word = 0; word < words; ++word) {
            ASSERT_TRUE(menu.CmdJeux[0].Inactif);
            for (char letter = 'A'; letter <= 'Z' && menu.CmdJeux[0].Inactif; ++letter) {
                QTest::keyClick(windows.windowOf(menu), letter);
            }
            ASSERT_FALSE(menu.CmdJeux[0].Inactif);
            if (word + 1 < words) {
                click(menu.CmdJeux[0]);
            }
        }
        QTimer whenShown;
        QObject::connect(&whenShown, &QTimer::timeout, [this] {
            FormWindow *score = windows.windowOf(program.windows.score);
            if (score != nullptr && score->isVisible()) {
                score->grab();
                QTest::keyClick(score, Qt::Key_Escape);
            }
        });
        whenShown.start(0);
        click(menu.CmdTjr[0]);
        Bench::settle();
        ++played;
    }

    static auto descriptors() {
        const std::filesystem::directory_iterator open("/proc/self/fd");
        return std::distance(begin(open), end(open));
    }

    Files files;
    QtWindows windows{files, fromUtf8(GRIMOVAL_SOUNDS "/..")};
    Program program{windows};
    FMenu &menu = program.windows.menu;
    bool ready = false;
    int played = 0;
};

TEST_F(ManyGames, TakeNoMoreMemoryAndNoMoreFilesThanOne) {
    ASSERT_TRUE(ready);
    const auto some = [this](int games) {
        for (int i = 0; i < games; ++i) {
            play(1 + i % 3, 2);
        }
    };
    some(9); // each mode has been played, and its pictures are read
    [[maybe_unused]] const auto memory = residentKilobytes();
    const auto open = descriptors();
    some(36);
    EXPECT_EQ(played, 45);
    EXPECT_EQ(descriptors(), open);
#ifndef __SANITIZE_ADDRESS__ // which keeps what is given back
    EXPECT_LT(residentKilobytes(), memory + 1'000);
#endif
}

} // namespace
} // namespace grimoval::test
