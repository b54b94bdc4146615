// SPDX-License-Identifier: GPL-3.0-or-later
// Reading bases and catalogues takes a time in proportion to their size.
#include "support/program.h"

#include <benchmark/benchmark.h>

namespace grimoval {
namespace {

struct Program : test::NoWindows, test::Program {
    Program() : test::Program(static_cast<test::NoWindows &>(*this)) {}
};

std::string words(int number) {
    std::string bytes;
    for (int i = 0; i < number; ++i) {
        TypeMot record;
        record.Mot = u"MOT" + decimal(i);
        bytes += record.ecrire();
    }
    return bytes;
}

void loadingAWordBase(benchmark::State &state) {
    const auto number = static_cast<int>(state.range(0));
    Program program;
    program.folder.write(u"MASK/GRAND.DBS", words(number));
    program.g.base.FichierBase = u"GRAND.DBS";
    for ([[maybe_unused]] auto _ : state) {
        ChargerMots(program.g, program.windows.menu, [](int) {});
    }
    if (program.windows.menu.LstMot[0].ListCount() != number) {
        state.SkipWithError("words are missing");
    }
    state.SetComplexityN(number);
}
BENCHMARK(loadingAWordBase)->RangeMultiplier(2)->Range(1024, 32767)->Complexity();

void openingACatalogue(benchmark::State &state) {
    const auto number = static_cast<int>(state.range(0));
    Program program;
    const std::string word = words(1);
    std::string list;
    for (int i = 1; i <= number; ++i) {
        // Against the order of the folder: a search through its names would like that least.
        const Texte name = u"B" + decimal(1000000 + number - i).substr(1);
        TypeBase record;
        record.Numero = i;
        record.NbMots = 1;
        record.Fichier = name;
        record.Titre = u"Titre " + decimal(i);
        record.Actif = 1;
        list += record.ecrire();
        program.folder.write(u"MASK/" + name + u".DBS", word);
    }
    program.folder.write(u"MASK/GRIMV.LST", list);
    for ([[maybe_unused]] auto _ : state) {
        program.windows.titres.load();
        if (program.windows.titres.LstTitre.ListCount() != number) {
            state.SkipWithError("bases are missing");
        }
        program.windows.titres.unload();
    }
    state.SetComplexityN(number);
}
BENCHMARK(openingACatalogue)->RangeMultiplier(2)->Range(125, 2000)->Complexity();

void preparingAGame(benchmark::State &state) {
    const auto number = static_cast<std::size_t>(state.range(0));
    Program program;
    program.windows.menu.LstMot[0].Items = std::vector<Texte>(number, u" MOT ");
    for ([[maybe_unused]] auto _ : state) {
        program.windows.menu.PreparerListe();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(preparingAGame)->RangeMultiplier(2)->Range(1024, 32767)->Complexity();

} // namespace
} // namespace grimoval
