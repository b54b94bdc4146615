// SPDX-License-Identifier: GPL-3.0-or-later
// What ends the program from outside, where the real program cannot be brought to it; the rest is
// the matter of tests/programme/session_end.py.
#include "platform/qt/sessionend.h"

#include "qt/bench.h"
#include "support/conditions.h"

#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace grimoval::test {
namespace {

using namespace std::chrono_literals;

// A process that waits for events, and whose last thing takes for ever.
class Hanging : public testing::Test {
protected:
    Hanging() : child(::fork()) {
        if (child == 0) {
            ::close(ready[0]);
            const SessionEnd end([] {
                for (;;) {
                    ::pause();
                }
            });
            (void)::write(ready[1], "", 1);
            QEventLoop().exec();
            ::_exit(99);
        }
        ::close(ready[1]);
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
    }
    ~Hanging() override {
        if (alive()) {
            ::kill(child, SIGKILL);
            ::waitpid(child, nullptr, 0);
        }
    }
    bool alive() { return !ended && ::waitpid(child, &status, WNOHANG) == 0; }
    void awaitEnd() {
        ended = ::waitpid(child, &status, 0) == child;
        ASSERT_TRUE(ended);
    }

    struct Pipe {
        int ends[2];
        Pipe() { EXPECT_EQ(::pipe(ends), 0); }
        int operator[](int end) const { return ends[end]; }
    } ready;
    pid_t child;
    int status = 0;
    bool ended = false;
};

TEST_F(Hanging, IsEndedByASignalThatComesLaterAndNotByOthersOfTheFirstMoment) {
    const Deadline deadline(20);
    for (const int number : {SIGTERM, SIGHUP, SIGTERM}) {
        ::kill(child, number);
        std::this_thread::sleep_for(20ms);
    }
    std::this_thread::sleep_for(300ms);
    EXPECT_TRUE(alive());
    std::this_thread::sleep_for(900ms);
    ::kill(child, SIGTERM);
    awaitEnd();
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 128 + SIGTERM);
}

TEST(ToolkitThatQuits, EndsTheProgramInsteadOfTurningIdly) {
    const Deadline deadline(20);
    Bench bench;
    Form form(bench.screen, "FEssai");
    Bench::later([] { QCoreApplication::exit(0); });
    bench.windows.guard().run([&] { form.showModal(); });
    EXPECT_EQ(bench.ends, std::vector<int>{0});
    // The toolkit forgets it with the next run of the application.
    Bench::later([] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
}

} // namespace
} // namespace grimoval::test
