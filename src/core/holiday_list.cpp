// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/holiday_list.h"

#include <QRegularExpression>
#include <algorithm>
#include <optional>
#include <utility>

#include "core/holiday_list_text.h"
#include "core/year_month_day.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostBytes = 1 << 20;
constexpr qsizetype kMostLines = 10'000;
constexpr qsizetype kLongestName = 40;
constexpr int kFewestDays = 8;  // one less than in 1949, the first full year under the law
constexpr int kFirstWholeYear = 1949;
const QDate kLawInForce(1948, 7, 20);
const QDate kLastDate(2150, 12, 31);

HolidayListProblem Problem(qsizetype line, const QString& reason) {
    return {static_cast<int>(line), reason};
}

/// Invalid if the text is not a date. Only ASCII digits count.
QDate ReadDate(const QString& text) {
    static const QRegularExpression form(u"^([0-9]{4})[/-]([0-9]{1,2})[/-]([0-9]{1,2})$"_s);
    const QRegularExpressionMatch match = form.match(text);
    return match.hasMatch()
               ? QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt())
               : QDate();
}

/// A header has a comma, and no digit in its first column.
bool IsHeader(const QString& line) {
    static const QRegularExpression form(u"^[^0-9,]+,"_s);
    return form.match(line).hasMatch();
}

bool HasControlCharacter(const QString& name) {
    return std::any_of(name.cbegin(), name.cend(),
                       [](QChar c) { return c.category() == QChar::Other_Control; });
}

/// The part of a list that was read so far: its days, and the line of each.
struct Reading {
    HolidayList list;
    QMap<QDate, qsizetype> lines;
};

/// The reason to refuse a line; empty if its day was added.
QString AddLine(const QString& line, qsizetype number, Reading& reading) {
    const qsizetype comma = line.indexOf(u',');
    if (comma < 0) {
        return u"コンマがありません。"_s;
    }
    const QString dateText = line.first(comma).trimmed();
    const QString name = line.sliced(comma + 1).trimmed();
    const QDate date = ReadDate(dateText);
    if (!date.isValid()) {
        return u"「%1」は日付ではありません。"_s.arg(dateText.left(kLongestName));
    }
    if (date < kLawInForce) {
        return YearMonthDay(date) + u"は、祝日法の施行（1948年7月20日）より前です。";
    }
    if (date > kLastDate) {
        return YearMonthDay(date) + u"は、2150年より後です。";
    }
    if (name.isEmpty()) {
        return u"祝日の名前がありません。"_s;
    }
    if (name.size() > kLongestName) {
        return u"祝日の名前が%1文字を超えています。"_s.arg(kLongestName);
    }
    if (HasControlCharacter(name)) {
        return u"祝日の名前に、表示できない文字があります。"_s;
    }
    if (reading.lines.contains(date)) {
        return u"%1は、%2行目にもあります。"_s.arg(YearMonthDay(date)).arg(reading.lines.value(date));
    }
    reading.list.days.insert(date, name);
    reading.lines.insert(date, number);
    return {};
}

/// Refuses a list with missing days. `lastLine`: the number of the file's last line.
std::optional<HolidayListProblem> MissingDays(const Reading& reading, qsizetype lastLine) {
    const QMap<QDate, QString>& days = reading.list.days;
    if (days.isEmpty()) {
        return Problem(lastLine, u"祝日が1日もありません。"_s);
    }
    for (int year = reading.list.FirstYear(); year <= reading.list.LastYear(); ++year) {
        const auto begin = days.lowerBound(QDate(year, 1, 1));
        const auto end = days.lowerBound(QDate(year + 1, 1, 1));
        const auto count = std::distance(begin, end);
        if (count == 0) {
            return Problem(reading.lines.value(begin.key()), u"その前の%1年の祝日がありません。"_s.arg(year));
        }
        if (year >= kFirstWholeYear && count < kFewestDays) {
            return Problem(reading.lines.value(std::prev(end).key()),
                           u"%1年の祝日が%2日しかありません。"_s.arg(year).arg(count));
        }
    }
    const QDate last(reading.list.LastYear(), 11, 23);
    if (!days.contains(last)) {
        return Problem(lastLine,
                       u"%1がありません。データが途中で切れていませんか。"_s.arg(YearMonthDay(last)));
    }
    return std::nullopt;
}

}  // namespace

std::variant<HolidayList, HolidayListProblem> ReadHolidayList(QByteArrayView bytes) {
    if (bytes.size() > kMostBytes) {
        return Problem(1 + bytes.first(kMostBytes).toByteArray().count('\n'),
                       u"ここまでで1MiBを超えています。"_s);
    }
    const TextLines text = DecodeLines(bytes);
    if (text.lines.size() > kMostLines) {
        return Problem(kMostLines + 1, u"%1行を超えています。"_s.arg(kMostLines));
    }
    if (text.undecodable) {
        return Problem(*text.undecodable, u"Shift_JISでもUTF-8でもない文字があります。"_s);
    }
    Reading reading;
    bool isFirst = true;
    for (qsizetype i = 0; i < text.lines.size(); ++i) {
        const QString line = text.lines.at(i).trimmed();
        if (line.isEmpty() || (std::exchange(isFirst, false) && IsHeader(line))) {
            continue;
        }
        if (const QString reason = AddLine(line, i + 1, reading); !reason.isEmpty()) {
            return Problem(i + 1, reason);
        }
    }
    if (const auto problem = MissingDays(reading, std::max<qsizetype>(1, text.lines.size()))) {
        return *problem;
    }
    return reading.list;
}

}  // namespace tickwell
