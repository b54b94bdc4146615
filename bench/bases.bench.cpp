// SPDX-License-Identifier: GPL-3.0-or-later
// Reading bases and catalogues takes a time in proportion to their size; beside it what the disk
// asks for the same files.
#include "support/program.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

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

void writeABase(Program &program, int number) {
    program.folder.write(u"MASK/GRAND.DBS", words(number));
}

void loadingAWordBase(benchmark::State &state) {
    const auto number = static_cast<int>(state.range(0));
    Program program;
    writeABase(program, number);
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

void readingTheBytesOfAWordBase(benchmark::State &state) {
    const auto number = static_cast<int>(state.range(0));
    Program program;
    writeABase(program, number);
    const std::string file = program.folder.bytePath(u"MASK/GRAND.DBS");
    std::string bytes;
    for ([[maybe_unused]] auto _ : state) {
        std::ifstream stream(file, std::ios::binary);
        bytes.resize(std::filesystem::file_size(file));
        stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        benchmark::DoNotOptimize(bytes.data());
    }
    if (bytes.size() != static_cast<std::size_t>(number) * TypeMot::taille) {
        state.SkipWithError("bytes are missing");
    }
}
BENCHMARK(readingTheBytesOfAWordBase)->Arg(32767);

void writeACatalogue(Program &program, int number) {
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
}

void openingACatalogue(benchmark::State &state) {
    const auto number = static_cast<int>(state.range(0));
    Program program;
    writeACatalogue(program, number);
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
BENCHMARK(openingACatalogue)->Arg(200);

void listingAndSizingACatalogue(benchmark::State &state) {
    const auto number = static_cast<std::size_t>(state.range(0));
    Program program;
    writeACatalogue(program, static_cast<int>(number));
    const std::string folder = program.folder.bytePath(u"MASK");
    std::size_t found = 0;
    for ([[maybe_unused]] auto _ : state) {
        std::uintmax_t bytes = 0;
        found = 0;
        for (const auto &entry : std::filesystem::directory_iterator(folder)) {
            bytes += entry.file_size();
            ++found;
        }
        benchmark::DoNotOptimize(bytes);
    }
    if (found != number + 1) {
        state.SkipWithError("files are missing");
    }
}
BENCHMARK(listingAndSizingACatalogue)->Arg(2000);

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
