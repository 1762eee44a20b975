// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QTest>

#include "core/holiday_list.h"

namespace tickwell {

/// The Cabinet Office's list as published, 1955 to 2027.
inline QByteArray OfficialList() {
    QFile file(QStringLiteral(TICKWELL_HOLIDAY_LIST));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The days of 1955 and 1956 in UTF-8, small enough to be damaged at each
/// of its bytes.
inline QByteArray ShortList() {
    return "1955/1/1,元日\n1955/1/15,成人の日\n1955/3/21,春分の日\n1955/4/29,天皇誕生日\n"
           "1955/5/3,憲法記念日\n1955/5/5,こどもの日\n1955/9/24,秋分の日\n1955/11/3,文化の日\n"
           "1955/11/23,勤労感謝の日\n"
           "1956/1/1,元日\n1956/1/15,成人の日\n1956/3/21,春分の日\n1956/4/29,天皇誕生日\n"
           "1956/5/3,憲法記念日\n1956/5/5,こどもの日\n1956/9/23,秋分の日\n1956/11/3,文化の日\n"
           "1956/11/23,勤労感謝の日\n";
}

/// The list, or nullopt if it was refused.
inline std::optional<HolidayList> Accepted(const QByteArray& bytes) {
    auto result = ReadHolidayList(bytes);
    auto* list = std::get_if<HolidayList>(&result);
    return list != nullptr ? std::optional(std::move(*list)) : std::nullopt;
}

/// "3: reason", or "accepted".
inline QString RefusalOf(const QByteArray& bytes) {
    const auto result = ReadHolidayList(bytes);
    const auto* problem = std::get_if<HolidayListProblem>(&result);
    return problem != nullptr ? QString::number(problem->line) + u": " + problem->reason
                              : QStringLiteral("accepted");
}

}  // namespace tickwell
