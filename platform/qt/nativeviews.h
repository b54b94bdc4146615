// SPDX-License-Identifier: GPL-3.0-or-later
// What Qt's own widgets do well, in the dress of the house: gauge, list, scroll bar, text field,
// table.
#pragma once

#include "platform/controls.h"
#include "platform/qt/painting.h"

#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QScrollBar>
#include <QStringListModel>
#include <QTableWidget>

#include <functional>

namespace grimoval {

// The style sheet of a window for the widgets of Qt in it.
QString sheetFor(double factor);
// What all windows have in common: pointer notes and the colours that Qt asks for.
void dressApplication(double factor);

// A tube that fills, with the sign of what it measures. Of time, a child feels how much is left:
// calm, then short, then urgent, by the colour, the pattern and the sand of the glass.
class GaugeView : public QProgressBar {
public:
    explicit GaugeView(QWidget *parent);
    void setMeasure(Gauge::Measure measure);
    // How pressing the time is.
    enum class Haste { none, calm, brief, urgent };
    Haste haste() const;
    void set(int value, int maximum, const QString &text, const QColor &ink);
    void setFactor(double factor);
    const QString &shownText() const { return text_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void drawFill(QPainter &painter, const QRectF &tube) const;
    void drawSign(QPainter &painter, const QRectF &place) const;

    QString text_;
    QColor ink_;
    Gauge::Measure measure_ = Gauge::Measure::count;
    double factor_ = 1;
};

class ListView : public QListView {
public:
    explicit ListView(QWidget *parent);
    void setItems(const QStringList &items);
    void select(int row); // below 0: none
    int selected() const;
    void setFactor(double factor);

    std::function<void(int row)> onSelect; // the person's choice alone
    std::function<void()> onDoubleClick;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void tell(int row);
    void resizeEvent(QResizeEvent *event) override;
    // The font that lets the longest entry stand in the list.
    void fitFont();

    double factor_ = 1;
    QStringListModel model_;
    bool mirroring_ = false;
};

class ScrollView : public QScrollBar {
public:
    explicit ScrollView(QWidget *parent);
    void set(int minimum, int maximum, int value, int smallChange, int largeChange);
    void setFactor(double factor);

    std::function<void(int value)> onScroll; // the person's doing alone

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double factor_ = 1;
};

class FieldView : public QLineEdit {
public:
    explicit FieldView(QWidget *parent);
    void set(const QString &text);
    void setFactor(double factor);

    std::function<void(const QString &text)> onType; // the person's doing alone
};

class TableView : public QTableWidget {
public:
    explicit TableView(QWidget *parent);
    void setRows(const std::vector<QStringList> &rows, const std::vector<bool> &merged);
    void setColumns(const std::vector<double> &widths); // in pixels
    void setFactor(double factor);
    double factor() const { return factor_; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void arrange();

    std::vector<double> widths_;
    double factor_ = 1;
};

} // namespace grimoval
