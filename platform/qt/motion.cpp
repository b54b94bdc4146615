// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/motion.h"

#include "platform/qt/desktopfiles.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QSettings>
#include <QStandardPaths>

namespace grimoval {

namespace motion {

namespace {

bool wanted = false;

// The settings of the desktop as all programs are told them: org.freedesktop.portal.Settings.
constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto path = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";
constexpr auto group = "org.gnome.desktop.interface";
constexpr auto key = "enable-animations";

class Listener : public QObject {
    Q_OBJECT
public Q_SLOTS:
    void changed(const QString &inGroup, const QString &changedKey, const QDBusVariant &value) {
        if (inGroup == QLatin1String(group) && changedKey == QLatin1String(key)) {
            setWanted(value.variant().toBool());
        }
    }
};

// Old portals wrap the answer twice.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

bool isWanted() { return wanted; }

void setWanted(bool now) { wanted = now; }

bool settingsWantMotion(const QString &folder) {
    struct Switch {
        const char *file, *key;
    };
    // KDE: a factor of all durations, 0 for none. GTK and the desktops built on it: yes or no.
    constexpr Switch switches[] = {
        {"kdeglobals", "KDE/AnimationDurationFactor"},
        {"gtk-3.0/settings.ini", "Settings/gtk-enable-animations"},
        {"gtk-4.0/settings.ini", "Settings/gtk-enable-animations"},
    };
    for (const Switch &one : switches) {
        const QString file = folder + u'/' + QLatin1String(one.file);
        if (!isSettingsFile(file)) {
            continue;
        }
        const QSettings settings(file, QSettings::IniFormat);
        const QString value = settings.value(QLatin1String(one.key)).toString().toLower();
        bool number = false;
        const double factor = value.toDouble(&number);
        if (value == u"false" || (number && factor == 0)) {
            return false;
        }
    }
    return true;
}

void followDesktop() {
    wanted =
        settingsWantMotion(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    if (!wanted) {
        return;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    static Listener listener;
    bus.connect(QLatin1String(service), QLatin1String(path), QLatin1String(interface),
                QStringLiteral("SettingChanged"), &listener,
                SLOT(changed(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(path),
                                       QLatin1String(interface), QStringLiteral("Read"));
    question.setArguments({QString::fromLatin1(group), QString::fromLatin1(key)});
    question.setAutoStartService(false); // no desktop, no wish
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question, 2000), &listener);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &listener,
                     [](QDBusPendingCallWatcher *done) {
                         const QDBusPendingReply<QDBusVariant> reply = *done;
                         done->deleteLater();
                         if (!reply.isError()) {
                             setWanted(unwrapped(reply.value().variant()).toBool());
                         }
                     });
}

} // namespace motion

Glide::Glide(std::function<void()> moved) : moved_(std::move(moved)) {
    animation_.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&animation_, &QVariantAnimation::valueChanged, &animation_,
                     [this](const QVariant &value) {
                         value_ = value.toDouble();
                         moved_();
                     });
}

void Glide::moveTo(double target, int milliseconds) {
    if (!motion::isWanted()) {
        jumpTo(target);
        return;
    }
    animation_.stop();
    animation_.setDuration(milliseconds);
    animation_.setStartValue(value_);
    animation_.setEndValue(target);
    animation_.start();
}

void Glide::jumpTo(double value) {
    animation_.stop();
    value_ = value;
    moved_();
}

} // namespace grimoval

#include "motion.moc"
