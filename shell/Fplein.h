// SPDX-License-Identifier: GPL-3.0-or-later
// The backdrop of large screens, a night landscape under every other window for the life of the
// program.
#pragma once

#include "shell/Globales.h"

namespace grimoval {

class Fplein : public Form {
public:
    explicit Fplein(Globales &g) : Form(g.services.screen, "Fplein") {
        backdrop = true;
        Width = g.services.screen.Width();
        Height = g.services.screen.Height();
    }

protected:
    void Form_Load() override {
        BackColor = Colour{0x000040};
        WindowState = 2;
    }
};

} // namespace grimoval
