// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace grimoval {

ListView::ListView(QWidget *parent) : QListView(parent) {
    setModel(&model_);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setContextMenuPolicy(Qt::NoContextMenu);
    setTabKeyNavigation(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setFocusPolicy(Qt::StrongFocus);
    verticalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!mirroring_ && selected() >= 0) {
            tell(selected());
        }
    });
}

void ListView::tell(int row) {
    if (onSelect) {
        onSelect(row);
    }
}

void ListView::setItems(const QStringList &items) {
    const QScopedValueRollback mirroring(mirroring_, true);
    model_.setStringList(items);
    fitFont();
}

void ListView::resizeEvent(QResizeEvent *event) {
    QListView::resizeEvent(event);
    fitFont();
}

void ListView::fitFont() {
    constexpr double usual = 17, least = 10;
    const QFontMetricsF metrics(fontOf(usual * factor_));
    double widest = 1;
    for (const QString &item : model_.stringList()) {
        widest = std::max(widest, metrics.horizontalAdvance(item));
    }
    const double room = viewport()->width() - 30 * factor_;
    const double part = std::clamp(room / widest, least / usual, 1.0);
    const QFont wanted = fontOf(std::floor(usual * factor_ * part));
    if (font() != wanted) {
        setFont(wanted);
    }
}

int ListView::selected() const {
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void ListView::select(int row) {
    const QScopedValueRollback mirroring(mirroring_, true);
    if (row < 0) {
        selectionModel()->clear();
    } else if (row != selected() || row != currentIndex().row()) {
        selectionModel()->setCurrentIndex(model_.index(row), QItemSelectionModel::ClearAndSelect);
        scrollTo(model_.index(row));
    }
}

void ListView::setFactor(double factor) {
    factor_ = factor;
    fitFont();
}

void ListView::mousePressEvent(QMouseEvent *event) {
    // A press on the chosen item chooses it again, which the selection would not tell.
    const QModelIndex item = indexAt(event->position().toPoint());
    const bool again = item.isValid() && item.row() == selected();
    QListView::mousePressEvent(event);
    if (again && event->button() == Qt::LeftButton) {
        tell(item.row());
    }
}

void ListView::mouseDoubleClickEvent(QMouseEvent *event) {
    const QModelIndex item = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && item.isValid() && onDoubleClick) {
        onDoubleClick();
    }
}

void ListView::focusInEvent(QFocusEvent *event) {
    QListView::focusInEvent(event);
    if (selected() < 0) {
        // Qt would stand on the first item; the first arrow key is to choose it.
        const QScopedValueRollback mirroring(mirroring_, true);
        selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    }
}

} // namespace grimoval
