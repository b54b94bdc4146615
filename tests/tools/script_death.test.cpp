// SPDX-License-Identifier: GPL-3.0-or-later
// The game ended at every single call that changes a file, or met there by a full or broken disk,
// by a short write or by a slow disk: what it leaves, what it says, and that the next game plays.
#include "support/game.h"
#include "support/process.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace grimoval::test::script_death {

namespace fs = std::filesystem;

const std::string settingsInOrder[] = {
    "[ConfigPC]",
    "ConfDep=-1",
    "WavPr\xE9sent=1",
    "MidiPr\xE9sent=1",
    "[Le Grimoval]",
    "Music=",
    "Parole=1",
    "NombreJoueur=1",
    "R\xE9"
    "flexionLimite=1",
    "TempsR\xE9"
    "flexion=",
    "NombreErreur=",
};
const std::string february = "février\r\n", january = "janvier\r\n";

// Every file that the game writes is written at least once.
const char *const game = R"(date 2026-03-07 14:05:09
demarrer {APPLI} {DONNEES}
touche Espace
clic FMenu.CmdCfg(1)
clic FOption.ConfTSons(0)
clic FOption.Cmd(0)
clic FMenu.CmdTjr(2)
regler FCHoix.DefReflec(0) 10
regler FCHoix.DefReflec(1) 3
clic FCHoix.Cmd(1)
saisir Fnom.Saisie(0) Dupont
touche Entree
saisir Fnom.Saisie(1) Marie
touche Entree
touche Entree
attendre 2
touche c
touche h
touche a
touche t
clic FMenu.CmdTjr(0)
clic FScore2.CmdScore(0)
fermer FMenu
touche Entree
)";

std::vector<std::string> linesOf(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

// Those of the first that the second lacks; both in the same order.
std::vector<std::string> added(const std::string &text, const std::string &to) {
    const auto all = linesOf(text), known = linesOf(to);
    std::vector<std::string> more;
    std::size_t next = 0;
    for (const std::string &line : all) {
        if (next < known.size() && line == known[next]) {
            ++next;
        } else {
            more.push_back(line);
        }
    }
    if (next != known.size()) {
        more.emplace_back("(and lacks) " + known[next]);
    }
    return more;
}

// A new user's first game, or the first game of a month for one who has played before.
enum class User { fresh, known };

struct GameOnDisk {
    explicit GameOnDisk(User user) : user_(user) {
        folder.write(u"appli/MASK/CHATS.DBS", wordRecords({u"CHAT"}));
        folder.write(u"appli/MASK/GRIMV.LST", baseRecord(1, 1, u"CHATS", u"Des chats"));
        folder.write(u"appli/IMAGES/IMG01.BMP", "BM");
        commands_ = game;
        for (const auto &[word, name] :
             {std::pair{"{APPLI}", u"appli"}, std::pair{"{DONNEES}", u"donnees"}}) {
            commands_.replace(commands_.find(word), std::string(word).size(),
                              folder.bytePath(name));
        }
        clear();
        const Answer whole = play();
        EXPECT_EQ(whole.status, 0);
        said = whole.output;
        EXPECT_TRUE(said.ends_with("fin 0\n")) << said;
        EXPECT_EQ(said.find("message"), std::string::npos) << said;
        settings = file(u"GRIMOVA.INI");
        record = file(u"SCORGRIM.TXT");
        EXPECT_NE(record.find("DUPONT"), std::string::npos);
        EXPECT_EQ(file(u"SCORGRIM.BAK"), user == User::fresh ? "" : february);
        EXPECT_TRUE(complete());
    }

    void clear() const {
        fs::remove_all(folder.bytePath(u"donnees"));
        folder.makeFolder(u"donnees");
        if (user_ == User::known) {
            folder.makeFolder(place);
            Files files;
            files.writeTime = [] { return DateTime{2026, 1, 31, 12, 0, 0}; };
            files.replace(folder.path(place + u"SCORGRIM.BAK"), january);
            files.writeTime = [] { return DateTime{2026, 2, 28, 12, 0, 0}; };
            files.replace(folder.path(place + u"SCORGRIM.TXT"), february);
        }
    }

    Answer play(const std::string &way = {}, int call = 0, bool network = false) const {
        std::vector<std::string> fault = {
            "LD_PRELOAD=" DEATH, "ASAN_OPTIONS=verify_asan_link_order=0", "GRIM_MORT=" + way,
            "GRIM_MORT_A=" + std::to_string(call)};
        if (network) {
            fault.emplace_back("GRIM_MORT_RESEAU=1");
        }
        return run({GRIMOVAL_SCRIPT}, way.empty() ? std::vector<std::string>() : fault, false,
                   commands_);
    }

    std::string file(const Texte &name) const {
        return folder.exists(place + name) ? folder.read(place + name) : std::string();
    }

    // The keys and sections of the settings that are there, in their places in the order above. No
    // line is cut, none stands twice.
    std::vector<std::size_t> keys() const {
        const std::string text = file(u"GRIMOVA.INI");
        EXPECT_TRUE(text.empty() || text.ends_with("\r\n")) << text;
        std::vector<std::size_t> found;
        for (const std::string &line : linesOf(text)) {
            const auto *const known =
                std::find_if(std::begin(settingsInOrder), std::end(settingsInOrder),
                             [&](const std::string &begin) { return line.starts_with(begin); });
            EXPECT_NE(known, std::end(settingsInOrder)) << line;
            EXPECT_TRUE(line.ends_with('\r')) << line;
            found.push_back(static_cast<std::size_t>(known - std::begin(settingsInOrder)));
        }
        EXPECT_EQ(std::set(found.begin(), found.end()).size(), found.size());
        return found;
    }
    bool complete() const { return keys().size() == std::size(settingsInOrder); }

    // As old as the clock of the game says, where the system's was the last to be asked.
    void stampLog() const {
        if (folder.exists(place + u"SCORGRIM.TXT") && file(u"SCORGRIM.TXT") != february) {
            Files files;
            files.writeTime = [] { return DateTime{2026, 3, 7, 14, 5, 9}; };
            files.replace(folder.path(place + u"SCORGRIM.TXT"), file(u"SCORGRIM.TXT"));
        }
    }

    // The records of the months before are whole, in their own files or in those that they move to.
    void expectEarlierScores() const {
        if (user_ == User::known) {
            EXPECT_TRUE(file(u"SCORGRIM.TXT") == february || file(u"SCORGRIM.BAK") == february);
            EXPECT_TRUE(file(u"SCORGRIM.BAK") == january ||
                        file(u"SCORGRIM-2026-01.BAK") == january);
        }
    }

    void expectTheNextGameIsGood() const {
        const std::string before = file(u"SCORGRIM.TXT");
        const Answer next = play();
        EXPECT_EQ(next.status, 0);
        EXPECT_TRUE(next.output.ends_with("fin 0\n")) << next.output;
        EXPECT_EQ(next.output.find("message"), std::string::npos) << next.output;
        EXPECT_TRUE(complete());
        const bool moved = before == february;
        EXPECT_EQ(file(u"SCORGRIM.TXT"), moved ? record : before + record);
        if (moved || user_ == User::known) {
            EXPECT_EQ(file(u"SCORGRIM.BAK"), february);
        }
        EXPECT_FALSE(folder.exists(place + u"~GRIMV.TMP"));
        EXPECT_FALSE(folder.exists(place + u"~GRIMOVA.TMP"));
    }

    const TemporaryFolder folder;
    const Texte place = u"donnees/Calvenor/Le Grimoval/";
    std::string said, settings, record; // of a game that nothing befalls

private:
    User user_;
    std::string commands_;
};

struct GameAtEveryCall : testing::TestWithParam<User> {
    GameOnDisk disk{GetParam()};
};

TEST_P(GameAtEveryCall, KilledLeavesTheSettingsOldOrNewAndEarlierScoresWholeAndPlaysAgain) {
    int killed = 0;
    for (int call = 1;; ++call) {
        SCOPED_TRACE(call);
        ASSERT_LT(call, 300);
        disk.clear();
        const Answer answer = disk.play("mort", call);
        if (!answer.killed) {
            EXPECT_EQ(answer.output, disk.said);
            break;
        }
        ++killed;
        const auto keys = disk.keys();
        for (std::size_t i = 0; i < keys.size(); ++i) {
            EXPECT_EQ(keys[i], i); // up to where the game had come
        }
        disk.expectEarlierScores();
        const std::string log = disk.file(u"SCORGRIM.TXT");
        EXPECT_TRUE(log == february || disk.record.starts_with(log)) << log;
        disk.stampLog();
        disk.expectTheNextGameIsGood();
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_GT(killed, 60);
}

TEST_P(GameAtEveryCall, MetByADiskThatFailsSaysSoAndGoesOnOrEndsInTheFailureReport) {
    std::map<std::string, int> met;
    const auto inBox = [](const std::string &text) {
        return R"(message critique "Le Grimoval v3.0" ")" + text + '"';
    };
    const struct {
        const char *way;
        int number;
        std::string log;
        std::set<User> users = {User::fresh, User::known};
    } kinds[] = {{"panne", 61, inBox("Disque / est saturé.")},
                 {"quota", 61, inBox("Disque / est saturé."), {User::known}},
                 {"disque", 57, inBox("L'ERREUR 57 est survenue."), {User::fresh}}};
    for (const auto &kind : kinds) {
        for (int call = 1; kind.users.contains(GetParam()); ++call) {
            SCOPED_TRACE(std::string(kind.way) + " " + std::to_string(call));
            ASSERT_LT(call, 300);
            disk.clear();
            const Answer answer = disk.play(kind.way, call);
            ASSERT_EQ(answer.status, 0);
            if (answer.errors.empty()) {
                EXPECT_EQ(answer.output, disk.said);
                break;
            }
            const auto told = [&](const char *name) {
                const bool so = answer.errors.find(name) != std::string::npos;
                met[name] += so ? 1 : 0;
                return so;
            };
            const std::string report = "\nechec " + std::to_string(kind.number) + "\n";
            const auto more = added(answer.output, disk.said);
            if (told("GRIMOVA.INI")) {
                // Nothing is said, and one key at the most is wanting.
                EXPECT_EQ(answer.output, disk.said);
                EXPECT_GE(disk.keys().size(), std::size(settingsInOrder) - 1);
            } else if (told("SCORGRIM")) {
                EXPECT_EQ(more, std::vector<std::string>{kind.log});
                EXPECT_TRUE(disk.complete());
            } else if (told("mkdir") || told("~GRIMOVA.TMP") ||
                       answer.output.find("FLstTitre") == std::string::npos) {
                EXPECT_NE(answer.output.find(report), std::string::npos) << answer.output;
            } else {
                EXPECT_TRUE(told("~GRIMV.TMP")) << answer.errors;
                // Told; then the copy of the list is good all the same, or it stops the program.
                const std::string number = std::to_string(kind.number);
                const std::string box = "bip\nmessage critique \"ERREUR : " + number +
                                        "\" \"L'ERREUR " + number + " est survenue.\"\n";
                EXPECT_NE(answer.output.find(box), std::string::npos) << answer.output;
                EXPECT_NE(answer.output.find("message critique \"ERREUR : 63\"") !=
                              std::string::npos,
                          disk.file(u"SCORGRIM.TXT") == disk.record)
                    << answer.output;
                EXPECT_NE(answer.output.find("\nfin 0\n"), std::string::npos) << answer.output;
            }
            disk.expectEarlierScores();
            const std::string log = disk.file(u"SCORGRIM.TXT");
            EXPECT_TRUE(log == february || log.empty() || log == disk.record) << log;
            if (HasFailure()) {
                return;
            }
        }
    }
    for (const char *name : {"GRIMOVA.INI", "SCORGRIM", "~GRIMOVA.TMP", "~GRIMV.TMP"}) {
        EXPECT_GE(met[name], 4) << name;
    }
}

// There a file gets a free name by a link.
TEST_P(GameAtEveryCall, KilledOnAFolderOfTheNetworkLeavesEarlierScoresWholeToo) {
    const auto play = [this](int call) {
        disk.clear();
        return disk.play("mort", call, true);
    };
    EXPECT_EQ(play(1000).output, disk.said);
    EXPECT_EQ(disk.file(u"SCORGRIM.TXT"), disk.record);
    EXPECT_EQ(disk.file(u"GRIMOVA.INI"), disk.settings);
    disk.expectEarlierScores();
    const auto names = disk.folder.list();
    EXPECT_TRUE(std::none_of(names.begin(), names.end(), [](const std::string &name) {
        return name.find('~') != std::string::npos;
    }));
    for (int call = 1; play(call).killed; ++call) {
        SCOPED_TRACE(call);
        ASSERT_LT(call, 300);
        disk.expectEarlierScores();
        const std::string log = disk.file(u"SCORGRIM.TXT");
        EXPECT_TRUE(log == february || disk.record.starts_with(log)) << log;
    }
}

TEST_P(GameAtEveryCall, WritingTheHalfEachTimeWritesTheSameFiles) {
    disk.clear();
    const Answer answer = disk.play("court");
    EXPECT_EQ(answer.output, disk.said);
    EXPECT_EQ(disk.file(u"GRIMOVA.INI"), disk.settings);
    EXPECT_EQ(disk.file(u"SCORGRIM.TXT"), disk.record);
}

TEST_P(GameAtEveryCall, LateEachTimeDoesTheSameOnce) {
    disk.clear();
    const Answer answer = disk.play("lent");
    EXPECT_EQ(answer.output, disk.said);
    EXPECT_EQ(disk.file(u"GRIMOVA.INI"), disk.settings);
    EXPECT_EQ(disk.file(u"SCORGRIM.TXT"), disk.record);
}

INSTANTIATE_TEST_SUITE_P(Users, GameAtEveryCall, testing::Values(User::fresh, User::known),
                         [](const auto &user) {
                             return user.param == User::fresh ? "new" : "known";
                         });

// The words of two bases; the first record of the second cannot be read.
TEST(UnreadableRecord, GivesTheWordThatWasReadBeforeItBeItOfAnotherBase) {
    const TemporaryFolder folder;
    folder.write(u"appli/MASK/AA.DBS", wordRecords({u"CHAT"}));
    folder.write(u"appli/MASK/BB.DBS", wordRecords({u"RHINOCEROS"}));
    folder.write(u"appli/MASK/GRIMV.LST",
                 baseRecord(1, 1, u"AA", u"Un") + baseRecord(2, 1, u"BB", u"Zéro"));
    folder.write(u"appli/IMAGES/IMG01.BMP", "BM");
    folder.makeFolder(u"donnees");
    const std::string commands =
        "demarrer " + folder.bytePath(u"appli") + " " + folder.bytePath(u"donnees") + R"(
touche Espace
clic FMenu.CmdBase
choisir FLstTitre.LstTitre 0
clic FLstTitre.CmdTitre(1)
clic FMenu.CmdBase
choisir FLstTitre.LstTitre 1
clic FLstTitre.CmdTitre(1)
clic FMenu.CmdTjr(2)
clic FCHoix.Cmd(1)
saisir Fnom.Saisie(0) Dupont
saisir Fnom.Saisie(1) Marie
touche Entree
etat
)";
    const auto maskWith = [&](const std::string &call) {
        const Answer answer =
            run({GRIMOVAL_SCRIPT},
                {"LD_PRELOAD=" DEATH, "ASAN_OPTIONS=verify_asan_link_order=0", "GRIM_MORT=lecture",
                 "GRIM_MORT_A=" + call, "GRIM_MORT_SOUS=" + folder.bytePath(u"appli/MASK/BB.DBS")},
                false, commands);
        EXPECT_EQ(answer.errors.empty(), call == "99") << answer.errors;
        EXPECT_EQ(answer.output.find("\nmessage"), std::string::npos) << answer.output;
        const std::size_t place = answer.output.rfind("FMenu.AffMot(0).Caption = ");
        return answer.output.substr(place, answer.output.find('\n', place) - place);
    };
    EXPECT_EQ(maskWith("99"), R"(FMenu.AffMot(0).Caption = "##########")");
    EXPECT_EQ(maskWith("1"), R"(FMenu.AffMot(0).Caption = "####")");
}

} // namespace grimoval::test::script_death
