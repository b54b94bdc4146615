// SPDX-License-Identifier: GPL-3.0-or-later
#include "bases/FCHoix.h"

#include "shell/mdClvUtil.h"

#include <algorithm>

namespace grimoval {

namespace {

struct Mode {
    const char16_t *nom;
    const char16_t *suffixe; // of the label of the time
    bool erreurs;            // errors are limited
};

constexpr Mode modes[] = {
    {u"1 Joueur", u" par mot", true},
    {u"2 Joueurs jouant sur le même mot", u" par lettre", false},
    {u"2 Joueurs chacun son mot", u" par mot", true},
};

} // namespace

FCHoix::FCHoix(Globales &globales, Fnom &nom) : Fenetre(globales, "FCHoix"), nom_(nom) {
    Width = 7200;
    Height = 6000;
    parchment = true;
    Caption = Application::title;

    for (int i = 0; i < 3; ++i) {
        CmdNbPlay[i].place = {540, 480 + i * 570, 420, 420};
        CmdNbPlay[i].labelledBy = &TxtPlay[i];
        CmdNbPlay[i].Click = [this, i] { CmdNbPlay_Click(i); };
        TxtPlay[i].place = {1110, 480 + i * 570, 5550, 420};
        TxtPlay[i].Caption = modes[i].nom;
        TxtPlay[i].FontSize = 14;
        TxtPlay[i].Click = [this, i] { CmdNbPlay_Click(i); };
    }
    ConfActive.place = {540, 2325, 420, 420};
    ConfActive.labelledBy = &TxtActive;
    ConfActive.Click = [this] { ConfActive_Click(); };
    TxtActive.place = {1110, 2325, 5550, 420};
    TxtActive.Caption = u"Temps de réflexion limité";
    TxtActive.FontSize = 14;
    TxtActive.Click = [this] { ConfActive.userClick(); };
    BordLimit.place = {3810, 2910, 2850, 420};
    BordLimit.Caption = u"10 secondes";
    BordLimit.FontSize = 13;
    BordLimit.ToolTipText = u" par mot";
    TxtNbBad.place = {3810, 3570, 2850, 420};
    TxtNbBad.Caption = u"1 erreur";
    TxtNbBad.FontSize = 13;
    TxtNbBad.ToolTipText = u" par mot";
    TxtNbBad.Visible = false;

    DefReflec[0].place = {540, 2910, 3150, 420};
    DefReflec[0].labelledBy = &BordLimit;
    DefReflec[0].Min = 5;
    DefReflec[0].Max = 120;
    DefReflec[0].Value = 5;
    DefReflec[0].smallChange = 5;
    DefReflec[0].largeChange = 5;
    DefReflec[1].place = {540, 3570, 3150, 420};
    DefReflec[1].labelledBy = &TxtNbBad;
    DefReflec[1].Min = 1;
    DefReflec[1].Max = 20;
    DefReflec[1].Value = 1;
    DefReflec[1].smallChange = 1;
    DefReflec[1].largeChange = 5;
    DefReflec[1].Visible = false;
    for (ScrollBar &barre : DefReflec) {
        barre.Change = [this, &barre] { DefReflec_Change(barre.index()); };
    }
    poserBouton(Cmd[1], {900, 4500, 1800, 900}, u"OK", [this] { Cmd_Click(1); });
    poserBouton(Cmd[0], {4500, 4500, 1800, 900}, u"Annuler", [this] { Cmd_Click(0); });
}

void FCHoix::Form_Load() {
    const Reglages &r = g.reglages;
    ConfMode = r.NombreJoueur >= 1 ? r.NombreJoueur - 1 : 0;
    montrerMode();
    ConfLimite = r.RéflexionLimite;
    ConfActive.Value = ConfLimite;
    // A bar takes no value beyond its own: a longer time of the settings file is bounded here.
    ConfTemps = std::clamp<int>(r.TempsRéflexion, DefReflec[0].Min, DefReflec[0].Max);
    DefReflec[0].Value = ConfTemps;
    ConfErreurs = r.NombreErreur < 1 || r.NombreErreur > 20 ? Int16(6) : r.NombreErreur;
    DefReflec[1].Value = ConfErreurs;
    Cmd[0].Face = g.dossiers.DossierImages + u"_Annuler_ovale.tga";
    Cmd[1].Face = g.dossiers.DossierImages + u"_OK_ovale.tga";
    PlacerFenetre(*this, u"C");
}

void FCHoix::montrerMode() {
    for (int i = 0; i < 3; ++i) {
        const bool choisi = i == ConfMode;
        CmdNbPlay[i].BackColor = choisi ? colours::red : colours::green;
        CmdNbPlay[i].accessibleDescription = choisi ? u"choisi" : u"";
        TxtPlay[i].ForeColor = choisi ? colours::red : colours::black;
    }
    const Mode &mode = modes[ConfMode];
    BordLimit.Caption = BordLimit.ToolTipText.get() + mode.suffixe;
    TxtNbBad.Visible = mode.erreurs;
    DefReflec[1].Visible = mode.erreurs;
}

void FCHoix::CmdNbPlay_Click(int index) {
    if (ConfMode != index) {
        ConfMode = index;
        montrerMode();
    }
}

void FCHoix::ConfActive_Click() { ConfLimite = ConfActive.Value.get(); }

void FCHoix::DefReflec_Change(int index) {
    const int valeur = DefReflec[index].Value;
    if (index == 0) {
        ConfTemps = valeur;
        // Settled: the suffix of the mode comes back with the next click on a mode.
        BordLimit.Caption = decimal(valeur) + u" secondes";
        BordLimit.ToolTipText = BordLimit.Caption;
    } else {
        ConfErreurs = valeur;
        TxtNbBad.Caption =
            decimal(valeur) + (valeur <= 1 ? u" erreur" : u" erreurs") + TxtNbBad.ToolTipText.get();
    }
}

void FCHoix::Form_KeyDown(const Key &key) {
    if (key.code == Key::escape) {
        Cmd_Click(0);
    }
}

void FCHoix::Form_QueryUnload(bool &cancel, UnloadMode mode) {
    if (mode == UnloadMode::person) {
        cancel = true;
        Cmd_Click(0);
    }
}

void FCHoix::Form_Unload() {
    ConfLimite = 0;
    ConfTemps = 0;
    ConfErreurs = 0;
    ConfMode = 0;
    g.TexteMessage.clear();
}

void FCHoix::Cmd_Click(int index) {
    g.ReponseFenetre = 0;
    if (index == 0) {
        unload();
        return;
    }
    g.reglages.NombreJoueur = ConfMode + 1; // at once, before the names are asked
    if (!demanderNoms()) {
        return;
    }
    nom_.unload();
    g.ReponseFenetre = 0;
    g.reglages.RéflexionLimite = ConfLimite;
    g.reglages.TempsRéflexion = ConfTemps;
    g.reglages.NombreErreur = ConfErreurs;
    ecrireReglages();
    g.ReponseFenetre = 1;
    unload();
}

// False: cancelled, and this window stays open. Settled: the first player is refused by any answer
// but OK, the second by cancel alone; the first player's names stay changed.
bool FCHoix::demanderNoms() {
    auto &noms = g.joueurs.NomJoueur;
    const auto demander = [&](const Texte &joueur, std::size_t premier) {
        nom_.load();
        nom_.JoueurDemande = joueur;
        nom_.Saisie[0].Text = trim(noms[premier].text());
        nom_.Saisie[1].Text = trim(noms[premier + 1].text());
        g.ReponseFenetre = 0;
        nom_.showModal();
    };
    const auto retenir = [&](std::size_t premier) {
        noms[premier] = nom_.Saisie[0].Text.get();
        noms[premier + 1] = nom_.Saisie[1].Text.get();
    };
    demander(u"1er joueur", 1);
    if (g.ReponseFenetre != Fnom::repondOk) {
        g.ReponseFenetre = 0;
        return false;
    }
    retenir(1);
    if (g.reglages.NombreJoueur > 1) {
        demander(u"2ème joueur", 3);
        if (g.ReponseFenetre == Fnom::repondAnnuler) {
            return false;
        }
        retenir(3);
    }
    return true;
}

void FCHoix::ecrireReglages() {
    OuvrirReglages(g);
    EcrireCle(g, u"NombreJoueur", g.reglages.NombreJoueur);
    EcrireCle(g, u"RéflexionLimite", g.reglages.RéflexionLimite);
    EcrireCle(g, u"TempsRéflexion", g.reglages.TempsRéflexion);
    if (g.reglages.NombreJoueur != 2) {
        EcrireCle(g, u"NombreErreur", g.reglages.NombreErreur);
    }
}

} // namespace grimoval
