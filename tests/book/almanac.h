// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

#include "days/anniversary_model.h"

namespace tickwell::book {

/// The test's own calendar: every day from 1 January 100 to 31 December 9999 with its week code.
class Almanac {
public:
    struct Day {
        qint16 year = 0;
        qint8 month = 0;
        qint8 day = 0;
        qint8 code = 0;
    };

    Almanac() {
        m_days.reserve(3'650'000);
        for (int year = 100; year <= 9999; ++year) {
            for (int month = 1; month <= 12; ++month) {
                for (int day = 1; day <= Length(year, month); ++day) {
                    m_days.push_back(
                        {static_cast<qint16>(year), static_cast<qint8>(month), static_cast<qint8>(day), 0});
                }
            }
        }
        const std::size_t monday = Index(QDate(1900, 1, 1));
        for (std::size_t i = 0; i < m_days.size(); ++i) {
            const std::size_t weekday = (i + 7 * m_days.size() - monday + 1) % 7 + 1;  // Monday is 2
            const int week = (m_days[i].day + 6) / 7;
            m_days[i].code = static_cast<qint8>(10 * week + static_cast<int>(weekday));
        }
    }

    /// The rows that recur every year and fall on a day of the range, both ends included.
    days::Anniversaries Falling(const days::Anniversaries& rows, QDate first, QDate last) const {
        std::array<std::array<bool, 128>, 13> byDay{};
        std::array<std::array<bool, 128>, 13> byCode{};
        const std::size_t end = Index(last) + 1;
        for (std::size_t i = Index(first); i < end; ++i) {
            const auto month = static_cast<std::size_t>(m_days[i].month);
            byDay.at(month).at(static_cast<std::size_t>(m_days[i].day)) = true;
            byCode.at(month).at(static_cast<std::size_t>(m_days[i].code)) = true;
        }
        const auto isMarked = [](const auto& marks, int number) {
            return number >= 1 && number < 128 && marks.at(static_cast<std::size_t>(number));
        };
        return days::Those(rows, [&](const days::Anniversary& row) {
            const bool hasMonth = row.year == 0 && row.month >= 1 && row.month <= 12;
            const auto month = static_cast<std::size_t>(hasMonth ? row.month : 0);
            return hasMonth && (isMarked(byDay.at(month), row.day) || isMarked(byCode.at(month), row.week));
        });
    }

private:
    static int Length(int year, int month) {
        if (month == 2) {
            return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0) ? 29 : 28;
        }
        return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
    }

    std::size_t Index(QDate date) const {
        const auto isBefore = [](const Day& day, const QDate& wanted) {
            return std::tuple(int{day.year}, int{day.month}, int{day.day}) <
                   std::tuple(wanted.year(), wanted.month(), wanted.day());
        };
        return static_cast<std::size_t>(std::lower_bound(m_days.begin(), m_days.end(), date, isBefore) -
                                        m_days.begin());
    }

    std::vector<Day> m_days;
};

}  // namespace tickwell::book
