// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/machine.h"

#include <algorithm>

namespace grimoval::fuzz {

namespace {

bool letter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }

// What is shown of a word as it comes: a mask for each letter before the clue.
Texte covered(const Texte &word) {
    Texte shown = word;
    std::replace_if(shown.begin(),
                    shown.begin() +
                        static_cast<std::ptrdiff_t>(std::min(word.find(u'('), word.size())),
                    letter, u'#');
    return shown;
}

struct Play {
    Machine &machine;
    std::vector<Texte> left; // words that can still be drawn
    FMenu &menu = machine.menu;

    void game(int mode) {
        machine.g.reglages.NombreJoueur = mode;
        machine.g.base.BaseChargee = true;
        for (std::size_t i = 1; i <= 4; ++i) {
            machine.g.joueurs.NomJoueur[i] = Texte(u"NOM");
        }
        law(menu.AfficherJoueurs(), "players with names can play");
        menu.show();
        menu.CmdTjr_Click(2);
        while (machine.messages.empty() && word(mode)) {
        }
        law(machine.messages.size() < 2, "the list is used up once");
    }

    // False when there is no way on but to leave.
    bool word(int mode) {
        for (const std::size_t slot : {std::size_t{1}, std::size_t{2}}) {
            if (slot == 2 && mode != 3) {
                continue;
            }
            const auto drawn = std::find(left.begin(), left.end(), menu.MotCherche[slot]);
            law(drawn != left.end(), "a word is one of the base, and comes no oftener than there");
            left.erase(drawn);
            law(menu.MotAffiche[slot] == covered(menu.MotCherche[slot]), "letters are masked");
        }
        law(menu.AffMot[0].Caption.get() == menu.MotAffiche[1], "the first word is on view");
        for (int index = 0; index < 26 * (mode == 3 ? 2 : 1); ++index) {
            const std::size_t slot = mode == 3 && menu.JoueurCourant == 2 ? 2 : 1;
            menu.VsAlpha[index % 26].userClick();
            consistent(slot);
        }
        // A word given back comes once more; then nothing is left to be learnt from it.
        return mode == 1 && (menu.CmdJeux[0].userClick() ||
                             (menu.CmdJeux[1].userClick() && menu.CmdJeux[0].userClick()));
    }

    void consistent(std::size_t slot) {
        const Texte &word = menu.MotCherche[slot], &shown = menu.MotAffiche[slot];
        law(word.size() == shown.size(), "a word keeps its length");
        for (std::size_t i = 0; i < word.size(); ++i) {
            law(shown[i] == word[i] || (shown[i] == u'#' && letter(word[i])),
                "a letter is masked or itself");
        }
    }
};

} // namespace

void words(std::string_view bytes) {
    Machine machine;
    machine.folder.write(u"MASK/ESSAI.DBS", std::string(bytes));
    const std::vector<PlainRecord> records = plainRecords(bytes, 84);
    law(CompterMots(machine.g, u"essai.dbs") == static_cast<int>(records.size()),
        "words are counted as whole records");
    machine.g.base.FichierBase = u"ESSAI.DBS";
    ChargerMots(machine.g, machine.menu, [](int) { law(false, "a record can be read"); });
    const std::vector<Texte> read = machine.menu.LstMot[0].Items;
    law(read.size() == records.size(), "all words are there");
    for (std::size_t i = 0; i < read.size(); ++i) {
        law(toAnsi(read[i]) == records[i].text(2, 30), "a word is that of its record");
    }
    if (read.empty()) {
        return;
    }
    for (const char byte : bytes.substr(0, 64)) {
        machine.random.numbers.push_back(static_cast<float>(static_cast<unsigned char>(byte)) /
                                         256);
    }
    const int mode = 1 + static_cast<int>(bytes.size() % 3);
    if (mode < 3 || read.size() > 1) {
        Play{machine, read}.game(mode);
    }
}

} // namespace grimoval::fuzz
