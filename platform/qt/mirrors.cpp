// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/mirrors.h"

#include <QTimer>

namespace grimoval {

// ---- label

namespace {
LabelView *labelViewFor(const Label &control, QWidget *window) {
    return control.look == Label::Look::word ? new WordView(window) : new LabelView(window);
}
} // namespace

LabelMirror::LabelMirror(FormWindow &window, Label &control)
    : ViewMirror(window, control, labelViewFor(control, &window)) {
    view_->setSurface(window.surface());
    hover();
    if (control.Click) {
        listen();
        view_->setCursor(Qt::PointingHandCursor);
    }
}

void LabelMirror::refresh(const PropertyBase * /*property*/) {
    refreshWidget();
    const bool pictured = subject_.look == Label::Look::title && window_.hasPicture();
    view_->write({pictured ? QString() : toQt(subject_.Caption), subject_.ForeColor,
                  subject_.FontSize, subject_.look, subject_.alignment, subject_.bold,
                  subject_.wraps,
                  subject_.look == Label::Look::player ? toQt(subject_.ToolTipText) : QString()});
    speak();
}

void LabelMirror::speak() {
    const LabelText &now = view_->written();
    if (now == before_) {
        return;
    }
    before_ = now;
    if (now.look == Label::Look::word) {
        const char *outcome = now.colour == colours::green && !now.text.isEmpty()
                                  ? "Mot trouvé : %1"
                              : now.colour == colours::red ? "Réponse : %1"
                                                           : "%1";
        window_.speaker().say(Speaker::word, QString::fromUtf8(outcome).arg(spokenWord(now.text)));
    } else if (!now.call.isEmpty() && now.text.endsWith(now.call)) {
        window_.speaker().say(Speaker::turn, now.text);
    }
}

// ---- buttons

FaceMirror::FaceMirror(FormWindow &window, PictureButton &control) : ViewMirror(window, control) {
    listen();
    view_->setProminent(control.prominent);
}

void FaceMirror::refresh(const PropertyBase *property) {
    refreshWidget();
    if (property == nullptr || property == &subject_.Face) {
        view_->setFace(window_.pictures().image(subject_.Face));
    }
}

LetterMirror::LetterMirror(FormWindow &window, LetterButton &control)
    : ViewMirror(window, control) {
    listen();
}

Texte LetterMirror::description() const {
    const Texte &face = subject_.Enabled ? subject_.Picture : subject_.DisabledPicture;
    return fromQt(LetterView::meaning(toQt(face)));
}

void LetterMirror::refresh(const PropertyBase *property) {
    refreshWidget();
    const QString face = toQt(subject_.Enabled ? subject_.Picture : subject_.DisabledPicture);
    view_->setFaces(face, toQt(subject_.DownPicture));
    // A letter that has just been proposed says what it was.
    if (property == &subject_.Enabled && !subject_.Enabled && LetterView::isAnswer(face)) {
        window_.speaker().say(Speaker::letter,
                              toQt(subject_.caption) + u' ' + LetterView::meaning(face));
    }
}

// ---- gauge and timer

GaugeMirror::GaugeMirror(FormWindow &window, Gauge &control)
    : ViewMirror(window, control),
      second_([this] { window_.run([this](Form &) { subject_.tick(); }); }) {
    view_->setMeasure(control.measure);
}

void GaugeMirror::refresh(const PropertyBase *property) {
    refreshWidget();
    view_->set(subject_.Valeur, subject_.Maximum, toQt(subject_.TexteFlux),
               ink(subject_.CouleurTexte, Surface::night));
    if (property == nullptr || property == &subject_.EnMarche) {
        if (!subject_.EnMarche) {
            second_.stop();
        } else if (property != nullptr || !second_.isRunning()) {
            second_.start(1000);
        }
    }
}

TimerMirror::TimerMirror(FormWindow &window, Timer &control)
    : Mirror(window, control), subject_(control),
      beat_([this] { window_.run([this](Form &) { subject_.fire(); }); }) {}

void TimerMirror::refresh(const PropertyBase * /*property*/) {
    if (subject_.Enabled && subject_.Interval > 0) {
        if (!beat_.isRunning() || beat_.interval() != subject_.Interval) {
            beat_.start(subject_.Interval);
        }
    } else {
        beat_.stop();
    }
}

// ---- list

ListMirror::ListMirror(FormWindow &window, List &control) : ViewMirror(window, control) {
    view_->onSelect = [this](int row) {
        window_.door([this, row](Form &) {
            if (!stale_) {
                subject_.userSelect(row);
            }
        });
        settleLater(); // should the person's choice not be the list's
        if (window_.form() != nullptr) {
            refreshWidget();
        }
    };
    view_->onDoubleClick = [this] { window_.door([this](Form &) { subject_.userDoubleClick(); }); };
}

void ListMirror::refresh(const PropertyBase *property) {
    refreshWidget();
    if (property == nullptr || property == &subject_.Items) {
        stale_ = true;
    }
    if (stale_ && property == &subject_.Items) {
        settleLater(); // a list that is being filled is copied once
    } else {
        settle();
    }
}

void ListMirror::settleLater() {
    if (!waiting_) {
        waiting_ = true;
        QTimer::singleShot(0, view_, [this] {
            waiting_ = false;
            settle();
        });
    }
}

void ListMirror::settle() {
    if (window_.form() == nullptr) {
        return;
    }
    if (stale_) {
        stale_ = false;
        QStringList items;
        items.reserve(subject_.ListCount());
        for (const Texte &item : subject_.Items.get()) {
            Texte shown = subject_.shownColumns > 0 ? item.substr(0, subject_.shownColumns) : item;
            shown.erase(shown.find_last_not_of(u' ') + 1);
            items.append(toQt(shown));
        }
        view_->setItems(items);
    }
    view_->select(subject_.ListIndex);
}

// ---- check box, scroll bar, text field

CheckMirror::CheckMirror(FormWindow &window, CheckBox &control) : ViewMirror(window, control) {
    listen();
}

// A box is never too small for a child's hand: it grows away from its label, from its right edge.
void CheckMirror::fit() {
    constexpr int least = 26 * 15, room = 5 * 15; // twips; the room is that between box and label
    Place place = subject_.place;
    const int wider = std::max(0, least - place.width) + room,
              higher = std::max(0, least - place.height);
    place = {place.left - wider, place.top - higher / 2, place.width + wider,
             place.height + higher};
    view_->setFactor(window_.factor());
    view_->setGeometry(window_.onScreen(place));
}

void CheckMirror::refresh(const PropertyBase * /*property*/) {
    refreshWidget();
    view_->setChecked(subject_.Value != 0);
}

ScrollMirror::ScrollMirror(FormWindow &window, ScrollBar &control) : ViewMirror(window, control) {
    view_->onScroll = [this](int value) {
        window_.door([this, value](Form &) { subject_.userScroll(value); });
        if (window_.form() != nullptr) {
            refresh(nullptr);
        }
    };
}

void ScrollMirror::refresh(const PropertyBase * /*property*/) {
    refreshWidget();
    view_->set(subject_.Min, subject_.Max, subject_.Value, subject_.smallChange,
               subject_.largeChange);
}

FieldMirror::FieldMirror(FormWindow &window, TextField &control) : ViewMirror(window, control) {
    if (control.maxLength > 0) {
        view_->setMaxLength(static_cast<int>(control.maxLength));
    }
    view_->onType = [this](const QString &text) {
        window_.door([this, text](Form &) { subject_.userType(fromQt(text)); });
        if (window_.form() != nullptr) {
            refresh(nullptr);
        }
    };
}

void FieldMirror::refresh(const PropertyBase * /*property*/) {
    refreshWidget();
    view_->set(toQt(subject_.Text));
}

// ---- picture, shape

bool isCurtain(const Shape &shape) {
    const auto *picture = dynamic_cast<const Picture *>(shape.container);
    return picture != nullptr && picture->scaleHeight > 0;
}

PictureMirror::PictureMirror(FormWindow &window, Picture &control) : ViewMirror(window, control) {
    view_->setSurface(window.surface());
    view_->setFramed(control.scaleHeight > 0);
    hover();
    if (control.Click) {
        listen();
        view_->setRole(QAccessible::PushButton);
        view_->setFocusPolicy(Qt::TabFocus);
        view_->setCursor(Qt::PointingHandCursor);
    }
}

const Shape *PictureMirror::curtain() const {
    for (const Control *other : window_.form()->controls()) {
        const auto *shape = dynamic_cast<const Shape *>(other);
        if (shape != nullptr && shape->container == &subject_) {
            return shape;
        }
    }
    return nullptr;
}

Texte PictureMirror::description() const {
    const Shape *shape = curtain();
    if (shape == nullptr || !isCurtain(*shape)) {
        return Mirror::description();
    }
    if (!shape->Visible) {
        return u"sans voile";
    }
    return u"voile " + decimal(shape->Height) + u"/" + decimal(subject_.scaleHeight);
}

void PictureMirror::refresh(const PropertyBase *property) {
    refreshWidget();
    if (property == nullptr || property == &subject_.PictureFile) {
        view_->setPicture(subject_.PictureFile.get().empty()
                              ? window_.pictures().design(subject_.design)
                              : window_.pictures().image(subject_.PictureFile));
    }
    const Shape *shape = curtain();
    const bool hangs = shape != nullptr && isCurtain(*shape) && shape->Visible;
    view_->setCurtain(hangs ? shape->Height / double(subject_.scaleHeight) : -1);
}

void CurtainMirror::refresh(const PropertyBase *property) {
    Mirror *picture = window_.mirrorOf(control().container);
    if (picture != nullptr && property != nullptr) {
        picture->refresh(property);
    }
}

KnobMirror::KnobMirror(FormWindow &window, Shape &control) : ViewMirror(window, control) {
    view_->setRound(static_cast<bool>(control.Click));
    if (control.Click) {
        listen();
    } else {
        view_->setRole(QAccessible::Graphic);
        view_->setFocusPolicy(Qt::NoFocus);
        hover();
    }
}

Texte KnobMirror::description() const {
    const Texte own = Mirror::description();
    return own.empty() ? colourName(subject_.BackColor) : own;
}

void KnobMirror::refresh(const PropertyBase * /*property*/) {
    refreshWidget();
    view_->setColour(subject_.BackColor);
}

// ---- table

void TableMirror::fit() {
    ViewMirror::fit();
    std::vector<double> widths;
    for (const int width : subject_.columnWidths) {
        widths.push_back(width * window_.factor() / 15);
    }
    view_->setColumns(widths);
}

void TableMirror::refresh(const PropertyBase *property) {
    refreshWidget();
    if (property == nullptr || property == &subject_.Rows) {
        fit(); // the columns are set with the first rows
        std::vector<QStringList> rows;
        for (const auto &row : subject_.Rows.get()) {
            QStringList &cells = rows.emplace_back();
            for (const Texte &cell : row) {
                cells.append(toQt(cell));
            }
        }
        view_->setRows(rows, subject_.mergedRows);
    }
}

} // namespace grimoval
