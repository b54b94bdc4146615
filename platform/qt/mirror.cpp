// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/mirrors.h"

namespace grimoval {

Texte Mirror::name() const {
    if (const auto *label = dynamic_cast<const Label *>(control_.labelledBy)) {
        return label->Caption;
    }
    return control_.accessibleName;
}

void Mirror::refreshWidget() {
    QWidget *view = widget();
    if (view == nullptr) {
        return;
    }
    view->setVisible(control_.isVisible());
    view->setEnabled(control_.isOpen());
    const auto change = [](const QString &now, const QString &wanted) { return now != wanted; };
    if (const QString wanted = toQt(name()); change(view->accessibleName(), wanted)) {
        view->setAccessibleName(wanted);
    }
    if (const QString wanted = toQt(description()); change(view->accessibleDescription(), wanted)) {
        view->setAccessibleDescription(wanted);
    }
    if (const QString wanted = toQt(tip()).toHtmlEscaped(); change(view->toolTip(), wanted)) {
        view->setToolTip(wanted);
    }
}

namespace {

class Maker : public ControlVisitor {
public:
    explicit Maker(FormWindow &window) : window_(window) {}

    void visit(Label &control) override { make<LabelMirror>(control); }
    void visit(PictureButton &control) override { make<FaceMirror>(control); }
    void visit(LetterButton &control) override {
        if (control.shownOnScreen) {
            make<LetterMirror>(control);
        }
    }
    void visit(Gauge &control) override { make<GaugeMirror>(control); }
    void visit(List &control) override {
        if (control.shownOnScreen) {
            make<ListMirror>(control);
        }
    }
    void visit(CheckBox &control) override { make<CheckMirror>(control); }
    void visit(ScrollBar &control) override { make<ScrollMirror>(control); }
    void visit(TextField &control) override { make<FieldMirror>(control); }
    void visit(Picture &control) override { make<PictureMirror>(control); }
    void visit(Shape &control) override {
        if (isCurtain(control)) {
            make<CurtainMirror>(control);
        } else {
            make<KnobMirror>(control);
        }
    }
    void visit(Table &control) override { make<TableMirror>(control); }
    void visit(Timer &control) override { make<TimerMirror>(control); }

    std::unique_ptr<Mirror> made;

private:
    template <class Kind, class Subject>
    void make(Subject &control) {
        made = std::make_unique<Kind>(window_, control);
    }

    FormWindow &window_;
};

} // namespace

std::unique_ptr<Mirror> makeMirror(FormWindow &window, Control &control) {
    Maker maker(window);
    control.accept(maker);
    return std::move(maker.made);
}

} // namespace grimoval
