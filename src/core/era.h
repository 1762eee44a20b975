// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <optional>

namespace tickwell {

/// An era of the Japanese calendar.
struct Era {
    QString name;    ///< "令和"
    QString letter;  ///< its short form: "令"
    QDate first;     ///< the first day of its year 1

    bool operator==(const Era&) const = default;
};

/// How Japanese years are written; by default as years of 平成, whatever the date.
struct EraStyle {
    bool byDate = false;        ///< in the era of the date, from 明治 on
    std::optional<Era> next{};  ///< an era to come, later than 令和; without effect unless `byDate`

    bool operator==(const EraStyle&) const = default;
};

/// A year of an era. If the style does not go by date, 1988 is year 0 of 平成, and earlier years are
/// negative.
struct EraYear {
    QString name;
    QString letter;
    int year = 0;
    bool hasFirstYearWord = false;  ///< year 1 is written 元年

    QString YearText() const {
        return hasFirstYearWord && year == 1 ? QStringLiteral("元") : QString::number(year);
    }

    bool operator==(const EraYear&) const = default;
};

/// nullopt for dates before 1873, the first Gregorian year in Japan, if the style goes by date.
std::optional<EraYear> EraYearOf(QDate date, const EraStyle& style);

/// Reads "光文,光,2040-05-01": name, letter, first day. Throws RunTimeError if the text has another form or
/// the day is not after the first of 令和.
Era ReadEra(const QString& text);

/// The inverse of ReadEra.
QString EraText(const Era& era);

}  // namespace tickwell
