// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/formwindow.h"

#include "platform/qt/drawn.h"
#include "platform/qt/nativeviews.h"
#include "platform/qt/strings.h"
#include "platform/services.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace grimoval {

FormWindow::FormWindow(Form &form, Host &host)
    : form_(&form), host_(host), surface_(form.parchment ? Surface::parchment : Surface::night),
      pictureSize_(host.pictures.backgroundSize(form.path())), factor_(host.factor) {
    setObjectName(QString::fromStdString(form.path()));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setMouseTracking(true);
    setFocusPolicy(form.backdrop ? Qt::NoFocus : Qt::TabFocus);
    setDecoration(false, false);
    if (!form.backdrop) {
        setStyleSheet(sheetFor(factor_));
    }
    makeMirrors();
    changed(form.Caption);
    place();
}

FormWindow::~FormWindow() {
    for (const auto &mirror : mirrors_) {
        delete mirror->widget();
    }
}

void FormWindow::makeMirrors() {
    for (Control *control : form_->controls()) {
        if (auto mirror = makeMirror(*this, *control)) {
            byControl_[control] = mirror.get();
            mirrors_.push_back(std::move(mirror));
        }
    }
    for (const auto &mirror : mirrors_) {
        mirror->fit();
        mirror->refresh(nullptr);
        if (QWidget *widget = mirror->widget()) {
            widget->installEventFilter(this);
        }
    }
}

void FormWindow::detach() {
    form_ = nullptr;
    for (const auto &mirror : mirrors_) {
        mirror->stop();
    }
    hide();
}

void FormWindow::door(std::function<void(Form &)> action) {
    if (isOpen() && !host_.turns.wait(*this, [this, action] { door(action); })) {
        run(action);
    }
}

void FormWindow::notice(const std::function<void(Form &)> &action) {
    if (isOpen()) {
        run(action);
    }
}

void FormWindow::run(const std::function<void(Form &)> &action) {
    if (form_ == nullptr) {
        return;
    }
    const Turns::Handler handler(host_.turns);
    host_.guard.run([&] { action(*form_); });
}

Mirror *FormWindow::mirrorOf(const Control *control) const {
    const auto found = byControl_.find(control);
    return found == byControl_.end() ? nullptr : found->second;
}

Control *controlOf(const FormWindow &window, const QObject *widget) {
    if (window.form() == nullptr) {
        return nullptr;
    }
    for (Control *control : window.form()->controls()) {
        const Mirror *mirror = window.mirrorOf(control);
        if (mirror != nullptr && mirror->widget() == widget) {
            return control;
        }
    }
    return nullptr;
}

void FormWindow::changed(const PropertyBase &property) {
    if (&property == &form_->Caption) {
        const Texte &title = form_->Caption;
        // An empty title would become the program's own: without a caption there is to be none, but
        // for a screen reader.
        setWindowTitle(title.empty() ? QStringLiteral(" ") : toQt(title));
        setAccessibleName(toQt(title.empty() ? Application::title : title));
    } else if (&property == &form_->MousePointer) {
        if (form_->MousePointer == 10) {
            setCursor(Qt::PointingHandCursor);
        } else {
            unsetCursor();
        }
    } else if (&property == &form_->BackColor) {
        painted_ = {};
        update();
    } else {
        place();
    }
}

void FormWindow::changed(Control &control, const PropertyBase &property) {
    if (Mirror *mirror = mirrorOf(&control)) {
        mirror->refresh(&property);
    }
    refreshDependents(control);
    followFocusLater();
}

void FormWindow::refreshDependents(const Control &control) {
    for (const auto &mirror : mirrors_) {
        const Control &other = mirror->control();
        if (other.container == &control) {
            mirror->refreshWidget();
            refreshDependents(other);
        } else if (other.labelledBy == &control) {
            mirror->refreshWidget();
        }
    }
}

// ---- place and scale

void FormWindow::setDecoration(bool over, bool modal) {
    // Window systems tie dialogs alone to the window that they stand over.
    Qt::WindowFlags flags = over ? Qt::Dialog : Qt::Window;
    if (form_->titleBar) {
        // A window that stands over another is left by its own buttons.
        flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
        if (!modal) {
            flags |=
                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint;
        }
        if (form_->WindowState == 2) {
            flags |= Qt::WindowMaximizeButtonHint;
        }
    } else {
        flags |= Qt::FramelessWindowHint;
    }
    if (form_->backdrop) {
        flags |= Qt::WindowDoesNotAcceptFocus;
        setAttribute(Qt::WA_ShowWithoutActivating);
    }
    if (flags != windowFlags()) {
        setWindowFlags(flags);
    }
    setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
}

QSize insideOf(const Form &form, double factor) {
    if (form.backdrop) {
        return QGuiApplication::primaryScreen()->geometry().size();
    }
    const double pixel = factor / 15;
    return {static_cast<int>(std::lround(form.Width * pixel)),
            static_cast<int>(std::lround(form.Height * pixel))};
}

void FormWindow::place() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    if (form_->backdrop) {
        setGeometry(screen);
        return;
    }
    if (form_->WindowState == 2) {
        setMinimumSize(1, 1);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        setWindowState(Qt::WindowMaximized);
        if (isVisible()) {
            scaleTo(size());
        }
        return;
    }
    const QSize inside = insideOf(*form_, host_.factor);
    setWindowState(Qt::WindowNoState);
    setFixedSize(inside);
    QRect area(QPoint(), inside);
    if (form_->centred) {
        area.moveCenter(screen.center());
    } else {
        // It grows around its own centre.
        area.moveLeft(screen.left() + (form_->Left + form_->Width / 2) / 15 - inside.width() / 2);
        area.moveTop(screen.top() + (form_->Top + form_->Height / 2) / 15 - inside.height() / 2);
    }
    setGeometry(area);
    scaleTo(inside);
}

void FormWindow::centre(QSize screen) {
    if (!form_->backdrop && form_->WindowState != 2) {
        form_->Left = (screen.width() * 15 - form_->Width) / 2;
        form_->Top = (screen.height() * 15 - form_->Height) / 2;
    }
    place();
}

void FormWindow::scaleTo(QSize size) {
    if (form_ == nullptr || form_->backdrop) {
        return;
    }
    const double width = std::max(1, form_->Width) / 15.0;
    const double height = std::max(1, form_->Height) / 15.0;
    const double factor = form_->WindowState == 2
                              ? std::min(size.width() / width, size.height() / height)
                              : host_.factor;
    const QPoint origin(
        std::max(0, static_cast<int>(std::lround((size.width() - width * factor) / 2))),
        std::max(0, static_cast<int>(std::lround((size.height() - height * factor) / 2))));
    if (factor == factor_ && origin == origin_) {
        return;
    }
    if (factor != factor_) {
        factor_ = factor;
        setStyleSheet(sheetFor(factor_));
    }
    origin_ = origin;
    painted_ = {};
    for (const auto &mirror : mirrors_) {
        mirror->fit();
    }
    update();
}

QRect FormWindow::onScreen(const Place &p) const {
    const double pixel = factor_ / 15;
    const auto at = [pixel](int twips) { return static_cast<int>(std::lround(twips * pixel)); };
    return QRect(QPoint(at(p.left), at(p.top)),
                 QPoint(at(p.left + p.width) - 1, at(p.top + p.height) - 1))
        .translated(origin_);
}

void FormWindow::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    if (form_ != nullptr && form_->WindowState == 2) {
        scaleTo(size());
    }
}

// ---- coming and going

void FormWindow::showOver(FormWindow *opener, bool modal) {
    setDecoration(opener != nullptr, modal);
    place();
    for (const auto &mirror : mirrors_) {
        mirror->settle();
    }
    seen_ = false;
    inView_ = false;
    QWindow *window = windowHandle();
    if (window != nullptr && QGuiApplication::focusWindow() == window) {
        // Hidden and shown again in one go: Qt believes that it still has the keyboard, and would
        // not hear that it gets it anew.
        window->destroy();
    }
    winId(); // makes the window of the window system
    window = windowHandle();
    window->installEventFilter(this);
    window->setTransientParent(opener == nullptr ? nullptr : opener->windowHandle());
    if (form_->backdrop) {
        setWindowState(Qt::WindowFullScreen);
        show();
        return;
    }
    show();
    raise();
    activateWindow();
    followFocus();
}

void FormWindow::tellReach() {
    if (assign(wasOpen_, isOpen()) && QAccessible::isActive()) {
        for (const auto &mirror : mirrors_) {
            if (auto *drawn = dynamic_cast<Drawn *>(mirror->widget()); drawn && drawn->onPress) {
                QAccessible::State changed;
                changed.disabled = true;
                QAccessibleStateChangeEvent event(drawn, changed);
                QAccessible::updateAccessibility(&event);
            }
        }
    }
}

void FormWindow::hideMirror() {
    composition_.end();
    hide();
}

void FormWindow::exposed() {
    const bool inView = windowHandle() != nullptr && windowHandle()->isExposed();
    if (inView && !inView_) {
        if (seen_) {
            QTimer::singleShot(0, this, [this] {
                run([](Form &form) {
                    if (form.isShown()) {
                        form.expose();
                    }
                });
            });
        }
        seen_ = true;
    }
    inView_ = inView;
}

void FormWindow::closeEvent(QCloseEvent *event) {
    event->ignore(); // the form decides, and unloading hides the window
    door([](Form &form) { form.requestClose(); });
}

// Over a control that is greyed, too, which hands the mouse on to the window.
void FormWindow::mouseMoveEvent(QMouseEvent *event) {
    Control *control = controlOf(*this, childAt(event->position().toPoint()));
    notice([control](Form &form) {
        if (control != nullptr && control->MouseMove) {
            control->userHover();
        } else {
            form.userHover();
        }
    });
}

// ---- focus

void FormWindow::focusMoved() {
    if (isVisible()) {
        followFocus();
    } else {
        followFocusLater();
    }
}

void FormWindow::followFocusLater() {
    if (!followPending_) {
        followPending_ = true;
        QTimer::singleShot(0, this, [this] {
            followPending_ = false;
            followFocus();
        });
    }
}

void FormWindow::followFocus() {
    if (form_ == nullptr || !isVisible()) {
        return;
    }
    const Mirror *mirror = mirrorOf(form_->focus());
    QWidget *wanted = mirror != nullptr && mirror->widget() != nullptr ? mirror->widget() : this;
    if (focusWidget() != wanted || (wanted == this && !hasFocus())) {
        following_ = true;
        wanted->setFocus(Qt::OtherFocusReason);
        following_ = false;
    }
}

} // namespace grimoval
