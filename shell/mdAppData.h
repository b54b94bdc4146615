// SPDX-License-Identifier: GPL-3.0-or-later
// The folders: what was installed, and what is written for the user.
#pragma once

#include "shell/Globales.h"

namespace grimoval {

// Sets DossierUtilisateur, making its two levels as needed; a folder that cannot be made is an
// untrapped failure. Without a per-user place it is the application's path as it stands.
void TrouverDossierUtilisateur(Globales &g);

// Forms the other folder strings from DossierAppli and DossierUtilisateur. Always true.
bool DefinirRepertoires(Globales &g);

} // namespace grimoval
