// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/power/power_supplies.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <array>
#include <utility>

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

QByteArray Text(const QString& supply, const QString& name) {
    QFile file(supply + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

constexpr qint64 kLargest = 1'000'000'000'000;  // of any value: a megawatt hour in microwatt hours
constexpr qint64 kFull = 100;                   // %

std::optional<qint64> Number(const QString& supply, const QString& name) {
    bool isNumber = false;
    const qint64 value = Text(supply, name).toLongLong(&isNumber);
    return isNumber && value >= 0 && value <= kLargest ? std::optional(value) : std::nullopt;
}

/// Sums over all batteries, in the units of their files: microwatt hours and microwatts, or microampere hours
/// and microamperes.
struct Charge {
    qint64 now = 0;
    qint64 full = 0;
    qint64 rate = 0;  // of discharge, per hour

    void Add(const QString& battery) {
        constexpr std::array kUnits{std::pair{u"energy", u"power_now"}, std::pair{u"charge", u"current_now"}};
        for (const auto& [unit, rateFile] : kUnits) {
            const QString name = QString::fromUtf16(unit);
            const auto present = Number(battery, name + u"_now"_s);
            const auto most = Number(battery, name + u"_full"_s);
            if (present && most) {
                now += *present;
                full += *most;
                rate += Number(battery, QString::fromUtf16(rateFile)).value_or(0);
                return;
            }
        }
        // Some batteries report nothing else.
        if (const auto percent = Number(battery, u"capacity"_s); percent && *percent <= kFull) {
            now += *percent;
            full += kFull;
        }
    }
};

}  // namespace

PowerReading PowerSupplies::Read() const {
    bool isOnline = false;
    bool hasBattery = false;
    Charge charge;
    for (const QString& name : QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString supply = m_folder + u'/' + name;
        const QByteArray type = Text(supply, u"type"_s);
        if (Text(supply, u"scope"_s) == "Device") {
            continue;
        }
        if (type == "Battery" && Number(supply, u"present"_s).value_or(1) == 1) {
            hasBattery = true;
            charge.Add(supply);
        } else if (type == "Mains" || type.startsWith("USB")) {
            isOnline = isOnline || Number(supply, u"online"_s).value_or(0) == 1;
        }
    }
    if (isOnline) {
        return {Mains::On, std::nullopt, std::nullopt};
    }
    if (!hasBattery || charge.full <= 0) {
        return {};
    }
    // The charge can exceed the full charge that the kernel reports.
    const qint64 percent = std::min(charge.now * kFull / charge.full, kFull);
    PowerReading reading{Mains::Off, static_cast<int>(percent), std::nullopt};
    const qint64 seconds = charge.rate > 0 ? charge.now * 3600 / charge.rate : 0;
    if (seconds > 0 && seconds <= kLongestTimeLeft) {
        reading.secondsLeft = seconds;
    }
    return reading;
}

}  // namespace tickwell::platform
