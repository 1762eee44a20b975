// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <cmath>
#include <limits>

#include "platform/power/upower.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

const PowerReading kOnMains{Mains::On, std::nullopt, std::nullopt};

/// UPower's properties for a machine on battery.
QVariantMap Service() {
    return {{u"OnBattery"_s, true}, {u"DaemonVersion"_s, u"0.99.20"_s}};
}

/// The properties of its display device: 80 %, lasting an hour and a half.
QVariantMap Device() {
    return {
        {u"Type"_s, 2U}, {u"IsPresent"_s, true}, {u"Percentage"_s, 80.0}, {u"TimeToEmpty"_s, qint64{5400}}};
}

QVariantMap With(QVariantMap properties, const QString& name, const QVariant& value) {
    properties.insert(name, value);
    return properties;
}

}  // namespace

/// The battery state from UPower's properties.
class TstUpower : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PropertiesAreRead_data();
    void PropertiesAreRead();
};

void TstUpower::PropertiesAreRead_data() {
    QTest::addColumn<QVariantMap>("service");
    QTest::addColumn<QVariantMap>("device");
    QTest::addColumn<std::optional<PowerReading>>("reading");
    const auto row = [](const char* name, const QVariantMap& service, const QVariantMap& device,
                        const std::optional<PowerReading>& reading) {
        QTest::newRow(name) << service << device << reading;
    };
    const auto deviceRow = [&](const char* name, const QString& property, const QVariant& value,
                               const std::optional<PowerReading>& reading) {
        row(name, Service(), With(Device(), property, value), reading);
    };
    const auto charge = [](int percent) { return PowerReading{Mains::Off, percent, 5400}; };
    const PowerReading withoutTime{Mains::Off, 80, std::nullopt};
    const QString percentage = u"Percentage"_s;
    const QString time = u"TimeToEmpty"_s;

    row("on battery", Service(), Device(), charge(80));
    row("on mains", With(Service(), u"OnBattery"_s, false), Device(), kOnMains);
    row("on mains, and nothing is known of the device", With(Service(), u"OnBattery"_s, false), {}, kOnMains);
    deviceRow("no battery is in", u"IsPresent"_s, false, kOnMains);
    deviceRow("no battery at all", u"Type"_s, 0U, kOnMains);
    deviceRow("rounded down", percentage, 79.4, charge(79));
    deviceRow("rounded up", percentage, 79.6, charge(80));
    deviceRow("empty", percentage, 0.0, charge(0));
    deviceRow("full", percentage, 100.0, charge(100));

    deviceRow("more than full", percentage, 100.5, std::nullopt);
    deviceRow("far more than full", percentage, 250.0, std::nullopt);
    deviceRow("a negative charge", percentage, -7.0, std::nullopt);
    deviceRow("just below empty", percentage, -0.6, std::nullopt);
    deviceRow("no number", percentage, std::nan(""), std::nullopt);
    deviceRow("infinite", percentage, std::numeric_limits<double>::infinity(), std::nullopt);
    deviceRow("infinite and negative", percentage, -std::numeric_limits<double>::infinity(), std::nullopt);
    deviceRow("huge", percentage, 1e300, std::nullopt);
    deviceRow("a text", percentage, u"80"_s, std::nullopt);
    deviceRow("another number's type", percentage, 80, std::nullopt);
    deviceRow("a type that is not known", percentage, QVariant(), std::nullopt);
    deviceRow("a text for the kind of device", u"Type"_s, u"2"_s, std::nullopt);
    deviceRow("a number for a flag", u"IsPresent"_s, 1, std::nullopt);
    row("a text for what it runs on", With(Service(), u"OnBattery"_s, u"true"_s), Device(), std::nullopt);
    row("nothing at all", {}, {}, std::nullopt);
    row("no display device", Service(), {}, std::nullopt);

    deviceRow("no time is known", time, qint64{0}, withoutTime);
    deviceRow("the shortest", time, qint64{1}, PowerReading{Mains::Off, 80, 1});
    deviceRow("the longest", time, qint64{864'000}, PowerReading{Mains::Off, 80, 864'000});
    deviceRow("longer than any battery lasts", time, qint64{864'001}, withoutTime);
    deviceRow("the largest number", time, std::numeric_limits<qint64>::max(), withoutTime);
    deviceRow("a negative time", time, qint64{-60}, withoutTime);
    deviceRow("a time of another type", time, 5400.0, withoutTime);
}

void TstUpower::PropertiesAreRead() {
    QFETCH(QVariantMap, service);
    QFETCH(QVariantMap, device);
    QFETCH(std::optional<PowerReading>, reading);
    QVERIFY(ReadingOf(service, device) == reading);
}

QTEST_GUILESS_MAIN(TstUpower)
#include "tst_upower.moc"
