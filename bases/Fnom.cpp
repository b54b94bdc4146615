// SPDX-License-Identifier: GPL-3.0-or-later
#include "bases/Fnom.h"

#include "shell/GLBPAROL.h"

namespace grimoval {

Fnom::Fnom(Globales &globales) : Fenetre(globales, "Fnom") {
    Width = 5700;
    Height = 3900;
    parchment = true;
    Caption = Application::title;

    // clang-format off
    NumJoueur.place  = {450,  420, 4800, 480};
    Etiquette1.place = {450, 1140, 1350, 480};
    Saisie[0].place  = {1890, 1110, 3360, 540};
    Etiquette2.place = {450, 1860, 1350, 480};
    Saisie[1].place  = {1890, 1830, 3360, 540};
    // clang-format on
    NumJoueur.FontSize = 16;
    NumJoueur.bold = true;
    NumJoueur.alignment = Alignment::centre;
    Etiquette1.Caption = u"Nom :";
    Etiquette2.Caption = u"Prénom :";
    for (Label *etiquette : {&Etiquette1, &Etiquette2}) {
        etiquette->FontSize = 14;
        etiquette->alignment = Alignment::right;
    }
    Saisie[0].labelledBy = &Etiquette1;
    Saisie[1].labelledBy = &Etiquette2;
    for (TextField &champ : Saisie) {
        champ.Text = u"1234567890123"; // never seen: the caller sets both
        champ.maxLength = 13;
        champ.Change = [this] { Saisie_Change(); };
        champ.KeyPress = [this, &champ](Int16 &keyAscii) {
            Saisie_KeyPress(champ.index(), keyAscii);
        };
    }
    poserBouton(Cmd[0], {600, 2700, 1650, 825}, u"OK", [this] { Cmd_Click(0); });
    poserBouton(Cmd[1], {3450, 2700, 1650, 825}, u"Annuler", [this] { Cmd_Click(1); });
}

void Fnom::Form_Load() {
    Cmd[1].Face = g.dossiers.DossierImages + u"_Annuler_ovale.tga";
    Cmd[0].Face = g.dossiers.DossierImages + u"_OK_ovale.tga";
    PlacerFenetre(*this, u"C");
}

void Fnom::Form_Activate() { NumJoueur.Caption = JoueurDemande; }

// Settled: a repaint while the second field is being filled sends the focus home.
void Fnom::Form_Paint() {
    Fenetre::Form_Paint();
    setFocus(Saisie[0]);
}

void Fnom::Form_KeyDown(const Key &key) {
    if (key.code == Key::escape) {
        Cmd_Click(1);
    }
}

void Fnom::Form_QueryUnload(bool &cancel, UnloadMode mode) {
    if (mode == UnloadMode::person) {
        cancel = true;
        Cmd_Click(1);
    }
}

void Fnom::Saisie_Change() {
    const bool incomplet = trim(Saisie[0].Text.get()).empty() || trim(Saisie[1].Text.get()).empty();
    if (Cmd[0].Inactif != incomplet) {
        Cmd[0].Inactif = incomplet;
    }
}

void Fnom::Saisie_KeyPress(int index, Int16 &keyAscii) {
    if (keyAscii != Key::enter) {
        keyAscii = ansiCode(upper(fromAnsiCode(keyAscii)));
        return;
    }
    keyAscii = 0;
    if (index == 0) {
        setFocus(Saisie[1]);
    } else if (!Cmd[0].Inactif) {
        Cmd_Click(0);
    }
}

void Fnom::Cmd_Click(int index) {
    if (index == 1) {
        g.ReponseFenetre = repondAnnuler;
        hide();
        return;
    }
    for (TextField &champ : Saisie) {
        if (trim(champ.Text.get()).empty()) {
            JouerErreur(g);
            setFocus(champ);
            return;
        }
    }
    g.ReponseFenetre = repondOk;
    hide();
}

} // namespace grimoval
