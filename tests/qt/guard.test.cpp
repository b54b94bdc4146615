// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/guard.h"

#include "qt/bench.h"

#include <QDialog>
#include <QLabel>

#include <sys/wait.h>
#include <unistd.h>

namespace grimoval::test {
namespace {

struct Reported {
    std::vector<Message> messages;
    std::vector<int> ends;
    std::function<void()> whileUp;
    Guard guard{[this](const Message &message) {
        messages.push_back(message);
        if (whileUp) {
            whileUp();
        }
    }};
    Reported() {
        guard.end = [this](int status) { ends.push_back(status); };
    }
};

TEST(Guard, AFailureIsReportedInOneCriticalBoxAndEndsWithStatus1) {
    Reported r;
    r.guard.run([] { throw Failure(failure::overflow); });
    ASSERT_EQ(r.messages.size(), 1U);
    EXPECT_EQ(toUtf8(r.messages[0].text), "L'ERREUR 6 est survenue.\nUn nombre est devenu trop "
                                          "grand.\n\nLe Grimoval va être arrêté.");
    EXPECT_EQ(r.messages[0].icon, MessageIcon::critical);
    EXPECT_EQ(toUtf8(r.messages[0].title), "Le Grimoval");
    EXPECT_EQ(r.ends, std::vector<int>{1});
}

TEST(Guard, TheProgramsOwnEndKeepsItsStatusAndSaysNothing) {
    for (const int status : {0, 3}) {
        Reported r;
        r.guard.run([status] { throw ProgramEnd{status}; });
        EXPECT_TRUE(r.messages.empty());
        EXPECT_EQ(r.ends, std::vector<int>{status});
    }
}

TEST(Guard, AnythingElseThrownReadsAsAnInternalFailure) {
    Reported standard, strange;
    standard.guard.run([] { throw std::runtime_error("?"); });
    strange.guard.run([] { throw 7; });
    for (const Reported *r : {&standard, &strange}) {
        ASSERT_EQ(r->messages.size(), 1U);
        EXPECT_EQ(r->messages[0].text.find(u"L'ERREUR 51 "), 0U);
        EXPECT_EQ(r->ends, std::vector<int>{1});
    }
}

TEST(Guard, NothingRunsWhileAReportIsUpNorAfterIt) {
    Reported r;
    int runs = 0;
    r.whileUp = [&] { r.guard.run([&] { ++runs; }); };
    r.guard.run([] { throw Failure(failure::diskFull); });
    r.guard.run([&] { ++runs; });
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(r.ends.size(), 1U);
}

TEST(Guard, AFailureWhileAReportIsUpEndsTheProcessAtOnce) {
    Reported r;
    std::size_t endsInside = 0;
    r.whileUp = [&] {
        r.guard.fail(failure::divisionByZero);
        endsInside = r.ends.size();
    };
    r.guard.run([] { throw Failure(failure::overflow); });
    EXPECT_EQ(endsInside, 1U);
    EXPECT_EQ(r.ends, std::vector<int>{1});
    EXPECT_EQ(r.messages.size(), 1U);
}

TEST(Guard, AReportThatCannotBeShownEndsWithStatus1AllTheSame) {
    Reported r;
    r.whileUp = [] { throw std::bad_alloc(); };
    r.guard.run([] { throw Failure(failure::overflow); });
    EXPECT_EQ(r.ends, std::vector<int>{1});
}

TEST(Guard, TheRealEndWritesOutWhatIsBufferedAndRunsNoDestructor) {
    int channel[2];
    ASSERT_EQ(::pipe(channel), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        struct Loud {
            int descriptor;
            ~Loud() { ::dprintf(descriptor, "detruit"); }
        };
        static Loud loud{channel[1]};
        FILE *out = ::fdopen(channel[1], "w");
        std::fputs("ecrit", out);
        endProcess(3);
    }
    ::close(channel[1]);
    char text[32] = {};
    const ssize_t length = ::read(channel[0], text, sizeof text - 1);
    ::close(channel[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(length, 5);
    EXPECT_STREQ(text, "ecrit");
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST(Guard, AFailureInAClickShowsTheBoxOverTheWindow) {
    Bench bench;
    TestForm form(bench.screen);
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    button.Click = [] { throw Failure(failure::overflow); };
    form.show();
    QString shown, title;
    Bench::later([&] {
        ASSERT_NE(bench.windows.box(), nullptr);
        title = bench.windows.box()->windowTitle();
        shown = bench.windows.box()->findChild<QLabel *>()->text();
        bench.windows.box()->accept();
    });
    QTest::mouseClick(bench.view<FaceButton>(button), Qt::LeftButton);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("L'ERREUR 6 est survenue.")))
        << shown.toStdString();
    EXPECT_EQ(title.toStdString(), "Le Grimoval");
    EXPECT_EQ(bench.ends, std::vector<int>{1});
}

TEST(Guard, AFailureInAGaugeAndInATimerIsCaughtToo) {
    for (const bool fromGauge : {true, false}) {
        Bench bench;
        TestForm form(bench.screen);
        Gauge gauge(form, "Flux");
        Timer timer(form, "Minut");
        gauge.Progression = [] { throw ProgramEnd{4}; };
        timer.Interval = 60'000;
        timer.Tick = [] { throw ProgramEnd{5}; };
        form.show();
        gauge.Lancer();
        if (fromGauge) {
            Beat &second = dynamic_cast<GaugeMirror *>(bench.mirror(gauge))->second();
            second.clock = [] { return Beat::monotonic() + 2000; };
            second.check();
        } else {
            Beat &beat = dynamic_cast<TimerMirror *>(bench.mirror(timer))->beat();
            beat.clock = [] { return Beat::monotonic() + 120'000; };
            beat.check();
        }
        EXPECT_EQ(bench.ends, std::vector<int>{fromGauge ? 4 : 5});
    }
}

} // namespace
} // namespace grimoval::test
