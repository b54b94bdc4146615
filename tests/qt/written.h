// SPDX-License-Identifier: GPL-3.0-or-later
// Every text that a window draws, whatever widget draws it, and how large its letters are.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QWidget>

#include <cmath>
#include <vector>

namespace grimoval::test {

struct Written {
    QString text;
    double pixels;
};

class TextEngine : public QPaintEngine {
public:
    TextEngine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &changes) override {
        if (changes.state() & DirtyTransform) {
            scale_ = std::sqrt(std::abs(changes.transform().determinant()));
        }
    }
    void drawTextItem(const QPointF & /*place*/, const QTextItem &item) override {
        written.push_back({item.text(), item.font().pixelSize() * scale_});
    }
    void drawPath(const QPainterPath & /*path*/) override {}
    void drawPolygon(const QPointF * /*points*/, int /*count*/, PolygonDrawMode /*how*/) override {}
    void drawPixmap(const QRectF & /*to*/, const QPixmap & /*what*/,
                    const QRectF & /*from*/) override {}
    void drawImage(const QRectF & /*to*/, const QImage & /*what*/, const QRectF & /*from*/,
                   Qt::ImageConversionFlags /*how*/) override {}

    std::vector<Written> written;

private:
    double scale_ = 1;
};

class TextDevice : public QPaintDevice {
public:
    explicit TextDevice(QSize size) : size_(size) {}
    QPaintEngine *paintEngine() const override { return &engine; }
    mutable TextEngine engine;

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return size_.width();
        case PdmHeight:
            return size_.height();
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 0;
        }
    }

private:
    QSize size_;
};

inline std::vector<Written> writtenBy(QWidget &window) {
    TextDevice device(window.size());
    window.render(&device);
    return device.engine.written;
}

} // namespace grimoval::test
