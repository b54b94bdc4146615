// SPDX-License-Identifier: GPL-3.0-or-later
// The sound options: music and voice on or off. The window works on two values of its own; OK
// carries them over to the switches and the settings file, and Escape does the same.
#pragma once

#include "shell/CSTOUT1.h"

namespace grimoval {

class FOption : public Fenetre {
public:
    explicit FOption(Globales &g);

    void ConfTSons_Click(int index);
    void Etiquette_Click(int index);
    void Cmd_Click(int index); // 0 OK, 1 cancel

    Label EtiquetteTitre{*this, "EtiquetteTitre"};
    ControlArray<Label, 0, 1> Etiquette{*this, "Etiquette"};
    ControlArray<CheckBox, 0, 1> ConfTSons{*this, "ConfTSons"}; // music, voice
    ControlArray<PictureButton, 0, 1> Cmd{*this, "Cmd"};

    Int16 ChoixMusique, ChoixParole;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(const Key &key) override;
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override;
    void Form_Unload() override;
};

} // namespace grimoval
