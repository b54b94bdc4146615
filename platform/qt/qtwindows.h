// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the program in a window system.
#pragma once

#include "platform/qt/formwindow.h"

#include <QPointer>
#include <QTimer>

class QDialog;
class QEventLoop;

namespace grimoval {

class QtWindows : public WindowSystem {
public:
    // The folder of the installed data holds `IMAGES/`. Needs a QApplication.
    QtWindows(Files &files, const Texte &dataFolder);
    ~QtWindows() override;

    // The toolkit paints nothing on a screen of a palette, and would fall over that later.
    static bool canPaint();

    // Everything that the program does runs here, from its start on.
    Guard &guard() { return guard_; }

    // Once: as soon as somebody sees something.
    void afterFirstPicture(std::function<void()> action) { host_.firstPicture = std::move(action); }

    // What task bars and lists of windows show. The splash, which is in none, does not wait for it.
    void setIcon();

    // All of them go, the backdrop too, and the screen shows it: the program has come to its end.
    void leave();

    // The form will soon be shown: reads its background meanwhile.
    void foresee(const Form &form);

    // One for all windows made after; from the screen at first.
    double factor() const { return host_.factor; }
    void setFactor(double factor) { host_.factor = factor; }
    // The factor that lets the main window fill most of a screen of so many pixels.
    static double factorFor(QSize screen);
    // What is done when the screen has become another.
    void fitScreen(QSize size);

    // The window of a form, while it is loaded; the message box that is up.
    FormWindow *windowOf(const Form &form) const;
    QDialog *box() const;

    int screenWidth() override;
    int screenHeight() override;
    void loaded(Form &form) override;
    void shown(Form &form, Form *opener) override;
    void hidden(Form &form) override;
    void unloaded(Form &form) override;
    void changed(Element &element, PropertyBase &property) override;
    void focusMoved(Control &control) override;
    void runModal(Form &form) override;
    void processEvents() override;
    void message(const Message &message) override;
    void beep() override;
    void checkPicture(const Texte &path) override;

private:
    void endModal(const Form &form);
    // The window on top takes the keyboard, once it is known which one that is.
    void wakeTop(const Form &form);
    // What takes clicks has become another window.
    void tellReach();
    void bury();
    void watchScreen();
    static double factorBeside(QSize screen);
    FormWindow *backdrop() const;

    Guard guard_;
    Pictures pictures_;
    Host host_;
    std::unordered_map<const Form *, FormWindow *> windows_;
    std::vector<QPointer<FormWindow>> graves_; // of forms that are gone
    std::unordered_map<const Form *, QEventLoop *> loops_;
    std::vector<QDialog *> boxes_;
    QTimer waker_, fitter_;
    QSize fitted_; // the screen that the windows are placed on
    const Screen *toWake_ = nullptr;
    bool hourglass_ = false;
};

} // namespace grimoval
