// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/machine.h"
#include "platform/profile.h"
#include "shell/mdClvUtil.h"

#include <cmath>
#include <cstdlib>
#include <optional>

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

// The number that the file holds for a key.
std::optional<double> numberOf(Machine &machine, const Texte &section, const Texte &key) {
    const Texte text = readProfile(machine.files, machine.folder.path(file), section, key);
    const auto value = numericValue(text), again = plainNumber(text);
    law(!value || (again && std::abs(std::abs(*value) - *again) <= std::abs(*again) * 1e-15),
        "a number is what it says");
    return value;
}

constexpr double most = 1.7e308; // no bound

// A setting told a second time.
struct Expected {
    Expected(Machine &machine, const Texte &section, const Texte &key, double least, double largest,
             int otherwise)
        : value(otherwise) {
        const auto number = numberOf(machine, section, key);
        if (number && *number >= least && *number <= largest) {
            value = std::nearbyint(*number); // halves to the even neighbour
        }
    }
    bool tooLarge() const { return value < -32768 || value > 32767; }
    bool operator==(int other) const { return value == other; }

    double value;
};

// A switch is on for any number but zero.
int expectedSwitch(Machine &machine, const Texte &key) {
    return numberOf(machine, u"Le Grimoval", key) == 0.0 ? 0 : 1;
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
    const Texte game = u"Le Grimoval";
    const Expected players(machine, game, u"NombreJoueur", 1, 3, 1);
    const Expected errors(machine, game, u"NombreErreur", 1, 20, 6);
    const Expected time(machine, game, u"TempsRéflexion", 5, most, 20);
    const Expected limit(machine, game, u"RéflexionLimite", -most, most, 1);
    const Expected other(machine, u"ConfigPC", u"ConfDep", -most, most, -1);
    const int music = expectedSwitch(machine, u"Music"), voice = expectedSwitch(machine, u"Parole");
    const bool overflow = time.tooLarge() || limit.tooLarge() || other.tooLarge();
    try {
        start(g);
    } catch (const Failure &failed) {
        law(failed.number == failure::overflow && overflow, "a value ends the start by its size");
        return;
    }
    law(!overflow, "a value beyond 16 bits ends the start");
    const Reglages &r = g.reglages;
    law(players == r.NombreJoueur && errors == r.NombreErreur && time == r.TempsRéflexion &&
            limit == r.RéflexionLimite && other == g.son.ConfDep,
        "a setting is what the file tells, or the usual one");
    law(g.son.MusiqueActive == music && g.son.ParoleActive == voice, "a switch is on or off");
    law(g.son.MidiPresent == 1 && g.son.WavPresent == 1, "the machine has its devices");
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
