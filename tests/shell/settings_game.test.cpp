// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of the game: what a value in the file becomes in memory and in the file.
#include "shell/mdClvUtil.h"
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::settings_game {

const Texte file = u"donnees/Calvenor/Le Grimoval/GRIMOVA.INI";
constexpr int overflow = -100000; // the row ends in failure 6

struct Row {
    const char *value; // in the file
    int memory;
    const char *after; // in the file; nullptr: as it was
};

const std::vector<Row> modes = {
    {"1", 1, nullptr},   {"2", 2, nullptr},   {"3", 3, nullptr},  {"0", 1, "1"},
    {"4", 1, "1"},       {"-1", 1, "1"},      {"", 1, "1"},       {"deux", 1, "1"},
    {"2.5", 2, nullptr}, {"1.5", 2, nullptr}, {"3.4", 1, "1"},    {"0.9", 1, "1"},
    {"2,5", 2, nullptr}, {" 2 ", 2, nullptr}, {"+3", 3, nullptr}, {"2e0", 2, nullptr},
    {"1 2", 1, "1"},     {"&H2", 1, "1"},     {"99999", 1, "1"},  {"2x", 1, "1"},
};
const std::vector<Row> limits = {
    {"1", 1, nullptr},
    {"0", 0, nullptr},
    {"-7", -7, nullptr},
    {"oui", 1, "1"},
    {"", 1, "1"},
    {"32767", 32767, nullptr},
    {"-32768", -32768, nullptr},
    {"0.4", 0, nullptr},
    {"0.5", 0, nullptr},
    {"1.5", 2, nullptr},
    {"99999", overflow, nullptr},
    {"-32769", overflow, nullptr},
    {"32767.5", overflow, nullptr},
    {"Vrai", 1, "1"},
};
const std::vector<Row> times = {
    {"20", 20, nullptr},        {"4", 20, "20"},
    {"5", 5, nullptr},          {"3000", 3000, nullptr},
    {"4.9", 20, "20"},          {"5.4", 5, nullptr},
    {"-20", 20, "20"},          {"vingt", 20, "20"},
    {"32767", 32767, nullptr},  {"40000", overflow, nullptr},
    {"1e9", overflow, nullptr}, {"", 20, "20"},
};
const std::vector<Row> errorLimits = {
    {"6", 6, nullptr}, {"21", 6, "6"},       {"20", 20, nullptr}, {"1", 1, nullptr},
    {"0", 6, "6"},     {"20.4", 6, "6"},     {"0.9", 6, "6"},     {"19.5", 20, nullptr},
    {"-1", 6, "6"},    {"beaucoup", 6, "6"}, {"", 6, "6"},
};

// The whole file, with one key of the game set.
std::string content(const std::string &key, const std::string &value) {
    const std::pair<const char *, const char *> keys[] = {{"NombreJoueur", "1"},
                                                          {"R\xE9"
                                                           "flexionLimite",
                                                           "1"},
                                                          {"TempsR\xE9"
                                                           "flexion",
                                                           "20"},
                                                          {"NombreErreur", "6"}};
    std::string text = "[Le Grimoval]\r\n";
    for (const auto &[name, usual] : keys) {
        text += std::string(name) + "=" + (name == key ? value : usual) + "\r\n";
    }
    return text;
}

void check(const std::string &key, const std::vector<Row> &rows,
           const std::function<int(const Reglages &)> &memory) {
    Game game;
    for (const Row &row : rows) {
        const std::string before = content(key, row.value);
        game.folder.write(file, before);
        const int number = failureNumber([&] { LireConfigJeu(game.g); });
        EXPECT_EQ(number, row.memory == overflow ? 6 : 0) << key << "=" << row.value;
        if (number == 0) {
            EXPECT_EQ(memory(game.g.reglages), row.memory) << key << "=" << row.value;
        }
        EXPECT_EQ(game.folder.read(file), row.after == nullptr ? before : content(key, row.after))
            << key << "=" << row.value;
    }
}

TEST(GameSettings, TakeAModeFrom1To3AndRepairAnyOther) {
    check("NombreJoueur", modes, [](const Reglages &r) { return int{r.NombreJoueur}; });
}

TEST(GameSettings, TakeAnyNumberOf16BitsAsTheLimitAndRepairWhatIsNone) {
    check("R\xE9"
          "flexionLimite",
          limits, [](const Reglages &r) { return int{r.RéflexionLimite}; });
}

TEST(GameSettings, TakeATimeOf5SecondsOrMoreAndRepairAShorterOne) {
    check("TempsR\xE9"
          "flexion",
          times, [](const Reglages &r) { return int{r.TempsRéflexion}; });
}

TEST(GameSettings, TakeFrom1To20ErrorsAndRepairAnyOtherCount) {
    check("NombreErreur", errorLimits, [](const Reglages &r) { return int{r.NombreErreur}; });
}

TEST(GameSettings, AreAllRepairedInAnEmptyOrAbsentFile) {
    for (const bool absent : {true, false}) {
        Game game;
        if (!absent) {
            game.folder.write(file, "");
        }
        game.g.reglages = {3, 0, 99, 12};
        LireConfigJeu(game.g);
        EXPECT_EQ(game.folder.read(file), content("", ""));
        EXPECT_EQ(game.g.reglages.NombreJoueur, 1);
        EXPECT_EQ(game.g.reglages.RéflexionLimite, 1);
        EXPECT_EQ(game.g.reglages.TempsRéflexion, 20);
        EXPECT_EQ(game.g.reglages.NombreErreur, 6);
    }
}

TEST(GameSettings, KeepEverythingElseInTheFileAsItIs) {
    Game game;
    game.folder.write(file, "; \xE0 garder\r\n[Autre]\r\nNombreJoueur=9\r\n\r\n[le grimoval]\r\n"
                            "nombrejoueur = 2\r\nNombreErreur=99\r\nReste=oui\r\n");
    LireConfigJeu(game.g);
    EXPECT_EQ(game.g.reglages.NombreJoueur, 2);
    EXPECT_EQ(game.folder.read(file),
              "; \xE0 garder\r\n[Autre]\r\nNombreJoueur=9\r\n\r\n[le grimoval]\r\n"
              "nombrejoueur = 2\r\nNombreErreur=6\r\nReste=oui\r\nR\xE9"
              "flexionLimite=1\r\nTempsR\xE9"
              "flexion=20\r\n");
}

TEST(GameSettings, AreReadFromTheSectionOfTheApplicationAlone) {
    Game game;
    game.folder.write(file, "[ConfigPC]\r\nNombreJoueur=3\r\n");
    LireConfigJeu(game.g);
    EXPECT_EQ(game.g.reglages.NombreJoueur, 1);
}

} // namespace grimoval::test::settings_game
