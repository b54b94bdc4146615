// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/nativeviews.h"

#include <QFontMetricsF>
#include <QHeaderView>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace grimoval {

namespace {

// A cell's text: in two lines where that lets it be larger, and cut rather than too small to read.
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
        const QRectF place = QRectF(option.rect).adjusted(4 * f, 1, -4 * f, -1);
        const double usual = pixelsOf(11, f), least = std::max(8.5, 9 * f);
        QString text = index.data().toString();
        double pixels = fittingPixels(text, place.size(), usual, true, false);
        const double inLines = fittingPixels(text, place.size(), usual, true, true);
        const bool wraps = inLines > pixels || pixels < least;
        if (std::max(pixels, inLines) < least) {
            text = cut(text, place.width(), least);
            pixels = least;
        } else {
            pixels = std::max(pixels, inLines);
        }
        painter->setFont(fontOf(pixels, true));
        painter->setPen(colour);
        painter->drawText(place,
                          int(Qt::AlignCenter) | int(Qt::TextDontClip) |
                              (wraps ? int(Qt::TextWordWrap) : 0),
                          text);
        painter->restore();
    }

private:
    // Each word ends where its line does.
    static QString cut(const QString &text, double width, double pixels) {
        const QFontMetricsF metrics(fontOf(pixels, true));
        QStringList words = text.split(u' ', Qt::SkipEmptyParts);
        for (QString &word : words) {
            word = metrics.elidedText(word, Qt::ElideRight, width);
        }
        return words.join(u' ');
    }

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

// The columns keep their proportions and the rows share the height, so that all is in view. The
// first row, of the names, has room for two lines.
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
    constexpr double first = 1.5; // of the height of another
    const double height = std::min(viewport()->height() / (rowCount() - 1 + first), 34 * factor_);
    double top = 0;
    for (int row = 0; row < rowCount(); ++row) {
        const double own = row == 0 ? first * height : height;
        setRowHeight(row, share(top, own));
        top += own;
    }
}

} // namespace grimoval
