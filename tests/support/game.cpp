// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/game.h"

#include "shell/mdAppData.h"

#include <gtest/gtest.h>

namespace grimoval::test {

std::string wordRecords(const std::vector<Texte> &words) {
    std::string bytes;
    for (const Texte &word : words) {
        TypeMot record;
        record.Mot = word;
        bytes += record.ecrire();
    }
    return bytes;
}

std::string baseRecord(int number, int words, const Texte &file, const Texte &title,
                       const Texte &image, int active) {
    TypeBase record;
    record.Numero = number;
    record.NbMots = words;
    record.Fichier = file;
    record.Titre = title;
    record.Image = image;
    record.Actif = active;
    return record.ecrire();
}

Game::Game(bool folders) {
    if (folders) {
        for (const char16_t *name : {u"MASK", u"SONS", u"IMAGES"}) {
            folder.makeFolder(u"grimoval/" + Texte(name));
        }
        folder.makeFolder(u"donnees");
        TrouverDossierUtilisateur(g);
    }
    g.SautLigne = u"\n";
    g.TitreAppli = u"Le Grimoval ";
    g.dossiers.DossierAppli = asFolder(application.path());
    DefinirRepertoires(g);
    g.son.WavPresent = g.son.MidiPresent = g.son.ParoleActive = g.son.MusiqueActive = 1;
    menu.show();
    windows.take();
}

void Game::install(const std::vector<Base> &bases) {
    std::vector<outils::Theme> themes;
    for (const Base &base : bases) {
        outils::Theme theme{base.file, base.title, base.image, {}};
        for (const Texte &word : base.words) {
            theme.entrees.push_back({0, word});
        }
        themes.push_back(theme);
    }
    outils::construireBases(files, themes, g.dossiers.DossierBases);
}

void Game::write(const Texte &name, const std::string &bytes) const {
    folder.write(u"grimoval/" + name, bytes);
}

std::string Game::bytes(const Texte &name) const { return folder.read(u"grimoval/" + name); }

bool Game::there(const Texte &name) const { return folder.exists(u"grimoval/" + name); }

void Game::prepare(const Start &start) {
    g.reglages.NombreJoueur = start.mode;
    g.reglages.NombreErreur = start.errors;
    g.reglages.RéflexionLimite = start.limited ? 1 : 0;
    g.reglages.TempsRéflexion = start.seconds;
    for (std::size_t i = 0; i < start.names.size(); ++i) {
        g.joueurs.NomJoueur[i + 1] = start.names[i];
    }
    menu.LstMot[0].Items = start.words;
    g.base.BaseChargee = true;
    g.base.TitreBase = u"Essai";
    g.base.FichierBase = u"ESSAI.DBS";
    menu.AfficherJoueurs();
    windows.take();
}

void Game::start(const Start &start) {
    prepare(start);
    ASSERT_TRUE(menu.CmdTjr[2].userClick());
}

void Game::expectScore() {
    windows.expectModal("FScore2", [](Form &form) { form.requestClose(); });
}

void Game::stop() {
    expectScore();
    ASSERT_TRUE(menu.CmdTjr[0].userClick());
}

void Game::propose(const std::string &letters) {
    for (const char letter : letters) {
        ASSERT_TRUE(click(letter)) << letter;
    }
}

void Game::press(Key::Code code) {
    Key key;
    key.code = code;
    screen.active()->pressKey(key);
}

void Game::type(Form &form, const Texte &text) {
    for (const char16_t character : text) {
        form.pressKey(Key::typed(character));
    }
}

Events Game::prompts() {
    Events waves;
    for (const std::string &event : only(windows.take(), "parole ")) {
        waves.push_back(event.substr(7));
    }
    return waves;
}

void Game::expectNames(const Texte &family, const Texte &first) {
    windows.expectModal("Fnom", [=, this](Form &form) {
        names.Saisie[0].Text = u"";
        names.Saisie[1].Text = u"";
        type(form, family);
        press(Key::enter);
        type(form, first);
        press(Key::enter);
    });
}

void Game::expectTheme(int item) {
    windows.expectModal("FLstTitre", [=, this](Form &) {
        ASSERT_TRUE(titles.LstTitre.userSelect(item));
        ASSERT_TRUE(titles.CmdTitre[1].userClick());
    });
}

Events only(const Events &events, const std::string &beginning) {
    Events kept;
    for (const std::string &event : events) {
        if (event.starts_with(beginning)) {
            kept.push_back(event);
        }
    }
    return kept;
}

std::string shown(const Property<Texte> &text) { return toUtf8(text.get()); }

} // namespace grimoval::test
