// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <QHeaderView>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace grimoval {

namespace {

// A cell's text, smaller rather than cut.
class CellPainter : public QStyledItemDelegate {
public:
    explicit CellPainter(TableView &table) : QStyledItemDelegate(&table), table_(table) {}
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (index.row() == 0) {
            painter->fillRect(option.rect, shade::nightLight);
        }
        const double f = table_.factor();
        const QColor colour = index.row() == 0 ? shade::goldLight : QColor(Qt::white);
        drawFitted(*painter, QRectF(option.rect).adjusted(4 * f, 1, -4 * f, -1),
                   index.data().toString(), pixelsOf(11, f), true, false, Qt::AlignCenter, colour);
        painter->restore();
    }

private:
    TableView &table_;
};

} // namespace

TableView::TableView(QWidget *parent) : QTableWidget(parent) {
    setItemDelegate(new CellPainter(*this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setMinimumSectionSize(1);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void TableView::setRows(const std::vector<QStringList> &rows, const std::vector<bool> &merged) {
    clearSpans();
    qsizetype columns = static_cast<qsizetype>(widths_.size());
    for (const QStringList &row : rows) {
        columns = std::max(columns, row.size());
    }
    setColumnCount(static_cast<int>(columns));
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rowCount(); ++row) {
        const QStringList &cells = rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < columnCount(); ++column) {
            setItem(row, column, new QTableWidgetItem(cells.value(column)));
        }
        if (static_cast<std::size_t>(row) >= merged.size() ||
            !merged[static_cast<std::size_t>(row)]) {
            continue;
        }
        for (int first = 0, next = 1; first < columnCount(); first = next++) {
            while (next < columnCount() && cells.value(next) == cells.value(first)) {
                ++next;
            }
            if (next - first > 1) {
                setSpan(row, first, 1, next - first);
            }
        }
    }
    arrange();
}

void TableView::setColumns(const std::vector<double> &widths) {
    widths_ = widths;
    setColumnCount(std::max(columnCount(), static_cast<int>(widths.size())));
    arrange();
}

void TableView::setFactor(double factor) { factor_ = factor; }

void TableView::resizeEvent(QResizeEvent *event) {
    QTableWidget::resizeEvent(event);
    arrange();
}

// The columns keep their proportions and the rows share the height, so that all is in view.
void TableView::arrange() {
    double sum = 0;
    for (const double width : widths_) {
        sum += width;
    }
    // By their edges, so that what is rounded off does not add up.
    const auto share = [](double from, double size) {
        return static_cast<int>(std::lround(from + size) - std::lround(from));
    };
    double left = 0;
    for (int column = 0; column < columnCount(); ++column) {
        const auto i = static_cast<std::size_t>(column);
        const double width =
            (sum > 0 ? (i < widths_.size() ? widths_[i] : 0) / sum : 1.0 / columnCount()) *
            viewport()->width();
        setColumnWidth(column, share(left, width));
        left += width;
    }
    const double height =
        std::min(viewport()->height() / std::max(1.0, double(rowCount())), 34 * factor_);
    for (int row = 0; row < rowCount(); ++row) {
        setRowHeight(row, share(row * height, height));
    }
}

} // namespace grimoval
