// SPDX-License-Identifier: GPL-3.0-or-later
// A sound server of the test's own that dies or hangs while a tune and prompts play: no call waits
// for it. What is heard is the matter of tests/programme/sound_server.py.
#include "platform/qt/sound.h"

#include "platform/files.h"
#include "support/temporary_folder.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>
#include <thread>

namespace grimoval::test {
namespace {

using namespace std::chrono_literals;

class SoundServer : public testing::Test {
protected:
    SoundServer() {
        const QString socket = QString::fromStdString(folder.bytePath(u"sound"));
        qputenv("SDL_AUDIODRIVER", "pulseaudio");
        qputenv("PULSE_SERVER", "unix:" + socket.toUtf8());
        QProcessEnvironment around = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"}) {
            around.insert(QString::fromLatin1(name), QString::fromStdString(folder.bytePath(u"")));
        }
        server.setProcessEnvironment(around);
        server.setStandardErrorFile(QProcess::nullDevice());
        server.start(
            QStringLiteral("pulseaudio"),
            {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
             QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
             QStringLiteral("--realtime=no"), QStringLiteral("--high-priority=no"),
             QStringLiteral("-L"), QStringLiteral("module-null-sink"), QStringLiteral("-L"),
             QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket});
        const auto answers = [&socket] {
            QLocalSocket client;
            client.connectToServer(socket);
            return client.waitForConnected(100);
        };
        const bool there = QTest::qWaitFor(answers, 10000);
        EXPECT_TRUE(there);
    }
    ~SoundServer() override {
        signal(SIGCONT);
        server.kill();
        server.waitForFinished();
        qunsetenv("SDL_AUDIODRIVER");
        qunsetenv("PULSE_SERVER");
    }

    void signal(int number) const { ::kill(static_cast<pid_t>(server.processId()), number); }

    // The longest of many calls of each kind, in milliseconds, with time between for what they set
    // going.
    qint64 longestCall(MixerSound &sound) const {
        qint64 longest = 0;
        const auto measure = [&longest](const auto &call) {
            QElapsedTimer timer;
            timer.start();
            call();
            longest = std::max(longest, timer.elapsed());
        };
        for (int i = 0; i < 12; ++i) {
            measure([&] { sound.playWave(prompt); });
            measure([&] { i % 3 == 0 ? sound.stopMidi() : sound.playMidi(tune, true); });
            std::this_thread::sleep_for(60ms);
        }
        return longest;
    }

    TemporaryFolder folder;
    Files files;
    QProcess server;
    Texte prompt = fromUtf8(GRIMOVAL_SOUNDS "/AlaProch.Wav");
    Texte tune = fromUtf8(GRIMOVAL_SOUNDS "/CLVMID1.mid");
};

TEST_F(SoundServer, ThatDiesIsWaitedForByNobody) {
    QElapsedTimer timer;
    {
        MixerSound sound(files);
        ASSERT_TRUE(sound.midiAvailable());
        sound.playMidi(tune, true);
        sound.playWave(prompt);
        std::this_thread::sleep_for(300ms);
        signal(SIGKILL);
        EXPECT_LT(longestCall(sound), 50);
        timer.start();
        sound.finishWave(5s);
        EXPECT_LT(timer.elapsed(), 5100);
        timer.start();
    }
    EXPECT_LT(timer.elapsed(), 1000);
}

TEST_F(SoundServer, ThatHangsIsWaitedForByNobody) {
    MixerSound sound(files);
    ASSERT_TRUE(sound.midiAvailable());
    sound.playMidi(tune, true);
    sound.playWave(prompt);
    std::this_thread::sleep_for(300ms);
    signal(SIGSTOP);
    EXPECT_LT(longestCall(sound), 50);
    QElapsedTimer timer;
    timer.start();
    sound.finishWave(1s);
    EXPECT_LT(timer.elapsed(), 1100);
    signal(SIGCONT);
}

// A server that is late is not away: nothing is written off for it, and nobody waits.
TEST_F(SoundServer, ThatHangsFromTheStartCountsAsThere) {
    signal(SIGSTOP);
    MixerSound sound(files);
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(sound.waveAvailable());
    EXPECT_TRUE(sound.midiAvailable());
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_LT(longestCall(sound), 50);
    signal(SIGCONT);
}

} // namespace
} // namespace grimoval::test
