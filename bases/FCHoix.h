// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the game's configuration: mode, thinking time, errors allowed. The settings change
// only when the players' names have been given; then they are written at once.
#pragma once

#include "bases/Fnom.h"

namespace grimoval {

class FCHoix : public Fenetre {
public:
    FCHoix(Globales &g, Fnom &nom);

    void CmdNbPlay_Click(int index);
    void ConfActive_Click();
    void DefReflec_Change(int index);
    void Cmd_Click(int index); // 0 cancel, 1 OK

    ControlArray<Shape, 0, 2> CmdNbPlay{*this, "CmdNbPlay"};
    ControlArray<Label, 0, 2> TxtPlay{*this, "TxtPlay"};
    CheckBox ConfActive{*this, "ConfActive"};
    Label TxtActive{*this, "TxtActive"};
    Label BordLimit{*this, "BordLimit"};
    ControlArray<ScrollBar, 0, 1> DefReflec{*this, "DefReflec"}; // time, errors
    Label TxtNbBad{*this, "TxtNbBad"};
    ControlArray<PictureButton, 0, 1> Cmd{*this, "Cmd"};

    // Working values, apart from the settings until OK.
    Int16 ConfLimite, ConfTemps, ConfErreurs;
    Int16 ConfMode; // index, 0 to 2

protected:
    void Form_Load() override;
    void Form_KeyDown(const Key &key) override;
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override;
    void Form_Unload() override;

private:
    void montrerMode();
    bool demanderNoms();
    void ecrireReglages();

    Fnom &nom_;
};

} // namespace grimoval
