// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QTimeZone>
#include <vector>

namespace tickwell::timing {

// ms
inline constexpr qint64 kWallMinute = 60'000;
inline constexpr qint64 kWallDay = 86'400'000;

/// "2026-03-29T01:00:00" in UTC as ms since 1970.
inline qint64 Utc(const QString& text) {
    return QDateTime::fromString(text + u'Z', Qt::ISODate).toMSecsSinceEpoch();
}

/// What a clock on the wall of a zone shows at each minute of 2026 and some days around it, as if it were
/// UTC.
class Wall {
public:
    explicit Wall(const QTimeZone& zone) {
        // Clocks change at whole quarters of an hour.
        for (qint64 quarter = Start(); quarter < Utc(QStringLiteral("2027-03-01T00:00:00"));
             quarter += 15 * kWallMinute) {
            const QDateTime local = QDateTime::fromMSecsSinceEpoch(quarter, zone);
            const qint64 shown = QDateTime(local.date(), local.time(), QTimeZone::utc()).toMSecsSinceEpoch();
            for (int minute = 0; minute < 15; ++minute) {
                m_shown.push_back(shown + minute * kWallMinute);
            }
        }
    }

    /// `utc`: whole minutes, in ms since 1970.
    qint64 Shown(qint64 utc) const {
        return m_shown.at(static_cast<std::size_t>((utc - Start()) / kWallMinute));
    }

private:
    static qint64 Start() { return 1'766'188'800'000; }  // 20 December 2025

    std::vector<qint64> m_shown;
};

}  // namespace tickwell::timing
