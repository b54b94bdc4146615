// SPDX-License-Identifier: GPL-3.0-or-later
// The game's own question box, and its one use, the question whether to quit.
#pragma once

#include "shell/CSTOUT1.h"

namespace grimoval {

class Fmsg1 : public Fenetre {
public:
    explicit Fmsg1(Globales &g);

    void CmdMsg_Click(int index);

    Label TxtMsg{*this, "TxtMsg"};
    ControlArray<PictureButton, 1, 2> CmdMsg{*this, "CmdMsg"}; // yes, no
    Picture BmpMsg{*this, "BmpMsg"};
    Timer MinutFlash{*this, "MinutFlash"};

protected:
    void Form_KeyPress(Int16 &keyAscii) override;
    void Form_KeyDown(const Key &key) override;
    void Form_Unload() override;
};

// Shows the box as a modal window; the answer is in ReponseFenetre. `genre` 2 is the layout of yes
// and no, the only one in use: 1 and 3 speak of buttons that the window does not hold. `defaut` and
// `titre` change nothing.
void AfficherMessage(Globales &g, Fmsg1 &fenetre, const Texte &texte, const Int16 &genre,
                     const Int16 &defaut, const Texte &titre);

void DemanderQuitter(Globales &g, Fmsg1 &fenetre);

} // namespace grimoval
