// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/messagebox.h"

#include "platform/qt/buttonviews.h"
#include "platform/qt/strings.h"
#include "platform/services.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <cmath>

namespace grimoval {

namespace {

class IconView : public Drawn {
public:
    IconView(QWidget *parent, MessageIcon icon) : Drawn(parent, QAccessible::Graphic), icon_(icon) {
        setAccessibleName(icon == MessageIcon::critical      ? QStringLiteral("Erreur")
                          : icon == MessageIcon::information ? QStringLiteral("Information")
                                                             : QStringLiteral("Attention"));
    }

protected:
    void draw(QPainter &painter) override {
        const double side = std::min(area().width(), area().height()) - 4;
        QRectF disc(0, 0, side, side);
        disc.moveCenter(area().center());
        painter.setPen(QPen(shade::ink, side / 28));
        const QPen white(Qt::white, side / 8, Qt::SolidLine, Qt::RoundCap);
        switch (icon_) {
        case MessageIcon::critical: {
            painter.setBrush(QColor(0xc0, 0x2b, 0x2b));
            painter.drawEllipse(disc);
            painter.setPen(white);
            const QRectF cross = disc.adjusted(side * 0.3, side * 0.3, -side * 0.3, -side * 0.3);
            painter.drawLine(cross.topLeft(), cross.bottomRight());
            painter.drawLine(cross.topRight(), cross.bottomLeft());
            break;
        }
        case MessageIcon::information:
            painter.setBrush(QColor(0x2c, 0x5f, 0xb8));
            painter.drawEllipse(disc);
            drawMark(painter, disc, Qt::white, true);
            break;
        case MessageIcon::exclamation: {
            painter.setBrush(shade::gold);
            QPainterPath triangle;
            triangle.addPolygon(QPolygonF(
                {QPointF(disc.center().x(), disc.top()), disc.bottomRight(), disc.bottomLeft()}));
            triangle.closeSubpath();
            painter.setPen(QPen(shade::ink, side / 22, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPath(triangle);
            drawMark(painter, disc.translated(0, side * 0.09), shade::ink, false);
            break;
        }
        }
    }

private:
    // An i, or its reverse.
    static void drawMark(QPainter &painter, const QRectF &disc, const QColor &colour, bool dotUp) {
        const double side = disc.height();
        const double x = disc.center().x();
        const double dot = disc.top() + side * (dotUp ? 0.26 : 0.76);
        painter.setPen(QPen(colour, side / 8, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(x, disc.top() + side * (dotUp ? 0.46 : 0.32)),
                         QPointF(x, disc.top() + side * (dotUp ? 0.76 : 0.58)));
        painter.drawPoint(QPointF(x, dot));
    }

    MessageIcon icon_;
};

} // namespace

MessageBox::MessageBox(const Message &message, QWidget *over, double factor)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowCloseButtonHint),
      over_(over), factor_(factor) {
    const auto px = [factor](double length) {
        return static_cast<int>(std::lround(length * factor));
    };
    setWindowTitle(toQt(message.title.empty() ? Application::title : message.title));
    setWindowModality(Qt::ApplicationModal);

    auto *icon = new IconView(this, message.icon);
    icon->setFixedSize(px(64), px(64));

    auto *text = new QLabel(toQt(message.text), this);
    text->setTextFormat(Qt::PlainText);
    text->setFont(fontOf(18 * factor));
    text->setStyleSheet(QStringLiteral("color: #2b1b0e;"));
    const int room = std::min(px(460), screen()->availableGeometry().width() - px(160));
    text->setWordWrap(true);
    const QRect needed =
        text->fontMetrics().boundingRect(QRect(0, 0, room, 100000), Qt::TextWordWrap, text->text());
    text->setFixedWidth(std::min(room, std::max(px(180), needed.width() + px(8))));

    auto *ok = new FaceButton(this);
    ok->setObjectName(QStringLiteral("OK"));
    ok->setAccessibleName(QStringLiteral("OK"));
    ok->setFactor(factor);
    ok->setFixedSize(px(136), px(64));
    ok->onPress = [this] { accept(); };

    auto *upper = new QHBoxLayout;
    upper->setSpacing(px(20));
    upper->addWidget(icon, 0, Qt::AlignTop);
    upper->addWidget(text, 1, Qt::AlignVCenter);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(px(28), px(26), px(28), px(20));
    whole->setSpacing(px(14));
    whole->addLayout(upper);
    whole->addWidget(ok, 0, Qt::AlignHCenter);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    ok->setFocus();
}

void MessageBox::open() {
    adjustSize();
    QRect place(QPoint(), size());
    place.moveCenter(over_ != nullptr && over_->isVisible() ? over_->geometry().center()
                                                            : screen()->geometry().center());
    move(place.topLeft());
    winId();
    if (over_ != nullptr && over_->isVisible()) {
        windowHandle()->setTransientParent(over_->windowHandle());
    }
    show();
    raise();
    activateWindow();
}

void MessageBox::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter, QRectF(rect()), Surface::parchment, factor_);
}

void MessageBox::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    const bool answers = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
                         key == Qt::Key_Space;
    // A key held down since before the box came is no answer to it.
    if (answers && !event->isAutoRepeat()) {
        accept();
    }
}

} // namespace grimoval
