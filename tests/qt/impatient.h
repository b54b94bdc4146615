// SPDX-License-Identifier: GPL-3.0-or-later
// The game in real windows under impatient hands: a test may act in the middle of a handler, where
// the program lets pending events in.
#pragma once

#include "qt/bench.h"
#include "shell/mdAppData.h"
#include "support/program.h"
#include "support/random_games.h"

#include <QDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

#include <utility>

namespace grimoval::test {

// Clocks stand still: the wheel alone moves them. Modal windows and boxes are answered by `answer`.
class ImpatientWindows : public QtWindows {
public:
    using QtWindows::QtWindows;

    std::function<void()> meanwhile;                    // where pending events are let in
    std::function<void(Form *)> answer = [](Form *) {}; // null: a box
    scripted::TimeWheel *wheel = nullptr;

    void loaded(Form &form) override {
        QtWindows::loaded(form);
        for (const Control *control : form.controls()) {
            if (Mirror *mirror = windowOf(form)->mirrorOf(control)) {
                mirror->stop();
            }
        }
    }
    void unloaded(Form &form) override {
        wheel->forget(form);
        QtWindows::unloaded(form);
    }
    void changed(Element &element, PropertyBase &property) override {
        if (const auto *gauge = dynamic_cast<const Gauge *>(&element);
            gauge != nullptr && &property == &gauge->EnMarche) {
            wheel->gaugeChanged(*gauge);
        } else if (dynamic_cast<const Timer *>(&element) == nullptr) {
            QtWindows::changed(element, property);
        }
    }
    void processEvents() override {
        if (const auto action = meanwhile) { // which may end itself
            action();
        }
        QtWindows::processEvents();
    }
    void runModal(Form &form) override {
        Bench::later([this, &form] { answer(&form); });
        QtWindows::runModal(form);
    }
    void message(const Message &message) override {
        Bench::later([this] {
            answer(nullptr);
            box()->accept();
        });
        QtWindows::message(message);
    }
};

struct Impatient {
    explicit Impatient(const Start &start) {
        windows.setFactor(1);
        windows.guard().end = [this](int status) { ends.push_back(status); };
        windows.wheel = &wheel;
        windows.answer = [this](Form *form) { leave(form); };
        g.TitreAppli = u"Le Grimoval ";
        g.dossiers.DossierScore = asFolder(program.folder.path());
        g.reglages.NombreJoueur = start.mode;
        g.reglages.NombreErreur = start.errors;
        g.reglages.RéflexionLimite = start.limited ? 1 : 0;
        g.reglages.TempsRéflexion = start.seconds;
        g.son.WavPresent = g.son.ParoleActive = 1;
        for (std::size_t i = 0; i < start.names.size(); ++i) {
            g.joueurs.NomJoueur[i + 1] = start.names[i];
        }
        menu.show();
        menu.LstMot[0].Items = start.words;
        g.base.BaseChargee = true;
        g.base.TitreBase = u"Essai";
        g.base.FichierBase = u"ESSAI.DBS";
        menu.AfficherJoueurs();
        settle();
    }
    ~Impatient() { windows.meanwhile = nullptr; }

    // Until nothing waits its turn any more.
    static void settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QCoreApplication::processEvents();
        }
    }

    QWindow *window(Form &form) { return windows.windowOf(form)->windowHandle(); }

    // As the window system hands them to a window of the program: as soon as events are let in, in
    // their order.
    static void later(const std::function<void()> &action) {
        QMetaObject::invokeMethod(qApp, action, Qt::QueuedConnection);
    }
    void click(Control &control) {
        if (!control.isVisible()) {
            return; // another one may be in its place
        }
        FormWindow *form = windows.windowOf(control.form());
        const QPointF place = form->mirrorOf(&control)->widget()->geometry().center();
        later([window = QPointer<QWindow>(form->windowHandle()), place] {
            for (const auto &[type, down] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                             std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
                if (window) {
                    QMouseEvent event(type, place, window->mapToGlobal(place), Qt::LeftButton, down,
                                      Qt::NoModifier);
                    QCoreApplication::sendEvent(window, &event);
                }
            }
        });
    }
    void key(Form &form, int key, const QString &text = {}) {
        later([window = QPointer<QWindow>(window(form)), key, text] {
            if (window) {
                QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
                QCoreApplication::sendEvent(window, &event);
            }
        });
    }
    void letter(char16_t character) {
        const QString text{QChar(character)};
        key(menu, text.toUpper()[0].unicode(), text);
    }

    // What the person does with a modal window of its own accord.
    void leave(Form *form) {
        if (form == nullptr) {
            return;
        }
        if (form == &program.windows.score) {
            const ScoresPartie &s = g.scores;
            records.push_back({s.NbMotsProposes});
            for (const std::size_t p : {1u, 2u}) {
                for (const auto *counter : {&s.Score, &s.MotsTrouves, &s.MauvaisesLettres,
                                            &s.BonnesLettres, &s.Abandons}) {
                    records.back().push_back((*counter)[p]);
                }
            }
            key(*form, Qt::Key_Escape);
        } else if (form == &program.windows.question) {
            click(program.windows.question.CmdMsg[answersYes ? 1 : 2]);
        } else {
            window(*form)->close();
        }
    }

    // Time alone passes at once.
    void post(const Action &action) {
        switch (action.kind) {
        case Action::click:
            return click(menu.VsAlpha[action.character - u'A']);
        case Action::key:
            return letter(action.character);
        case Action::enter:
            return key(menu, Qt::Key_Return, QStringLiteral("\r"));
        case Action::newWord:
            return click(menu.CmdJeux[0]);
        case Action::answer:
            return click(menu.CmdJeux[1]);
        case Action::giveUp:
            return click(menu.CmdJeux[2]);
        case Action::stop:
            return click(menu.CmdTjr[0]);
        case Action::begin:
            return click(menu.CmdTjr[2]);
        case Action::about:
            return click(menu.lblAbout);
        case Action::sound:
            return click(menu.CmdCfg[1]);
        case Action::refusedQuit:
            return click(menu.CmdTjr[3]);
        case Action::seconds:
            return wheel.advance(action.amount * 1000LL);
        default:
            return menu.expose();
        }
    }

    Files files;
    TemporaryFolder folder;
    ImpatientWindows windows{files, folder.path()};
    Program program{windows};
    scripted::TimeWheel wheel{program.screen, program.clock};
    Globales &g = program.g;
    FMenu &menu = program.windows.menu;
    std::vector<int> ends;
    std::vector<std::vector<int>> records; // as Rules::records
    bool answersYes = false;
};

} // namespace grimoval::test
