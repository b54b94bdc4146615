// SPDX-License-Identifier: GPL-3.0-or-later
// How many letters a second the game takes without a screen.
#include "support/program.h"

#include <benchmark/benchmark.h>

namespace grimoval {
namespace {

void proposingLetters(benchmark::State &state) {
    test::NoWindows system;
    test::Program program(system);
    Globales &g = program.g;
    FMenu &menu = program.windows.menu;
    const std::vector<Texte> words = {u"CHAT",     u"LAPIN",       u"CHÈVRE (FEMELLE)",
                                      u"ÉLÉPHANT", u"HIPPOPOTAME", u"ARC-EN-CIEL"};
    menu.show();
    g.reglages.RéflexionLimite = 0;
    g.son.WavPresent = g.son.ParoleActive = 1;
    g.base.BaseChargee = true;
    g.joueurs.NomJoueur[1] = u"DURAND";
    menu.LstMot[0].Items = words;
    menu.AfficherJoueurs();
    menu.CmdTjr[2].userClick();
    std::int64_t letters = 0;
    std::size_t word = 0;
    for ([[maybe_unused]] auto _ : state) {
        // As children try them: the most usual first, until the word is found or lost.
        for (const char16_t letter : Texte(u"ESARTINULODCPMVGFBQHXJYZKW")) {
            letters += menu.VsAlpha[letter - u'A'].userClick() ? 1 : 0;
        }
        menu.LstMot[1].Items = {words[++word % words.size()]};
        if (!menu.CmdJeux[0].userClick()) {
            state.SkipWithError("the word does not end");
        }
        // The counters are numbers of 16 bits.
        g.scores = ScoresPartie();
        g.scores.NbMotsProposes = 1;
        g.scores.NbMotsBase = 6;
    }
    state.SetItemsProcessed(letters);
}
BENCHMARK(proposingLetters);

} // namespace
} // namespace grimoval
