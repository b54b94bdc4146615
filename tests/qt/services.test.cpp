// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qtservices.h"

#include "qt/bench.h"
#include "shell/GLBPAROL.h"
#include "support/conditions.h"
#include "support/program.h"

#include <QDateTime>
#include <QFileInfo>

#include <csignal>
#include <filesystem>
#include <set>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grimoval::test {
namespace {

TEST(Services, TheClockIsTheLocalTime) {
    QtClock clock;
    const QDateTime before = QDateTime::currentDateTime();
    const DateTime now = clock.now();
    const QDateTime told(QDate(now.year, now.month, now.day),
                         QTime(now.hour, now.minute, now.second));
    EXPECT_LE(std::abs(before.secsTo(told)), 2);
}

TEST(Services, ChanceIsAtLeast0AndBelow1AndSpreads) {
    QtRandom random;
    random.seed();
    int lower = 0;
    for (int i = 0; i < 100'000; ++i) {
        const float value = random.next();
        ASSERT_GE(value, 0.0F);
        ASSERT_LT(value, 1.0F);
        lower += value < 0.5F;
    }
    EXPECT_NEAR(lower, 50'000, 1'500);
}

TEST(Services, TwoSeedingsGiveTwoSequences) {
    QtRandom one, other;
    one.seed();
    ::usleep(2000);
    other.seed();
    int equal = 0;
    for (int i = 0; i < 20; ++i) {
        equal += one.next() == other.next();
    }
    EXPECT_LT(equal, 3);
}

// A run without a game never seeds it: the goodbye alone asks for chance.
TEST(Services, BothGoodbyesAreHeardOverRunsWithoutAGame) {
    std::set<std::string> heard;
    for (int run = 0; run < 64; ++run) {
        NoWindows windows;
        Program program(windows);
        QtRandom random;
        Services services{program.screen, program.files,     program.clock,       random,
                          program.sound,  program.documents, program.application, program.printer};
        program.sound.sink = [&](const std::string &line) { heard.insert(line); };
        Globales g(services);
        g.son.WavPresent = g.son.ParoleActive = 1;
        JouerParole(g, parole::auRevoir);
    }
    EXPECT_EQ(heard, (std::set<std::string>{"parole AlaProch.Wav", "parole Salut1.Wav"}));
}

// A variable of the environment, as it was before when this goes.
class Environment {
public:
    explicit Environment(const char *name) : name_(name), before_(qgetenv(name)) {}
    ~Environment() {
        if (before_.isNull()) {
            qunsetenv(name_);
        } else {
            qputenv(name_, before_);
        }
    }
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;
    void set(const std::string &value) const { qputenv(name_, QByteArray::fromStdString(value)); }
    void unset() const { qunsetenv(name_); }

private:
    const char *name_;
    QByteArray before_;
};

struct Instance : testing::Test {
    TemporaryFolder folder;
    Environment place{"XDG_RUNTIME_DIR"};
    Instance() {
        folder.makeFolder(u"run");
        ::chmod(folder.bytePath(u"run").c_str(), 0700);
        place.set(folder.bytePath(u"run"));
    }
};

TEST_F(Instance, ASecondOneIsToldAndTheFirstIsNot) {
    QtApplication first, second;
    EXPECT_FALSE(first.previousInstance());
    EXPECT_FALSE(first.previousInstance());
    EXPECT_TRUE(second.previousInstance());
}

TEST_F(Instance, OneThatHasTakenItsLeaveBarsNoOther) {
    QtApplication first, second;
    EXPECT_FALSE(first.previousInstance());
    first.release();
    EXPECT_FALSE(second.previousInstance());
}

TEST_F(Instance, TheLockGoesWithTheProcessHoweverItDies) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        QtApplication application;
        const char answer = application.previousInstance() ? 'p' : 'n';
        [[maybe_unused]] const ssize_t written = ::write(ready[1], &answer, 1);
        ::pause();
        ::_exit(0);
    }
    char answer = 0;
    ASSERT_EQ(::read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'n');
    {
        QtApplication second;
        EXPECT_TRUE(second.previousInstance());
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    QtApplication third;
    EXPECT_FALSE(third.previousInstance());
}

// In the place of the lock; another account's is locked by it, and open to all.
TEST_F(Instance, WhatIsNoLockOfThisAccountBarsNobody) {
    folder.makeFolder(u"tmp");
    const Environment temporary{"TMPDIR"};
    temporary.set(folder.bytePath(u"tmp"));
    const std::string name =
        folder.bytePath(u"run") + "/grimoval-" + std::to_string(::getuid()) + ".lock";
    const std::pair<const char *, std::function<void()>> things[] = {
        {"another account's",
         [&] {
             ::close(::open(name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0666));
             ASSERT_EQ(::chmod(name.c_str(), 0666), 0);
             ASSERT_EQ(::chown(name.c_str(), 65534, 65534), 0);
         }},
        {"a link", [&] { ASSERT_EQ(::symlink("/dev/null", name.c_str()), 0); }},
        {"a pipe", [&] { ASSERT_EQ(::mkfifo(name.c_str(), 0600), 0); }},
        {"a folder", [&] { ASSERT_EQ(::mkdir(name.c_str(), 0700), 0); }},
    };
    const Deadline deadline(20);
    for (const auto &[what, put] : things) {
        if (::geteuid() != 0 && &what == &things[0].first) {
            continue; // no file can be given away
        }
        SCOPED_TRACE(what);
        put();
        const int theirs = ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
        if (theirs >= 0) {
            ASSERT_EQ(::flock(theirs, LOCK_EX | LOCK_NB), 0);
        }
        QtApplication first, second;
        EXPECT_FALSE(first.previousInstance());
        EXPECT_TRUE(second.previousInstance()); // by a lock in another place
        ::close(theirs);
        std::filesystem::remove(name);
    }
}

TEST(Services, TheDataLieBesideTheProgramOrInTheSharedFolderOfAnInstalledTree) {
    TemporaryFolder folder;
    folder.makeFolder(u"a/Mask"); // in any case
    folder.makeFolder(u"b/bin");
    folder.makeFolder(u"b/share/games/grimoval");
    folder.makeFolder(u"c/bin");
    const auto dataOf = [&](const Texte &name) {
        return QtApplication::dataFolderFor(folder.bytePath(name));
    };
    EXPECT_EQ(dataOf(u"a"), folder.bytePath(u"a"));
    EXPECT_EQ(QString::fromStdString(dataOf(u"b/bin")),
              QFileInfo(QString::fromStdString(folder.bytePath(u"b/share/games/grimoval")))
                  .canonicalFilePath());
    EXPECT_EQ(dataOf(u"c/bin"), folder.bytePath(u"c/bin"));
    QtApplication application;
    EXPECT_NE(application.path().back(), separator);
}

TEST(Services, TheHelpViewerLiesBesideTheProgramOrInTheLibexecFolderOfAnInstalledTree) {
    TemporaryFolder folder;
    folder.makeFolder(u"a/games");
    folder.makeFolder(u"a/libexec/grimoval");
    const auto viewerOf = [&](const Texte &name) {
        return QtDocuments::helpViewerFor(folder.bytePath(name));
    };
    EXPECT_EQ(viewerOf(u"a/games"), folder.bytePath(u"a/games/grimoval-aide"));
    folder.write(u"a/libexec/grimoval/grimoval-aide", "");
    EXPECT_EQ(
        QString::fromStdString(viewerOf(u"a/games")),
        QFileInfo(QString::fromStdString(folder.bytePath(u"a/libexec/grimoval/grimoval-aide")))
            .canonicalFilePath());
    folder.write(u"a/games/grimoval-aide", "");
    EXPECT_EQ(viewerOf(u"a/games"), folder.bytePath(u"a/games/grimoval-aide"));
}

struct UsersFolder : testing::Test {
    TemporaryFolder folder;
    const Environment home{"HOME"}, data{"XDG_DATA_HOME"};
    QtApplication application;
};

const std::string homes[] = {"données d'Élodie", "\xF0\x9F\x90\xB1 chat", "\xC9lodie", "  ", "a/b"};

TEST_F(UsersFolder, IsTheSystemsOwnByteForByteAndIsMade) {
    for (const std::string &name : homes) {
        SCOPED_TRACE(testing::PrintToString(name));
        const std::string place = folder.bytePath(fromPath(name));
        data.set(place);
        ASSERT_TRUE(application.userDataFolder().has_value());
        EXPECT_EQ(toPath(*application.userDataFolder()), place);
        EXPECT_TRUE(folder.exists(fromPath(name)));
        data.unset();
        home.set(place);
        ASSERT_TRUE(application.userDataFolder().has_value());
        EXPECT_EQ(toPath(*application.userDataFolder()), place + "/.local/share");
        EXPECT_TRUE(folder.exists(fromPath(name) + u"/.local/share"));
    }
}

TEST_F(UsersFolder, IsNoneWithoutAHomeOrWhereItCannotBe) {
    data.set("relative");
    home.unset();
    EXPECT_FALSE(application.userDataFolder().has_value());
    home.set("");
    EXPECT_FALSE(application.userDataFolder().has_value());
    folder.write(u"fichier", "");
    home.set(folder.bytePath(u"fichier"));
    EXPECT_FALSE(application.userDataFolder().has_value());
    EXPECT_EQ(folder.list(), std::vector<std::string>{"fichier"});
}

} // namespace
} // namespace grimoval::test
