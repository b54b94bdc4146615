// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/sessionend.h"

#include "platform/qt/guard.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace grimoval {

namespace {

// Several signals within this time are one wish: who ends a session sends TERM and HUP together.
constexpr long long oneWish = 1000;           // milliseconds
constexpr std::chrono::seconds lastThings{5}; // longer than a record takes

SessionEnd *current = nullptr;
QtMessageHandler former = nullptr;
int wakeUp[2] = {-1, -1}; // a byte in it is the cause of an end
constexpr char signalCame = 's', displayDied = 'd';

// What a signal handler may touch.
std::atomic<bool> handedOver = false;
std::atomic<int> handedStatus = EXIT_SUCCESS;
std::atomic<long long> firstSignal = 0; // milliseconds; 0: none yet

std::thread::id windowsThread;

long long milliseconds() {
    std::timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000LL + now.tv_nsec / 1'000'000;
}

void takeSignal(int number) {
    const int kept = errno;
    if (handedOver) {
        ::_exit(handedStatus);
    }
    const long long at = milliseconds();
    long long none = 0;
    if (firstSignal.compare_exchange_strong(none, at)) {
        [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], &signalCame, 1);
    } else if (at - none >= oneWish) { // the first one has not come to its end: the program hangs
        ::_exit(128 + number);
    }
    errno = kept;
}

void catchSignals() {
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction before {};
        ::sigaction(number, nullptr, &before);
        if (before.sa_handler == SIG_IGN) { // who started us wanted it so
            continue;
        }
        struct sigaction taken {};
        taken.sa_handler = takeSignal;
        taken.sa_flags = SA_RESTART;
        ::sigemptyset(&taken.sa_mask);
        ::sigaction(number, &taken, nullptr);
    }
}

// A toolkit that loses the X display calls exit.
void atExit() {
    if (current != nullptr && std::this_thread::get_id() == windowsThread) {
        current->end(EXIT_FAILURE);
    }
}

// One that loses the Wayland display calls _exit, which nobody hears; these are its last words, on
// the thread of the windows or on one of its own, which then waits for the end.
void hearMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (former != nullptr) {
        former(type, context, text);
    }
    if (!text.startsWith(QLatin1String("The Wayland connection "))) {
        return;
    }
    if (QThread::currentThread() != qApp->thread()) {
        [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], &displayDied, 1);
        std::this_thread::sleep_for(lastThings);
    } else if (current != nullptr) {
        current->end(EXIT_FAILURE);
    }
}

} // namespace

SessionEnd::SessionEnd(std::function<void()> last) : last_(std::move(last)) {
    current = this;
    windowsThread = std::this_thread::get_id();
    handedOver = false;
    firstSignal = 0;
    if (::pipe2(wakeUp, O_NONBLOCK | O_CLOEXEC) == 0) {
        notifier_ = std::make_unique<QSocketNotifier>(wakeUp[0], QSocketNotifier::Read);
        connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
            char cause = 0;
            const bool died = ::read(wakeUp[0], &cause, 1) == 1 && cause == displayDied;
            end(died ? EXIT_FAILURE : EXIT_SUCCESS);
        });
        catchSignals();
    }
    static const bool registered = std::atexit(atExit) == 0;
    (void)registered;
    former = qInstallMessageHandler(hearMessage);
    qApp->installEventFilter(this);
}

SessionEnd::~SessionEnd() {
    qInstallMessageHandler(former);
    handOver(); // the signals that still come
    notifier_.reset();
    current = nullptr;
}

void SessionEnd::handOver(int status) {
    handedStatus = status;
    handedOver = true;
}

void SessionEnd::end(int status) {
    current = nullptr; // whatever the last thing does, this is the end
    if (handedOver) {
        status = handedStatus;
    } else {
        try {
            last_();
        } catch (...) {
            // Nobody is there to be told.
        }
    }
    endProcess(status);
}

// What the session manager says at its end; a session that is only saved goes on.
bool SessionEnd::eventFilter(QObject *object, QEvent *event) {
    if (object == qApp && event->type() == QEvent::Quit) {
        end(EXIT_SUCCESS);
    }
    return QObject::eventFilter(object, event);
}

} // namespace grimoval
