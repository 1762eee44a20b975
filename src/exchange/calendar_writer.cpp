// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/calendar_writer.h"

#include <QCryptographicHash>

#include "core/content_lines.h"
#include "exchange/record_fields.h"
#include "exchange/row_rule.h"
#include "ical_helper/protocol.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kBeginning =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Tickwell//Tickwell//JA\r\nCALSCALE:GREGORIAN\r\n";
constexpr QByteArrayView kEnd = "END:VCALENDAR\r\n";

QByteArray Numbers(const days::Anniversary& row, char joint) {
    return QByteArray::number(row.year) + joint + QByteArray::number(row.month) + joint +
           QByteArray::number(row.day) + joint + QByteArray::number(row.week);
}

QByteArray LinesOf(const DayRule& rule) {
    const QByteArray start = "DTSTART;VALUE=DATE:" + CompactDate(rule.start) + "\r\n";
    return rule.rule ? start + "RRULE:" + RuleText(*rule.rule) + "\r\n" : start;
}

}  // namespace

CalendarWriter::CalendarWriter(const QDateTime& now)
    : m_stamp("DTSTAMP:" + now.toUTC().toString(u"yyyyMMdd'T'HHmmss'Z'"_s).toLatin1() + "\r\n"),
      m_bytes(kBeginning.toByteArray()) {}

bool CalendarWriter::AddAnniversary(const days::Anniversary& row) {
    const std::vector<DayRule> rules = RulesOf(row);
    QByteArray uid = UidOf(row);
    for (const DayRule& rule : rules) {
        AddEvent(uid, LinesOf(rule), row.name, QByteArray(ical_helper::kRowName) + ':' + Numbers(row, ';'));
        uid += "-2";  // of a row with a day and a week
    }
    return !rules.empty();
}

void CalendarWriter::AddDayOff(const QString& name, QDate date) {
    AddDay({.name = name, .year = date.year(), .month = date.month(), .day = date.day(), .week = 0},
           "DAYOFF");
}

void CalendarWriter::AddMark(days::DayMark mark, QDate date) {
    AddDay({.name = MarkText(mark), .year = date.year(), .month = date.month(), .day = date.day(), .week = 0},
           days::TableOf(mark).toLatin1().toUpper());
}

void CalendarWriter::AddDay(const days::Anniversary& row, const QByteArray& kind) {
    const DayRule rule{.start = QDate(row.year, row.month, row.day), .rule = std::nullopt};
    AddEvent(UidOf(row) + '-' + kind, LinesOf(rule), row.name,
             QByteArray(ical_helper::kDayName) + ':' + kind);
}

void CalendarWriter::AddEvent(const QByteArray& uid, const QByteArray& days, const QString& name,
                              const QByteArray& last) {
    if (m_uids.contains(uid)) {
        return;
    }
    m_uids.insert(uid);
    m_bytes += "BEGIN:VEVENT\r\nUID:" + uid + "\r\n" + m_stamp + days +
               FoldedLine("SUMMARY:" + EscapedText(name)) + "TRANSP:TRANSPARENT\r\n" + last +
               "\r\nEND:VEVENT\r\n";
}

QByteArray CalendarWriter::Take() {
    m_bytes += kEnd;
    return std::move(m_bytes);
}

QByteArray UidOf(const days::Anniversary& row) {
    return QCryptographicHash::hash(QByteArray(row.name.toUtf8() + '\n' + Numbers(row, '\n')),
                                    QCryptographicHash::Sha1)
        .toHex();
}

QString MarkText(days::DayMark mark) {
    switch (mark) {
        case days::DayMark::Holiday:
            return u"休日"_s;
        case days::DayMark::Halfday:
            return u"半日"_s;
        case days::DayMark::Usuallyday:
            return u"平日"_s;
    }
    Q_UNREACHABLE();
}

}  // namespace tickwell::exchange
