// SPDX-License-Identifier: GPL-3.0-or-later
// One mirror for each kind of control.
#pragma once

#include "platform/qt/beat.h"
#include "platform/qt/buttonviews.h"
#include "platform/qt/formwindow.h"
#include "platform/qt/nativeviews.h"
#include "platform/qt/pictureview.h"
#include "platform/qt/strings.h"
#include "platform/qt/wordview.h"

namespace grimoval {

// The mirror of a kind of control in a kind of widget. The window owns the widget; the mirror goes
// with the window, after its widget.
template <class Kind, class View>
class ViewMirror : public Mirror {
public:
    ViewMirror(FormWindow &window, Kind &control, View *view)
        : Mirror(window, control), subject_(control), view_(view) {}
    ViewMirror(FormWindow &window, Kind &control)
        : ViewMirror(window, control, new View(&window)) {}

    QWidget *widget() const override { return view_; }
    void fit() override {
        view_->setFactor(window_.factor());
        view_->setGeometry(window_.onScreen(subject_.place));
    }

protected:
    // What a press does, and what the mouse does on its way.
    void listen() {
        view_->setSurface(window_.surface());
        view_->onPress = [this] { window_.door([this](Form &) { subject_.userClick(); }); };
        hover();
    }
    void hover() {
        if (subject_.MouseMove) {
            view_->onMove = [this] { window_.notice([this](Form &) { subject_.userHover(); }); };
        }
    }

    Kind &subject_;
    View *view_;
};

class LabelMirror : public ViewMirror<Label, LabelView> {
public:
    LabelMirror(FormWindow &window, Label &control);
    void refresh(const PropertyBase *property) override;

protected:
    Texte name() const override { return subject_.Caption; }
    Texte tip() const override { return subject_.ToolTipText; }

private:
    // What a screen reader says when the hidden word or the turn has changed.
    void speak();

    LabelText before_;
};

class FaceMirror : public ViewMirror<PictureButton, FaceButton> {
public:
    FaceMirror(FormWindow &window, PictureButton &control);
    void refresh(const PropertyBase *property) override;

protected:
    Texte tip() const override { return subject_.tooltip ? subject_.accessibleName : Texte(); }
};

class LetterMirror : public ViewMirror<LetterButton, LetterView> {
public:
    LetterMirror(FormWindow &window, LetterButton &control);
    void refresh(const PropertyBase *property) override;

protected:
    Texte name() const override { return subject_.caption; }
    Texte description() const override;
};

class GaugeMirror : public ViewMirror<Gauge, GaugeView> {
public:
    GaugeMirror(FormWindow &window, Gauge &control);
    void refresh(const PropertyBase *property) override;
    void stop() override { second_.stop(); }
    Beat &second() { return second_; }

protected:
    Texte description() const override { return subject_.TexteFlux; }

private:
    Beat second_;
};

class ListMirror : public ViewMirror<List, ListView> {
public:
    ListMirror(FormWindow &window, List &control);
    void refresh(const PropertyBase *property) override;
    void settle() override;

private:
    void settleLater();

    bool stale_ = true, waiting_ = false;
};

class CheckMirror : public ViewMirror<CheckBox, CheckView> {
public:
    CheckMirror(FormWindow &window, CheckBox &control);
    void fit() override;
    void refresh(const PropertyBase *property) override;
};

class ScrollMirror : public ViewMirror<ScrollBar, ScrollView> {
public:
    ScrollMirror(FormWindow &window, ScrollBar &control);
    void refresh(const PropertyBase *property) override;
};

class FieldMirror : public ViewMirror<TextField, FieldView> {
public:
    FieldMirror(FormWindow &window, TextField &control);
    void refresh(const PropertyBase *property) override;
};

class PictureMirror : public ViewMirror<Picture, PictureView> {
public:
    PictureMirror(FormWindow &window, Picture &control);
    void refresh(const PropertyBase *property) override;

protected:
    Texte tip() const override { return subject_.ToolTipText; }
    Texte description() const override;

private:
    // The shape that hangs before the picture.
    const Shape *curtain() const;
};

bool isCurtain(const Shape &shape);

// A shape inside a picture: the picture draws it.
class CurtainMirror : public Mirror {
public:
    CurtainMirror(FormWindow &window, Shape &control) : Mirror(window, control) {}
    void refresh(const PropertyBase *property) override;
};

class KnobMirror : public ViewMirror<Shape, KnobView> {
public:
    KnobMirror(FormWindow &window, Shape &control);
    void refresh(const PropertyBase *property) override;

protected:
    Texte description() const override;
};

class TableMirror : public ViewMirror<Table, TableView> {
public:
    using ViewMirror::ViewMirror;
    void refresh(const PropertyBase *property) override;
    void fit() override;
    void settle() override { refresh(nullptr); }
};

class TimerMirror : public Mirror {
public:
    TimerMirror(FormWindow &window, Timer &control);
    void refresh(const PropertyBase *property) override;
    void stop() override { beat_.stop(); }
    Beat &beat() { return beat_; }

private:
    Timer &subject_;
    Beat beat_;
};

} // namespace grimoval
