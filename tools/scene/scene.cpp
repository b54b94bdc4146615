// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene.h"

#include "figure.h"
#include "scatter.h"
#include "sign.h"

#include <QBuffer>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <cmath>
#include <vector>

namespace scene {

using namespace Qt::StringLiterals;

namespace {

constexpr auto contact = "contact"; // the soft dark spot right under a thing
constexpr double most = 10000;      // of any number in a scene
constexpr int largest = 2000;       // side of a thing, and number of things scattered

struct Attributes {
    QXmlStreamAttributes all;

    bool has(QLatin1String name) const { return all.hasAttribute(name); }
    // The value, which is then no more among those that stay.
    QString take(QLatin1String name) {
        for (qsizetype i = 0; i < all.size(); ++i) {
            if (all[i].qualifiedName() == name) {
                return all.takeAt(i).value().toString();
            }
        }
        return {};
    }
    QStringList words(QLatin1String name, qsizetype least) {
        const QString value = take(name);
        const QStringList parts = value.simplified().split(u' ', Qt::SkipEmptyParts);
        if (parts.size() < least) {
            throw Error(u"%1=\"%2\" is incomplete"_s.arg(name, value));
        }
        return parts;
    }
    std::vector<double> numbers(QLatin1String name, size_t count) {
        std::vector<double> read;
        for (const QString &word : words(name, static_cast<qsizetype>(count))) {
            read.push_back(number(word));
        }
        return read;
    }
    double oneNumber(QLatin1String name, double otherwise) {
        return has(name) ? numbers(name, 1).front() : otherwise;
    }
    static double number(const QString &word) {
        bool good = false;
        const double value = word.toDouble(&good);
        if (!good || !(std::abs(value) <= most)) {
            throw Error(u"\"%1\" is no number, or too large"_s.arg(word));
        }
        return value;
    }
    static QColor colour(const QString &word) {
        const QColor read(word);
        if (!read.isValid()) {
            throw Error(u"\"%1\" is no colour"_s.arg(word));
        }
        return read;
    }
};

using L = QLatin1String;

Look changed(Look look, Attributes &own) {
    if (own.has(L("light"))) {
        const QStringList w = own.words(L("light"), 4);
        look.light = {Attributes::number(w[0]), Attributes::number(w[1])};
        look.lightColour = Attributes::colour(w[2]);
        look.lightAmount = Attributes::number(w[3]);
    }
    if (own.has(L("shade"))) {
        const QStringList w = own.words(L("shade"), 2);
        look.shadeColour = Attributes::colour(w[0]);
        look.shadeAmount = Attributes::number(w[1]);
    }
    if (own.has(L("tint"))) {
        const QStringList w = own.words(L("tint"), 2);
        look.tint = Attributes::colour(w[0]);
        look.tintAmount = Attributes::number(w[1]);
    }
    if (own.has(L("shadow"))) {
        const QStringList w = own.words(L("shadow"), 1);
        if (w[0] == L("no")) {
            look.dark = 0;
        } else if (w.size() < 4) {
            throw Error(u"a shadow is \"no\", or lean, length, darkness and colour"_s);
        } else {
            look.lean = Attributes::number(w[0]);
            look.length = Attributes::number(w[1]);
            look.dark = Attributes::number(w[2]);
            look.shadowColour = Attributes::colour(w[3]);
        }
    }
    return look;
}

struct Placing {
    QXmlStreamWriter &out;

    void picture(const QImage &image, double x, double y, double w, double h) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        if (!image.save(&buffer, "PNG", 90)) {
            throw Error(u"a picture cannot be written"_s);
        }
        out.writeEmptyElement(u"image"_s);
        number(L("x"), x);
        number(L("y"), y);
        number(L("width"), w);
        number(L("height"), h);
        out.writeAttribute(u"href"_s,
                           u"data:image/png;base64,"_s + QString::fromLatin1(bytes.toBase64()));
    }
    void number(L name, double value) { out.writeAttribute(name, QString::number(value, 'f', 2)); }

    // On the ground at the origin: the shape laid down behind the thing, and the spot where it
    // touches.
    void shadowOf(const QImage &image, const Look &look) {
        const Shadow cast = shadow(image, look);
        out.writeStartElement(u"g"_s);
        out.writeAttribute(
            u"transform"_s,
            u"matrix(1 0 %1 %2 0 0)"_s.arg(-look.lean * look.length).arg(look.length));
        picture(cast.image, -image.width() / 2.0 - cast.border * cast.smaller,
                -image.height() - cast.border * cast.smaller, cast.image.width() * cast.smaller,
                cast.image.height() * cast.smaller);
        out.writeEndElement();
        const auto [left, right] = sole(image);
        const double half = std::max((right - left) / 2.0, 4.0);
        out.writeEmptyElement(u"ellipse"_s);
        number(L("cx"), (left + right) / 2.0 - image.width() / 2.0);
        number(L("cy"), -half * 0.04);
        number(L("rx"), half * 1.15);
        number(L("ry"), half * 0.16 + 3);
        out.writeAttribute(u"fill"_s, u"url(#%1)"_s.arg(L(contact)));
        number(L("opacity"), std::min(1.0, look.dark * 1.9));
    }

    void place(const Pose &pose, QPointF where, bool standing, const Look &look,
               const QXmlStreamAttributes &kept) {
        if (!(std::max(pose.tall, pose.wide) >= 1 && std::max(pose.tall, pose.wide) <= largest)) {
            throw Error(u"%1 is to be tall or wide, by 1 to %2"_s.arg(pose.sign).arg(largest));
        }
        const QImage image = figure(pose, look);
        out.writeStartElement(u"g"_s);
        out.writeAttributes(kept);
        // To whole pixels: what is drawn for its size stays sharp.
        const double x = std::floor(where.x() - image.width() / 2.0);
        const double y = std::floor(where.y() - (standing ? image.height() : image.height() / 2.0));
        if (standing && look.dark > 0) {
            out.writeStartElement(u"g"_s);
            out.writeAttribute(
                u"transform"_s,
                u"translate(%1 %2)"_s.arg(x + image.width() / 2.0).arg(y + image.height()));
            shadowOf(image, look);
            out.writeEndElement();
        }
        picture(image, x, y, image.width(), image.height());
        out.writeEndElement();
    }

    void thing(Attributes own, const Look &look) {
        Pose pose;
        pose.sign = own.take(L("sign"));
        pose.flip = own.take(L("flip")) == L("yes");
        pose.turn = own.oneNumber(L("turn"), 0);
        pose.tall = own.oneNumber(L("tall"), 0);
        pose.wide = own.oneNumber(L("wide"), 0);
        const bool standing = own.has(L("foot"));
        const std::vector<double> where = own.numbers(standing ? L("foot") : L("at"), 2);
        place(pose, {where[0], where[1]}, standing, look, own.all);
    }

    void scatter(Attributes own, const Look &look) {
        const bool signs = own.has(L("sign"));
        const QStringList kinds = own.words(signs ? L("sign") : L("of"), 1);
        const std::vector<double> box = own.numbers(L("box"), 4);
        const std::vector<double> sizes = own.numbers(L("sizes"), 2);
        const int count = static_cast<int>(own.oneNumber(L("count"), 10));
        if (count < 0 || count > largest) {
            throw Error(u"count=\"%1\" is not from 0 to %2"_s.arg(count).arg(largest));
        }
        const double turn = own.oneNumber(L("turn"), 0);
        const auto seed = static_cast<unsigned>(std::abs(own.oneNumber(L("seed"), 1)));
        out.writeStartElement(u"g"_s);
        out.writeAttributes(own.all);
        for (const Spot &spot : scattered({box[0], box[1], box[2], box[3]}, count, sizes[0],
                                          sizes[1], static_cast<int>(kinds.size()), seed)) {
            if (signs) {
                place({kinds[spot.kind], spot.size, 0, spot.flip, spot.turn * turn},
                      {spot.x, spot.y}, true, look, {});
                continue;
            }
            out.writeEmptyElement(u"use"_s);
            out.writeAttribute(u"href"_s, kinds[spot.kind]);
            out.writeAttribute(u"transform"_s,
                               u"translate(%1 %2) rotate(%3) scale(%4 %5)"_s.arg(spot.x)
                                   .arg(spot.y)
                                   .arg(spot.turn * turn)
                                   .arg(spot.flip ? -spot.size : spot.size)
                                   .arg(spot.size));
        }
        out.writeEndElement();
    }

    void contactSpot() {
        out.writeStartElement(u"radialGradient"_s);
        out.writeAttribute(u"id"_s, L(contact));
        for (const auto &[offset, opacity] :
             {std::pair{"0", "0.75"}, {"0.55", "0.4"}, {"1", "0"}}) {
            out.writeEmptyElement(u"stop"_s);
            out.writeAttribute(u"offset"_s, L(offset));
            out.writeAttribute(u"stop-color"_s, u"#0c1030"_s);
            out.writeAttribute(u"stop-opacity"_s, L(opacity));
        }
        out.writeEndElement();
    }
};

} // namespace

QByteArray placed(const QByteArray &scene) {
    QXmlStreamReader in(scene);
    in.setNamespaceProcessing(false);
    QByteArray made;
    QXmlStreamWriter out(&made);
    Placing placing{out};
    std::vector<Look> looks{Look()};
    try {
        while (!in.atEnd()) {
            in.readNext();
            if (in.isStartElement()) {
                Attributes own{in.attributes()};
                looks.push_back(changed(looks.back(), own));
                if (in.qualifiedName() == L("thing")) {
                    placing.thing(own, looks.back());
                } else if (in.qualifiedName() == L("scatter")) {
                    placing.scatter(own, looks.back());
                } else {
                    out.writeStartElement(in.qualifiedName().toString());
                    out.writeAttributes(own.all);
                    if (looks.size() == 2) {
                        placing.contactSpot();
                    }
                }
            } else if (in.isEndElement()) {
                looks.pop_back();
                if (in.qualifiedName() != L("thing") && in.qualifiedName() != L("scatter")) {
                    out.writeEndElement();
                }
            } else if (!in.hasError() && !in.isComment()) {
                out.writeCurrentToken(in);
            }
        }
    } catch (const Error &error) {
        throw Error(u"line %1: "_s.arg(in.lineNumber()) + QString::fromUtf8(error.what()));
    }
    if (in.hasError()) {
        throw Error(u"line %1: "_s.arg(in.lineNumber()) + in.errorString());
    }
    return made;
}

} // namespace scene
