// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/machine.h"

#include <algorithm>

namespace grimoval::fuzz {

namespace {

std::size_t linesOf(const std::string &text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// The record of a game in the log.
std::string record(Machine &machine) {
    machine.windows.score.load();
    machine.windows.score.EcrireScore();
    const std::string text = machine.folder.read(u"moi/SCORGRIM.TXT");
    machine.windows.score.unload();
    machine.files.remove(machine.folder.path(u"moi/SCORGRIM.TXT"));
    return text;
}

} // namespace

// Two texts, parted by a NUL, pasted into the two fields.
void names(std::string_view bytes) {
    Machine machine;
    Globales &g = machine.g;
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    const Texte pasted[] = {fromUtf8(bytes.substr(0, end)),
                            fromUtf8(bytes.substr(std::min(end + 1, bytes.size())))};
    const std::string plain = record(machine);
    bool confirmed = false;
    machine.person = [&](Form &) {
        Fnom &window = machine.windows.nom;
        for (int i = 0; i < 2; ++i) {
            window.Saisie[i].userType(pasted[i]);
            law(window.Saisie[i].Text.get().size() <= 13, "a name has its length");
        }
        confirmed = window.Cmd[0].userClick();
    };
    g.reglages.NombreJoueur = 1;
    machine.windows.choix.load();
    machine.windows.choix.show();
    machine.windows.choix.CmdNbPlay_Click(0);
    machine.windows.choix.Cmd[1].userClick();
    law(confirmed == (g.ReponseFenetre == 1), "names are taken when they are confirmed");
    if (!confirmed) {
        return;
    }
    law(!trim(g.joueurs.NomJoueur[1].text()).empty() &&
            !trim(g.joueurs.NomJoueur[2].text()).empty(),
        "what is confirmed is no blank");
    law(machine.menu.AfficherJoueurs(), "who has a name can play");
    const std::string named = record(machine);
    law(linesOf(named) == linesOf(plain), "a name stays in its line");
    law(std::none_of(
            named.begin(), named.end(),
            [](char c) { return static_cast<unsigned char>(c) < 32 && c != '\r' && c != '\n'; }),
        "a name is made of characters");
}

} // namespace grimoval::fuzz
