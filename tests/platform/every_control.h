// SPDX-License-Identifier: GPL-3.0-or-later
// A window with one control of each kind.
#pragma once

#include "platform/form.h"

namespace grimoval::test {

struct EveryControl : Form {
    explicit EveryControl(Screen &screen) : Form(screen, "FEssai") {}

    Label label{*this, "Etiquette"};
    PictureButton button{*this, "Bouton"};
    LetterButton letter{*this, "Lettre", 7};
    Gauge gauge{*this, "Jauge"};
    List list{*this, "Liste"};
    CheckBox check{*this, "Case"};
    ScrollBar bar{*this, "Barre"};
    TextField field{*this, "Champ"};
    Picture picture{*this, "Image"};
    Shape shape{*this, "Forme"};
    Table table{*this, "Tableau"};
    Timer timer{*this, "Minuterie"};
};

} // namespace grimoval::test
