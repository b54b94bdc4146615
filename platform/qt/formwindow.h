// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a form: its place, its background, the mirrors of its controls, its keys.
#pragma once

#include "platform/form.h"
#include "platform/qt/guard.h"
#include "platform/qt/keys.h"
#include "platform/qt/mirror.h"
#include "platform/qt/palette.h"
#include "platform/qt/pictures.h"
#include "platform/qt/speaker.h"
#include "platform/qt/turns.h"

#include <QPixmap>
#include <QWidget>

#include <unordered_map>

namespace grimoval {

class FieldView;

// What the windows share.
struct Host {
    Guard &guard;
    Pictures &pictures;
    double factor = 1;
    // Nothing stands over the form: no modal window, no box.
    std::function<bool(const Form &)> reaches;
    Turns turns{};                        // no window is deleted under a handler
    std::function<void()> firstPicture{}; // of any window is on the screen
};

// The inside of the window of a form, and the picture behind it, whose own size is given.
QSize insideOf(const Form &form, double factor);
QSize backgroundOf(const Form &form, QSize inside, QSize picture);

class FormWindow : public QWidget {
public:
    FormWindow(Form &form, Host &host);
    ~FormWindow() override;

    // Null once the form is unloaded or gone.
    Form *form() const { return form_; }
    void detach();

    void showOver(FormWindow *opener, bool modal);
    void hideMirror();
    void changed(const PropertyBase &property);
    void changed(Control &control, const PropertyBase &property);
    void focusMoved();
    // On a screen of another size.
    void centre(QSize screen);

    // The person acts: not while something stands over the window, and in turn.
    void door(std::function<void(Form &)> action);
    // The mouse or the focus moves, which no command hears of: also while a handler runs.
    void notice(const std::function<void(Form &)> &action);
    // Time passes, or the window comes into view: also while something stands over it.
    void run(const std::function<void(Form &)> &action);
    bool isOpen() const { return form_ != nullptr && host_.reaches(*form_); }
    // Tells the accessibility bus if the window has begun or ceased to take what a person does.
    void tellReach();

    Mirror *mirrorOf(const Control *control) const;
    Pictures &pictures() const { return host_.pictures; }
    Speaker &speaker() { return *speaker_; }
    Surface surface() const { return surface_; }
    bool hasPicture() const { return pictureSize_.isValid(); }
    double factor() const { return factor_; }
    // Where a place of the design lies in the window.
    QRect onScreen(const Place &place) const;
    // Copies again what depends on whether this control is seen and what it says.
    void refreshDependents(const Control &control);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; }
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void makeMirrors();
    void place();
    void scaleTo(QSize size);
    void setDecoration(bool over, bool modal);
    void followFocus();
    void followFocusLater();
    void exposed();
    void paintBackground(QPainter &painter) const;
    // The ring of what Qt draws lies around it, on the window.
    QRect ringOf(const QWidget *widget) const;

    void pressKey(const QKeyEvent &event);
    bool isRepeatWelcome(const QKeyEvent &event, const Control *focus) const;
    void giveToWidget(QWidget &widget, const QKeyEvent &event);
    void commit(FieldView &field, const QString &text);

    Form *form_;
    Host &host_;
    Surface surface_;
    QSize pictureSize_; // as the file has it
    Speaker *speaker_ = new Speaker(this);
    QPixmap painted_; // the background at the window's size
    std::vector<std::unique_ptr<Mirror>> mirrors_;
    std::unordered_map<const Control *, Mirror *> byControl_;
    double factor_ = 1;
    QPoint origin_;
    bool forwarding_ = false, following_ = false, followPending_ = false;
    Composition composition_;
    bool inView_ = false, seen_ = false, wasOpen_ = false;
};

// The control that the widget shows, if any.
Control *controlOf(const FormWindow &window, const QObject *widget);

} // namespace grimoval
