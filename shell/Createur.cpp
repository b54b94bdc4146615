// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Createur.h"

namespace grimoval::createur {

const char16_t *const nom = u"" GRIMOVAL_CREATEUR;
const char16_t *const ligne = u"" GRIMOVAL_LIGNE;
const char16_t *const courriel = u"" GRIMOVAL_COURRIEL;
const char16_t *const site = u"" GRIMOVAL_SITE;

} // namespace grimoval::createur
