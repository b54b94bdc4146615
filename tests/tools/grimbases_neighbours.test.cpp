// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases beside other accounts: none of them stops it, is written to by it, or ends it by an odd
// file.
#include "support/conditions.h"
#include "support/installed_game.h"
#include "support/odd_files.h"
#include "tools/bases/commandes.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace grimoval::test::grimbases_neighbours {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{5}; // more than any change takes
constexpr uid_t nobody = 65534;

// Another process that holds a lock on a file or folder, as another account where that can be had.
class Holder {
public:
    explicit Holder(const std::string &path) {
        int ready[2];
        if (::pipe(ready) != 0) {
            throw std::system_error(errno, std::generic_category(), "pipe");
        }
        child_ = ::fork();
        if (child_ == 0) {
            const bool other = ::geteuid() != 0 || ::setuid(nobody) == 0;
            const int file = ::open(path.c_str(), O_RDONLY);
            const bool held = other && file >= 0 && ::flock(file, LOCK_EX) == 0;
            const char sign = held ? '1' : '0';
            ::alarm(20); // whatever becomes of the test
            for (ssize_t written = ::write(ready[1], &sign, 1); written == 1;) {
                ::pause();
            }
            ::_exit(1);
        }
        char sign = 0;
        holds = ::read(ready[0], &sign, 1) == 1 && sign == '1';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~Holder() {
        ::kill(child_, SIGKILL);
        ::waitpid(child_, nullptr, 0);
    }
    Holder(const Holder &) = delete;
    Holder &operator=(const Holder &) = delete;

    bool holds = false;

private:
    pid_t child_ = -1;
};

struct Neighbours : InstalledGame {
    Neighbours() : InstalledGame(GRIMBASES) { good({"refaire"}); }

    // In this process, with little patience.
    Answer call(int (*command)(outils::Appel &), const std::vector<Texte> &words) const {
        std::ostringstream output, errors;
        outils::Appel call{{}, words, Texte(u"grimbases"), output, errors};
        call.attente = std::chrono::milliseconds(200);
        Answer answer;
        try {
            answer.status = command(call);
        } catch (const outils::Arret &stop) {
            answer.status = stop.statut;
            errors << toUtf8(stop.texte);
        }
        answer.output = output.str();
        answer.errors = errors.str();
        return answer;
    }
    void give(const Texte &name, uid_t account) const {
        if (::geteuid() == 0) {
            ASSERT_EQ(::lchown(in(name).c_str(), account, account), 0);
        }
    }
    void giveAll(const Texte &name, uid_t account) const {
        give(name, account);
        for (const fs::directory_entry &entry : fs::recursive_directory_iterator(in(name))) {
            give(fromUtf8(entry.path().string().substr(in(u"").size())), account);
        }
    }
    Texte mask() const { return folder.path(var + u"MASK"); }
    Texte lock() const { return var + u"MASK/.verrou"; }
};

TEST_F(Neighbours, WhoHoldTheFolderOfTheBasesStopNobody) {
    const Holder holder(in(var + u"MASK"));
    ASSERT_TRUE(holder.holds);
    const Clock::time_point start = Clock::now();
    good({"refaire"});
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    good({"retirer", "A"});
    EXPECT_LT(Clock::now() - start, patience);
}

TEST_F(Neighbours, CannotOpenTheLock) {
    Files files;
    const outils::Verrou held(files, mask());
    struct stat status {};
    ASSERT_EQ(::lstat(in(lock()).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
    if (::geteuid() == 0) {
        EXPECT_FALSE(Holder(in(lock())).holds);
    }
}

TEST_F(Neighbours, OfTheSameAccountAreWaitedForAndThenNamed) {
    Files files;
    const Names before = names(var);
    const Texte file = fromUtf8(list(u"a.txt", "ALGUE\n"));
    {
        const outils::Verrou held(files, mask());
        struct Row {
            int (*command)(outils::Appel &);
            std::vector<Texte> words;
        };
        for (const Row &row :
             {Row{outils::refaire, {mask()}}, Row{outils::retirer, {u"MER", mask()}},
              Row{outils::ajouter, {file, mask()}},
              Row{outils::construire, {folder.path(u"classe"), mask()}}}) {
            const Clock::time_point start = Clock::now();
            const Answer answer = call(row.command, row.words);
            EXPECT_LT(Clock::now() - start, patience);
            EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(200));
            EXPECT_EQ(answer.status, outils::mauvaisesBases);
            EXPECT_EQ(answer.errors,
                      toUtf8(mask()) + " : une autre commande grimbases y travaille encore ; rien "
                                       "n'est changé, recommencez quand elle aura fini.");
        }
    }
    EXPECT_EQ(names(var), before);
    EXPECT_EQ(call(outils::refaire, {mask()}).status, outils::bon);
    EXPECT_LE(outils::Verrou::patience, std::chrono::seconds(15)); // of an upgrade's
}

TEST_F(Neighbours, WhoPutSomethingInThePlaceOfTheLockStopNobody) {
    folder.write(u"autre", "à quelqu'un d'autre");
    give(u"autre", nobody);
    const auto remade = [&] {
        const Clock::time_point start = Clock::now();
        good({"refaire"});
        EXPECT_LT(Clock::now() - start, patience);
        EXPECT_EQ(names(var + u"MASK/"), (Names{"CIEL.DBS", "GRIMV.LST", "MER.DBS"}));
    };
    folder.write(lock(), ""); // left by a death
    remade();
    fs::create_symlink(in(u"autre"), in(lock()));
    remade();
    fs::create_hard_link(in(u"autre"), in(lock()));
    remade();
    ASSERT_EQ(::mkfifo(in(lock()).c_str(), 0666), 0);
    remade();
    EXPECT_EQ(folder.read(u"autre"), "à quelqu'un d'autre");
    struct stat status {};
    ASSERT_EQ(::stat(in(u"autre").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, ::geteuid() == 0 ? nobody : ::geteuid());
    if (::geteuid() == 0) {
        folder.write(lock(), "");
        give(lock(), nobody);
        const Holder holder(in(lock()));
        ASSERT_TRUE(holder.holds);
        remade();
    }
}

TEST_F(Neighbours, OwnTheLockThatTheAdministratorMakesForThem) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the administrator can play another account";
    }
    giveAll(var, nobody);
    Files files;
    const outils::Verrou held(files, mask());
    struct stat status {};
    ASSERT_EQ(::lstat(in(lock()).c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, nobody);
}

TEST_F(Neighbours, WhoLaidLinksAreNotWrittenTo) {
    folder.write(u"autre", "à quelqu'un d'autre");
    const std::string aim = in(u"autre");
    fs::create_symlink(aim, in(var + u"MASK/A.DBS~"));
    fs::create_symlink(aim, in(var + u"MASK/GRIMV.LST~"));
    fs::create_symlink(aim, in(var + u"MASK/ENCOURS.TXT"));
    fs::create_symlink(aim, in(var + u"MASK/ENCOURS.TXT~"));
    folder.makeFolder(var + u"listes");
    fs::create_symlink(aim, in(var + u"listes/.grimbases"));
    fs::create_symlink(aim, in(var + u"listes/.grimbases~"));
    fs::remove(in(var + u"bases-faites.txt"));
    fs::create_symlink(aim, in(var + u"bases-faites.txt"));
    fs::create_symlink("/nulle/part", in(var + u"bases-faites.txt~"));
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    folder.makeFolder(u"textes");
    for (const char16_t *name : {u"textes/MER.txt~", u"textes/CIEL.txt~", u"textes/CIEL.txt"}) {
        fs::create_symlink(in(u"textes/rien"), in(name));
    }
    good({"extraire", in(u"textes")});
    EXPECT_EQ(folder.read(u"autre"), "à quelqu'un d'autre");
    EXPECT_FALSE(folder.exists(u"textes/rien"));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(in(u"textes/CIEL.txt"))));
    Offer all = shippedOffer;
    all["A"] = {"ALGUE"};
    EXPECT_EQ(offered(), all);
}

TEST_F(Neighbours, LeaveOddFilesAmongTheListsWhichKeepNothingElseAway) {
    const Deadline deadline(60);
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        put(odd, folder, var + u"listes/bizarre.txt");
        for (const char *command : {"refaire", "ajouter", "retirer"}) {
            const Answer answer = run(command == std::string("refaire")
                                          ? Names{"refaire"}
                                          : Names{command, command == std::string("ajouter")
                                                               ? list(u"b.txt", "SABLE\n")
                                                               : "B"});
            EXPECT_EQ(answer.status, 0) << answer.errors;
            if (command == std::string("refaire")) {
                EXPECT_EQ(answer.errors, "bizarre.txt : ce n'est pas un fichier\n" +
                                             in(var + u"listes/bizarre.txt") +
                                             " : cette liste est laissée de côté.\n");
            }
        }
        fs::remove_all(in(var + u"listes/bizarre.txt"));
    }
    Offer all = shippedOffer;
    all["A"] = {"ALGUE"};
    EXPECT_EQ(offered(), all);
}

TEST_F(Neighbours, LeaveHostileListsWhichAreTold) {
    const Deadline deadline(60);
    constexpr std::size_t most = 8 << 20;
    const std::string contents[] = {
        std::string(most + 1, 'A'),
        std::string(most, '('),
        std::string(most, '"'),
        std::string(most, '\t'),
        std::string("\xFF\xFE\xD8\0", 4),
        std::string(100, '\0'),
        "\xFF\xFF\x80\n",
        "Titre : \xE2\x80\xAE\n\x1B]0;x\x07\n",
    };
    for (const std::string &content : contents) {
        folder.write(var + u"listes/hostile\u202E\u009B.txt", content);
        const Answer answer = run({"refaire"});
        EXPECT_EQ(answer.status, 0);
        EXPECT_NE(answer.errors.find("listes/hostile??.txt : cette liste est laissée de côté."),
                  std::string::npos)
            << answer.errors.substr(0, 1000);
        for (const char16_t c : fromUtf8(answer.errors)) {
            EXPECT_TRUE(c == u'\n' || (!isControl(c) && c != 0x202E));
        }
        EXPECT_EQ(offered(), shippedOffer);
    }
}

TEST_F(Neighbours, LeaveAListThatMayNotBeReadAside) {
    folder.write(var + u"listes/secret.txt", "ALGUE\n");
    giveAll(var, nobody);
    fs::permissions(in(var + u"listes/secret.txt"), fs::perms(0));
    const Answer answer = test::run({in(u"usr/bin/grimbases"), "refaire"}, {}, true);
    EXPECT_EQ(answer.status, 0);
    EXPECT_NE(answer.errors.find("listes/secret.txt : cette liste est laissée de côté."),
              std::string::npos)
        << answer.errors;
    EXPECT_EQ(offered(), shippedOffer);
    fs::permissions(in(var + u"listes/secret.txt"), fs::perms(0600));
}

TEST_F(Neighbours, LetAFullFileBeAFullDisk) {
    list(u"a.txt", "ALGUE\n");
    const Answer answer = test::run({"/bin/sh", "-c", "(ulimit -f 0; exec \"$@\") 2>&1 | cat", "sh",
                                     in(u"usr/bin/grimbases"), "ajouter", in(u"classe/a.txt")});
    EXPECT_NE(answer.output.find("Le disque est plein"), std::string::npos)
        << answer.output << answer.errors;
    EXPECT_EQ(offered(), shippedOffer);
}

} // namespace grimoval::test::grimbases_neighbours
