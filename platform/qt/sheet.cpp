// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <QApplication>
#include <QPalette>

#include <cmath>

namespace grimoval {

QString sheetFor(double factor) {
    const auto px = [factor](double length) {
        return QString::number(std::max(1L, std::lround(length * factor)));
    };
    return QStringLiteral(R"(
        QLineEdit {
            background: #fff7e2; color: #2b1b0e; border: %2px solid #a8741a;
            border-radius: %3px; padding: 0 %3px;
            selection-background-color: #1d2f7a; selection-color: #ffffff;
        }
        QLineEdit:focus { background: #ffffff; }
        QListView {
            background: #fff7e2; color: #2b1b0e; border: %2px solid #a8741a;
            border-radius: %3px; padding: %2px; outline: 0;
        }
                QListView:disabled { color: #7a684a; }
        QListView::item { padding: %5px %3px; border-radius: %3px; }
        QListView::item:hover { background: #f6e7c1; }
        QListView::item:selected, QListView::item:selected:active { background: #1d2f7a; color: #ffffff; }
        QScrollBar:vertical { background: #e6cf97; width: %4px; margin: 0; border-radius: %3px; }
        QScrollBar::handle:vertical {
            background: #a8741a; min-height: %4px; border-radius: %3px; margin: %1px;
        }
        QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }
        QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }
        QTableWidget {
            background: #0b1440; border: %2px solid #f2c14e; border-radius: %2px;
            gridline-color: #8ea2e8; color: #ffffff;
        }
    )")
        .arg(px(1), px(2), px(7), px(18), px(5));
}

void dressApplication(double factor) {
    QPalette palette;
    palette.setColor(QPalette::Window, shade::parchment);
    palette.setColor(QPalette::WindowText, shade::ink);
    palette.setColor(QPalette::Base, shade::parchmentLight);
    palette.setColor(QPalette::Text, shade::ink);
    palette.setColor(QPalette::Button, shade::parchment);
    palette.setColor(QPalette::ButtonText, shade::ink);
    palette.setColor(QPalette::ToolTipBase, shade::parchmentLight);
    palette.setColor(QPalette::ToolTipText, shade::ink);
    palette.setColor(QPalette::Highlight, shade::nightLight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(palette);
    QApplication::setFont(fontOf(15 * factor));
    qApp->setStyleSheet(
        QStringLiteral("QToolTip { background: #fff7e2; color: #2b1b0e; border: 2px solid #a8741a;"
                       " padding: 4px; font-size: %1px; }")
            .arg(std::lround(15 * factor)));
}

} // namespace grimoval
