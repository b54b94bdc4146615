// SPDX-License-Identifier: GPL-3.0-or-later
// A bus that answers is told from one that takes a connection and says nothing, or no more than a
// greeting.
#include "platform/qt/sessionbus.h"

#include "support/temporary_folder.h"

#include <QElapsedTimer>
#include <QProcess>
#include <gtest/gtest.h>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace grimoval::test {
namespace {

using namespace std::chrono_literals;

// A socket that takes connections, and answers the first thing that comes on the first of them.
class Silent {
public:
    explicit Silent(const std::string &path, std::string greeting = {}, int waiting = 4)
        : door_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(door_, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(door_, waiting), 0);
        if (!greeting.empty()) {
            thread_ = std::thread([this, greeting = std::move(greeting)] {
                const int client = ::accept(door_, nullptr, nullptr);
                char byte = 0;
                while (::recv(client, &byte, 1, 0) == 1 && byte != '\n') {
                }
                ::send(client, greeting.data(), greeting.size(), MSG_NOSIGNAL);
                while (::recv(client, &byte, 1, 0) == 1) {
                }
                ::close(client);
            });
        }
    }
    ~Silent() {
        if (thread_.joinable()) {
            thread_.join();
        }
        ::close(door_);
    }

private:
    int door_;
    std::thread thread_;
};

struct SessionBus : testing::Test {
    TemporaryFolder folder;
    const std::string path = folder.bytePath(u"bus");

    // Whether it answers; that is known in time.
    bool asked(const std::string &address) {
        QElapsedTimer timer;
        timer.start();
        const bool answered = answers(address, 300ms);
        EXPECT_LT(timer.elapsed(), 600);
        return answered;
    }
};

TEST_F(SessionBus, ThatSaysNothingOrNoMoreThanItsGreetingDoesNotAnswer) {
    {
        const Silent silent(path);
        EXPECT_FALSE(asked("unix:path=" + path + ",guid=0"));
    }
    ::unlink(path.c_str());
    {
        const Silent greeting(path, "OK 0123456789abcdef0123456789abcdef\r\n");
        EXPECT_FALSE(asked("unix:path=" + path));
    }
    ::unlink(path.c_str());
    const Silent full(path, {}, 0);
    const int first = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    ASSERT_EQ(::connect(first, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    EXPECT_FALSE(asked("unix:path=" + path));
    ::close(first);
}

TEST_F(SessionBus, OfTheSystemsOwnProgramAnswers) {
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--nofork"),
               QStringLiteral("--nopidfile"), QStringLiteral("--print-address"),
               QStringLiteral("--address=unix:path=") + QString::fromStdString(path)});
    ASSERT_TRUE(bus.waitForReadyRead(10000));
    EXPECT_TRUE(answers(bus.readLine().trimmed().toStdString(), 5s));
    bus.kill();
    bus.waitForFinished();
}

TEST_F(SessionBus, ThatIsNotThereOrOfAnotherKindIsLeftToTheToolkit) {
    for (const std::string &address :
         {"unix:path=" + path, std::string("unix:abstract=grimoval-nobody"),
          std::string("tcp:host=localhost,port=9"), std::string("autolaunch:"), std::string()}) {
        EXPECT_TRUE(asked(address)) << address;
    }
}

} // namespace
} // namespace grimoval::test
