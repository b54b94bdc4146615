// SPDX-License-Identifier: GPL-3.0-or-later
// The record, the window and the report never disagree on a number where they show the same one.
#include "support/random_games.h"

#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace grimoval::test {
namespace {

// Numbers by what they count and by player: "mots trouvés 1".
using Numbers = std::map<std::string, int>;

// What the three call differently, by its name in the record.
std::string common(const std::string &label) {
    static const std::pair<const char *, const char *> names[] = {
        {"mots proposés", "proposés"},
        {"Mots proposés", "proposés"},
        {"abandons", "abandons"},
        {"Abandon", "abandons"},
        {"mots non trouvés", "manqués"},
        {"Mots non trouvés", "manqués"},
        {"mauvaises lettres", "mauvaises"},
        {"Mauvaises lettres", "mauvaises"},
        {"bonnes lettres", "bonnes"},
        {"Bonnes lettres", "bonnes"},
        {"mots trouvés", "trouvés"},
        {"Mots trouvés", "trouvés"},
        {"SCORE", "score"},
        {"Score", "score"},
    };
    for (const auto &[part, name] : names) {
        if (label.find(part) != std::string::npos) {
            return name;
        }
    }
    return {};
}

Numbers ofTable(const Rows &rows) {
    Numbers numbers;
    for (const auto &row : rows) {
        const std::string name = common(toUtf8(row[0]));
        for (std::size_t player = 1; player < row.size() && !name.empty(); ++player) {
            numbers[name + std::to_string(player)] = std::stoi(toUtf8(row[player]));
        }
    }
    return numbers;
}

Numbers ofRecord(const std::string &bytes) {
    Numbers numbers;
    std::istringstream lines(toUtf8(fromAnsi(bytes)));
    std::string line, player = "1";
    while (std::getline(lines, line)) {
        if (line.find("2ème joueur") != std::string::npos) {
            player = "2";
        }
        const std::string name = common(line);
        if (!name.empty()) {
            numbers[name + player] = std::stoi(line.substr(line.find(": ") + 2));
        }
    }
    return numbers;
}

// Columns begin at 4670 and 8370 for a page of 11000 units and characters of 120.
Numbers ofPage(const Events &page) {
    std::map<std::string, std::string> labels; // by height
    Numbers numbers;
    for (const std::string &event : page) {
        std::istringstream words(event);
        std::string ignored, x, y, text;
        words >> ignored >> ignored >> x >> y;
        std::getline(words, text);
        if (x == "240") {
            labels[y] = common(text);
        } else if (x == "480") { // before the words between the names, the number itself
            numbers["proposés1"] = std::stoi(text.substr(2));
        } else if ((x == "4670" || x == "8370") && labels.contains(y)) {
            numbers[labels[y] + (x == "4670" ? "1" : "2")] = std::stoi(text.substr(2));
        }
    }
    return numbers;
}

void agree(const Numbers &left, const Numbers &right, std::size_t least) {
    std::size_t shared = 0;
    for (const auto &[name, number] : left) {
        if (const auto other = right.find(name); other != right.end()) {
            RC_ASSERT(other->second == number);
            ++shared;
        }
    }
    RC_ASSERT(shared >= least);
}

TEST(RecordWindowAndReport, NeverDisagreeOnANumber) {
    checkGames(300, anyGame(), [](const RandomGame &random) {
        Game game;
        game.random.numbers.assign(random.draws.begin(), random.draws.end());
        game.printer.measures = {11000, 120, 240};
        game.prepare(random.start);
        perform(game, {Action::begin});
        for (const Action &action : random.actions) {
            if (action.kind != Action::stop) {
                perform(game, action);
            }
        }
        game.score.show();
        const Numbers window = ofTable(game.score.LstScore.Rows);
        game.windows.take();
        game.score.CmdScore[1].userClick();
        const Numbers page = ofPage(only(game.windows.take(), "page texte"));
        game.score.CmdScore[0].userClick();
        const Numbers record =
            ofRecord(game.folder.read(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT"));
        agree(window, record, 5);
        agree(window, page, 5);
        agree(record, page, 5);
    });
}

} // namespace
} // namespace grimoval::test
