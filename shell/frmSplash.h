// SPDX-License-Identifier: GPL-3.0-or-later
// The splash: waits for a key or a click, and no timer closes it.
#pragma once

#include "shell/Globales.h"

namespace grimoval {

class frmSplash : public Form {
public:
    explicit frmSplash(Globales &g);

    Label Frame1{*this, "Frame1"}; // the background
    Picture imgLogo{*this, "imgLogo"};
    Label M{*this, "M"};
    Label lblCopyright{*this, "lblCopyright"};

protected:
    void Form_Load() override;
    void Form_KeyPress(Int16 &keyAscii) override;
};

} // namespace grimoval
