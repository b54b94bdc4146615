// SPDX-License-Identifier: GPL-3.0-or-later
// The window about the program: its maker's lines, a button to the web site, a mail to the support.
#pragma once

#include "shell/CSTOUT1.h"

namespace grimoval {

class FAbout : public Fenetre {
public:
    explicit FAbout(Globales &g);

    void RemplirAPropos();
    void CmdABout_Click(int index); // 0 close, 1 web site
    void Command2_Click();

    ControlArray<Label, 0, 2> Txt{*this, "Txt"};
    ControlArray<Label, 2, 2> VsAbout{*this, "VsAbout"};
    ControlArray<PictureButton, 0, 1> CmdABout{*this, "CmdABout"};
    PictureButton Command2{*this, "Command2"}; // a plain button, without a face

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Paint() override;
    void Form_KeyDown(const Key &key) override;
};

} // namespace grimoval
