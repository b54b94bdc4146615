// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmSplash.h"

#include "shell/Createur.h"

namespace grimoval {

frmSplash::frmSplash(Globales &g) : Form(g.services.screen, "frmSplash") {
    Width = 6555;
    Height = 2565;
    centred = true;
    Caption = Application::title;

    Frame1.place = {0, 0, 6555, 2565};
    imgLogo.place = {300, 390, 1785, 1785};
    imgLogo.design = "logo";
    M.place = {2250, 600, 4155, 900};
    M.Caption = u"Le Grimoval";
    M.FontSize = 30;
    M.bold = true;
    M.look = Label::Look::title;
    M.ForeColor = colours::white;
    lblCopyright.place = {2250, 1560, 4155, 360};
    lblCopyright.FontSize = 11;
    lblCopyright.ForeColor = colours::white;

    const auto fermer = [this] { unload(); };
    Frame1.Click = fermer;
    imgLogo.Click = fermer;
    M.Click = fermer;
    lblCopyright.Click = fermer;
}

void frmSplash::Form_Load() { lblCopyright.Caption = createur::ligne; }

void frmSplash::Form_KeyPress(Int16 & /*keyAscii*/) { unload(); }

} // namespace grimoval
