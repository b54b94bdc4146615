// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qtwindows.h"

#include "platform/qt/accessibility.h"
#include "platform/qt/messagebox.h"
#include "platform/qt/nativeviews.h"
#include "platform/qt/painting.h"

#include <QApplication>
#include <QEventLoop>
#include <QIcon>
#include <QScreen>

#include <algorithm>

namespace grimoval {

QtWindows::QtWindows(Files &files, const Texte &dataFolder)
    : guard_([this](const Message &report) { message(report); }),
      pictures_(files, dataFolder), host_{guard_, pictures_, 1, {}} {
    host_.reaches = [this](const Form &form) {
        return boxes_.empty() && form.screen().reaches(form);
    };
    host_.turns.idle = [this] { bury(); };
    host_.factor = factorFor(QGuiApplication::primaryScreen()->geometry().size());
    QGuiApplication::setQuitOnLastWindowClosed(false); // the program ends when it says so
    waker_.setSingleShot(true);
    QObject::connect(&waker_, &QTimer::timeout, &waker_, [this] {
        const Form *active = toWake_->active();
        FormWindow *window = active == nullptr ? nullptr : windowOf(*active);
        if (window != nullptr && !active->backdrop && !window->isActiveWindow() &&
            box() == nullptr) {
            window->activateWindow();
        }
    });
    dressApplication(host_.factor);
    watchScreen();
    QGuiApplication::setDesktopFileName(QStringLiteral("grimoval")); // its entry in the menus
    installAccessibility();
}

// The small ones are drawings of their own.
void QtWindows::setIcon() {
    QIcon icon;
    for (const char *side : {"16", "24", "32", "48", "64", "128"}) {
        const QImage image = pictures_.design(std::string("icone-") + side);
        if (!image.isNull()) {
            icon.addPixmap(QPixmap::fromImage(image));
        }
    }
    QGuiApplication::setWindowIcon(icon);
}

QtWindows::~QtWindows() {
    for (const auto &[form, window] : windows_) {
        window->detach();
        delete window;
    }
    for (const QPointer<FormWindow> &window : graves_) {
        delete window;
    }
    if (hourglass_) {
        QGuiApplication::restoreOverrideCursor();
    }
}

bool QtWindows::canPaint() { return QGuiApplication::primaryScreen()->depth() >= 15; }

double QtWindows::factorFor(QSize screen) {
    if (screen.width() <= 800) { // the main window fills it
        return std::min({1.0, screen.width() / 800.0, screen.height() / 600.0});
    }
    return factorBeside(screen);
}

double QtWindows::factorBeside(QSize screen) {
    // Room for a title bar and the panel of a desktop.
    return std::min(screen.width() * 0.92 / 800, screen.height() * 0.88 / 580);
}

// A screen that is turned, changed or taken away moves no window: what lay outside would be lost.
void QtWindows::watchScreen() {
    fitter_.setSingleShot(true);
    QObject::connect(&fitter_, &QTimer::timeout, &fitter_,
                     [this] { fitScreen(QGuiApplication::primaryScreen()->geometry().size()); });
    const auto watch = [this](const QScreen *screen) {
        QObject::connect(screen, &QScreen::geometryChanged, &fitter_, [this] { fitter_.start(0); });
        fitter_.start(0);
    };
    QObject::connect(qApp, &QGuiApplication::primaryScreenChanged, &fitter_, watch);
    watch(QGuiApplication::primaryScreen());
    fitted_ = QGuiApplication::primaryScreen()->geometry().size();
}

void QtWindows::fitScreen(QSize size) {
    if (size.isEmpty() || size == fitted_) {
        return;
    }
    fitted_ = size;
    // Whether the main window fills a screen or stands on it was settled when it opened.
    const bool fills = std::any_of(windows_.begin(), windows_.end(), [](const auto &entry) {
        const Form &form = *entry.second->form();
        return !form.backdrop && form.WindowState == 2;
    });
    host_.factor = fills ? factorFor(size) : factorBeside(size);
    dressApplication(host_.factor);
    for (const auto &[form, window] : windows_) {
        window->centre(size);
    }
    for (QDialog *box : boxes_) {
        QRect place = box->geometry();
        place.moveCenter(QGuiApplication::primaryScreen()->geometry().center());
        box->move(place.topLeft());
    }
}

void QtWindows::foresee(const Form &form) {
    const QSize picture = pictures_.backgroundSize(form.path());
    if (picture.isValid()) {
        const QSize inside = backgroundOf(form, insideOf(form, host_.factor), picture);
        pictures_.foresee(form.path(),
                          inside * QGuiApplication::primaryScreen()->devicePixelRatio());
    }
}

FormWindow *QtWindows::windowOf(const Form &form) const {
    const auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : found->second;
}

QDialog *QtWindows::box() const { return boxes_.empty() ? nullptr : boxes_.back(); }

int QtWindows::screenWidth() { return QGuiApplication::primaryScreen()->geometry().width() * 15; }

int QtWindows::screenHeight() { return QGuiApplication::primaryScreen()->geometry().height() * 15; }

void QtWindows::loaded(Form &form) { windows_[&form] = new FormWindow(form, host_); }

FormWindow *QtWindows::backdrop() const {
    for (const auto &[form, window] : windows_) {
        if (form->backdrop && form->isShown()) {
            return window;
        }
    }
    return nullptr;
}

void QtWindows::shown(Form &form, Form *opener) {
    FormWindow *below = opener == nullptr ? nullptr : windowOf(*opener);
    // The backdrop is no window to go back to: what opens over it is as free as over the screen.
    const bool modal = below != nullptr && !opener->backdrop;
    if (below == nullptr && !form.backdrop) {
        below = backdrop();
    }
    host_.turns.forget();
    windowOf(form)->showOver(below, modal);
    tellReach();
}

void QtWindows::hidden(Form &form) {
    windowOf(form)->hideMirror();
    endModal(form);
    wakeTop(form);
}

void QtWindows::unloaded(Form &form) {
    FormWindow *window = windowOf(form);
    windows_.erase(&form);
    window->detach();
    graves_.emplace_back(window);
    endModal(form);
    wakeTop(form);
    if (host_.turns.isIdle()) {
        bury();
    }
}

// No event of any window is being handled any more.
void QtWindows::bury() {
    for (const QPointer<FormWindow> &window : graves_) {
        if (window) {
            window->deleteLater();
        }
    }
    graves_.clear();
}

void QtWindows::wakeTop(const Form &form) {
    toWake_ = &form.screen();
    waker_.start(0);
    tellReach();
}

void QtWindows::tellReach() {
    for (const auto &[form, window] : windows_) {
        window->tellReach();
    }
}

void QtWindows::changed(Element &element, PropertyBase &property) {
    if (auto *control = dynamic_cast<Control *>(&element)) {
        if (FormWindow *window = windowOf(control->form())) {
            window->changed(*control, property);
        }
    } else if (const auto *form = dynamic_cast<Form *>(&element)) {
        if (FormWindow *window = windowOf(*form)) {
            window->changed(property);
        }
    } else if (const auto *screen = dynamic_cast<Screen *>(&element)) {
        const bool wanted = screen->MousePointer == 11;
        if (wanted != hourglass_) {
            hourglass_ = wanted;
            if (wanted) {
                QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            } else {
                QGuiApplication::restoreOverrideCursor();
            }
        }
    }
}

void QtWindows::focusMoved(Control &control) {
    if (FormWindow *window = windowOf(control.form())) {
        window->focusMoved();
    }
}

void QtWindows::runModal(Form &form) {
    QEventLoop loop;
    loops_[&form] = &loop;
    const Turns::Pause pause(host_.turns, &form);
    while (loops_.contains(&form) && !guard_.ended()) {
        // The toolkit has been told to quit: no loop runs any more, and this one would turn idly.
        if (loop.exec() < 0) {
            QEvent quit(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &quit);
            loops_.erase(&form);
            throw ProgramEnd();
        }
    }
    loops_.erase(&form);
}

void QtWindows::endModal(const Form &form) {
    if (const auto found = loops_.find(&form); found != loops_.end()) {
        found->second->quit();
        loops_.erase(found);
        host_.turns.gone(&form);
    }
}

// Of what is in no handler, the start of the program, too.
void QtWindows::processEvents() {
    const Turns::Handler handler(host_.turns);
    QCoreApplication::processEvents();
}

void QtWindows::message(const Message &text) {
    QWidget *over = box();
    for (const auto &[form, window] : windows_) {
        if (over == nullptr && form->screen().active() == form) {
            over = window;
        }
    }
    host_.turns.forget();
    MessageBox box(text, over, host_.factor);
    QEventLoop loop;
    QObject::connect(&box, &QDialog::finished, &loop, [this, &box, &loop] {
        host_.turns.gone(&box);
        loop.quit();
    });
    const Turns::Pause pause(host_.turns, &box);
    boxes_.push_back(&box);
    // A box is read with the arrow, whatever takes its time below it.
    if (hourglass_) {
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    const bool arrow = hourglass_;
    box.open();
    tellReach();
    loop.exec();
    if (arrow) {
        QGuiApplication::restoreOverrideCursor();
    }
    std::erase(boxes_, &box);
    tellReach();
}

void QtWindows::leave() {
    for (QWidget *window : QApplication::topLevelWidgets()) {
        window->hide();
    }
    QGuiApplication::sync();
}

void QtWindows::beep() { QApplication::beep(); }

void QtWindows::checkPicture(const Texte &path) { pictures_.check(path); }

} // namespace grimoval
