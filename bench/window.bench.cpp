// SPDX-License-Identifier: GPL-3.0-or-later
// How long the main window takes to draw itself on a screen of 1920 x 1080: whole, and what a
// letter changes in it.
#include "support/program.h"

#include "platform/qt/mirrors.h"
#include "platform/qt/qtwindows.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace grimoval {
namespace {

struct Windows {
    Windows() {
        system.setFactor(QtWindows::factorFor({1920, 1080}));
        program.windows.menu.load();
        FMenu &menu = program.windows.menu;
        menu.WindowState = 0; // the screen of this platform is a small one
        menu.VSDessin.PictureFile = fromUtf8(GRIMOVAL_DATA) + u"/IMAGES/FERME.JPG";
        menu.VSDessin.Visible = true;
        menu.Shape1.Visible = true;
        menu.Shape1.Height = 67;
        menu.Bord[3].Visible = true;
        menu.FluxScore.Visible = true;
        menu.RapTit.Caption = u"Sujet : À la ferme";
        menu.Rappel[1].Caption = u"MARIE D. A toi";
        menu.Rappel[2].Caption = u"PAUL M.";
        menu.ImgScore[0].Caption = u"12";
        menu.ImgScore[1].Caption = u"7";
        menu.FluReflec.Valeur = 12;
        menu.FluReflec.TexteFlux = u"12";
        menu.AffMot[0].FontSize = 15;
        menu.AffMot[0].Caption = u"#O#E#";
        menu.AffMot[1].Caption = u"5";
        menu.ActiverLettres();
        window = system.windowOf(menu);
        picture = QImage(window->size(), QImage::Format_RGB32);
    }

    void draw() {
        window->render(&picture, {}, {}, QWidget::DrawWindowBackground | QWidget::DrawChildren);
    }

    Files files;
    QtWindows system{files, fromUtf8(GRIMOVAL_DATA)};
    test::Program program{system};
    FormWindow *window = nullptr;
    QImage picture;
};

void drawingTheMainWindow(benchmark::State &state) {
    Windows windows;
    windows.draw(); // the caches are warm from here on
    for ([[maybe_unused]] auto _ : state) {
        windows.draw();
    }
    state.counters["width"] = windows.picture.width();
    state.counters["height"] = windows.picture.height();
}
BENCHMARK(drawingTheMainWindow)->Unit(benchmark::kMillisecond);

void drawingOneLetter(benchmark::State &state) {
    Windows windows;
    windows.draw();
    LetterButton &letter = windows.program.windows.menu.VsAlpha[4];
    QWidget *view = windows.window->mirrorOf(&letter)->widget();
    for ([[maybe_unused]] auto _ : state) {
        letter.Enabled = !letter.Enabled;
        view->render(&windows.picture, {}, {}, QWidget::DrawChildren);
    }
}
BENCHMARK(drawingOneLetter)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace grimoval

int main(int count, char **arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
