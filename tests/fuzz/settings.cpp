// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/machine.h"
#include "platform/profile.h"
#include "shell/mdClvUtil.h"

#include <cmath>
#include <cstdlib>

namespace grimoval::fuzz {

namespace {

const Texte file = u"moi/GRIMOVA.INI";

// The number of a text, told a second time.
std::optional<double> plainNumber(const Texte &text) {
    std::string plain = toAnsi(text);
    for (char &c : plain) {
        c = c == ',' ? '.' : c;
    }
    const auto first = plain.find_first_of("0123456789");
    if (first == std::string::npos || plain.find_first_of("xXnNpP") != std::string::npos) {
        return {};
    }
    return std::strtod(plain.c_str() + (first > 0 && plain[first - 1] == '.' ? first - 1 : first),
                       nullptr);
}

// A key that is refused for want of room in 16 bits.
bool tooLarge(Machine &machine, const Texte &section, const Texte &key, double least) {
    const Texte text = readProfile(machine.files, machine.folder.path(file), section, key);
    const auto value = numericValue(text), again = plainNumber(text);
    if (!value) {
        return false;
    }
    law(again && (std::abs(*value) == *again ||
                  std::abs(std::abs(*value) - *again) <= std::abs(*again) * 1e-15),
        "a number is what it says");
    return *value >= least && !(*value > -32768.5 && *value < 32767.5);
}

void start(Globales &g) {
    LireConfigSon(g);
    LireConfigJeu(g);
}

} // namespace

void settings(std::string_view bytes) {
    Machine machine;
    Globales &g = machine.g;
    machine.folder.write(file, std::string(bytes));
    const double any = -HUGE_VAL;
    const bool overflow = tooLarge(machine, u"ConfigPC", u"ConfDep", any) ||
                          tooLarge(machine, u"Le Grimoval", u"RéflexionLimite", any) ||
                          tooLarge(machine, u"Le Grimoval", u"TempsRéflexion", 5);
    try {
        start(g);
    } catch (const Failure &failed) {
        law(failed.number == failure::overflow && overflow, "a value ends the start by its size");
        return;
    }
    law(!overflow, "a value beyond 16 bits ends the start");
    const Reglages &r = g.reglages;
    law(r.NombreJoueur >= 1 && r.NombreJoueur <= 3, "there is such a mode");
    law(r.TempsRéflexion >= 5 && r.NombreErreur >= 1 && r.NombreErreur <= 20,
        "a game can be played");
    for (const Int16 flag :
         {g.son.MusiqueActive, g.son.ParoleActive, g.son.MidiPresent, g.son.WavPresent}) {
        law(flag == 0 || flag == 1, "a switch is on or off");
    }
    // What was unusable has been mended in the file.
    const std::string mended = machine.folder.read(file);
    const Reglages before = r;
    start(g);
    law(before.NombreJoueur == r.NombreJoueur && before.RéflexionLimite == r.RéflexionLimite &&
            before.TempsRéflexion == r.TempsRéflexion && before.NombreErreur == r.NombreErreur,
        "a second start has the same settings");
    law(machine.folder.read(file) == mended, "a second start mends nothing");
    machine.windows.choix.show();
    machine.windows.option.show();
    machine.menu.show();
    machine.menu.InitialiserMot();
}

} // namespace grimoval::fuzz
