// SPDX-License-Identifier: GPL-3.0-or-later
// Le Grimoval: the services, the state and the windows, brought together. The one file that sees
// both the program and the toolkit.
#include "platform/qt/desktopfiles.h"
#include "platform/qt/motion.h"
#include "platform/qt/printing.h"
#include "platform/qt/qtservices.h"
#include "platform/qt/qtwindows.h"
#include "platform/qt/sessionbus.h"
#include "platform/qt/sessionend.h"
#include "platform/qt/sound.h"
#include "shell/MAINGRIM.h"

#include <QApplication>

#include <csignal>
#include <cstdio>

int main() {
    using namespace grimoval;
    std::signal(SIGXFSZ, SIG_IGN); // beyond a limit of file size the disk is full, and no more
    QtApplication application;
    // A second one opens nothing, neither a display nor a device.
    if (application.previousInstance()) {
        return 0;
    }
    avoidOddDesktop();
    forgetSilentBus(std::chrono::milliseconds(1500));
    // The program takes no arguments, and its toolkit gets none.
    char name[] = "grimoval";
    char *arguments[] = {name, nullptr};
    int count = 1;
    QApplication toolkit(count, arguments);
    if (!QtWindows::canPaint()) {
        std::fputs(
            "Le Grimoval : cet écran n'a pas assez de couleurs ; il en faut au moins 32 768.\n",
            stderr);
        return 1;
    }

    Files files;
    QtWindows windows(files, application.path());
    MixerSound sound(files);
    QtClock clock;
    QtRandom random;
    QtDocuments documents(files);
    QtPrinter printer([&windows] { windows.processEvents(); });
    Screen screen(windows);
    Services services{screen, files, clock, random, sound, documents, application, printer};
    Globales g(services);
    FenetresDuJeu fenetres(g);
    SessionEnd sessionEnd([&] {
        printer.stopWaiting();
        if (windows.guard().isOpen()) {
            fenetres.score.FinirSession();
        }
    });
    windows.foresee(fenetres.splash);
    windows.afterFirstPicture([&] { // the splash comes first
        windows.foresee(fenetres.menu);
        if (screen.Width() > fenetres.menu.Width) { // only there it has a backdrop
            windows.foresee(fenetres.plein);
        }
        sound.open();
        motion::followDesktop();
        windows.setIcon();
    });

    // The leave-taking is heard to its end behind an empty screen.
    windows.guard().end = [&](int status) {
        sessionEnd.handOver(status);
        windows.leave();
        application.release();
        sound.finishWave(std::chrono::seconds(5));
        endProcess(status);
    };
    windows.guard().run([&] { Main(g, fenetres); });
}
