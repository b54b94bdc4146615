// SPDX-License-Identifier: GPL-3.0-or-later
// The window of a player's two names. The caller sets JoueurDemande and the fields, shows the
// window as a modal one, reads the fields back, and unloads it at the end: the window itself only
// hides.
#pragma once

#include "shell/CSTOUT1.h"

namespace grimoval {

class Fnom : public Fenetre {
public:
    explicit Fnom(Globales &g);

    // Answers left in ReponseFenetre.
    static constexpr int repondOk = 1, repondAnnuler = 2;

    Texte JoueurDemande; // "1er joueur" or "2ème joueur"

    void Cmd_Click(int index); // 0 OK, 1 cancel
    void Saisie_Change();
    void Saisie_KeyPress(int index, Int16 &keyAscii);

    Label NumJoueur{*this, "NumJoueur"};
    Label Etiquette1{*this, "Etiquette1"};
    Label Etiquette2{*this, "Etiquette2"};
    ControlArray<TextField, 0, 1> Saisie{*this, "Saisie"}; // name, first name
    ControlArray<PictureButton, 0, 1> Cmd{*this, "Cmd"};

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Paint() override;
    void Form_KeyDown(const Key &key) override;
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override;
};

} // namespace grimoval
