// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/file_export.h"

#include <QMap>
#include <algorithm>
#include <chrono>
#include <utility>

#include "core/errors.h"
#include "core/saved_file.h"
#include "exchange/table_text.h"
#include "ical_helper/protocol.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kRowsAtOnce = 500;  // per slice, about 10 ms
constexpr QStringView kTable = u"Kinenbi";
constexpr int kMonthsOfYear = 12;
constexpr double kSearchPart = 0.2;  // of the whole work
constexpr double kWritePart = 0.7;

// The dates that the database can contain.
const QDate& FirstMark() {
    static const QDate date(100, 1, 1);
    return date;
}
const QDate& LastMark() {
    static const QDate date(9999, 12, 31);
    return date;
}

}  // namespace

FileExport::FileExport(ExportParts parts, const ExportChoice& choice, QString path)
    : m_parts(std::move(parts)), m_choice(choice), m_path(std::move(path)) {}

FileExport::~FileExport() {
    if (m_saving.valid()) {
        m_saving.wait();
    }
}

void FileExport::Begin() {
    m_phase = Phase::Searching;
    m_search.emplace(kTable, [](const store::RowDigest&) { return true; });
    m_rows.clear();
    m_next = 0;
    m_sums = {};
    m_table = m_choice.asTable ? TableHead() : QByteArray();
    m_calendar.reset();
    if (!m_choice.asTable) {
        m_calendar.emplace(m_parts.now);
    }
}

bool FileExport::Step() {
    if (m_phase == Phase::Saving) {
        return Save();
    }
    if (IsGivenUp()) {
        return true;
    }
    const store::ChangeMark mark = m_parts.dayDatabase.Mark();
    if (std::exchange(m_mark, mark) != mark) {
        Begin();
    }
    if (m_phase == Phase::Searching) {
        if (!m_choice.anniversaries || m_search->Step(m_parts.dayDatabase)) {
            m_rows = m_search->Take();
            m_phase = Phase::Writing;
        }
        return false;
    }
    if (m_next < m_rows.size()) {
        WriteRows();
        return false;
    }
    WriteDaysOff();
    WriteMarks();
    m_phase = Phase::Saving;
    m_saving = std::async(std::launch::async,
                          [path = m_path, bytes = TakeBytes()] { return SaveFile(path, bytes); });
    return false;
}

void FileExport::WriteRows() {
    const qsizetype last = std::min(m_rows.size(), m_next + kRowsAtOnce);
    for (; m_next < last; ++m_next) {
        const auto read = m_parts.dayDatabase.ReadRow(kTable, m_rows.at(m_next));
        if (!read) {
            m_mark.reset();  // changed since: the next slice begins anew
            return;
        }
        const days::Anniversary row{.name = read->Text(u"Name"),
                                    .year = read->Integer(u"Year"),
                                    .month = read->Integer(u"Month"),
                                    .day = read->Integer(u"Day"),
                                    .week = read->Integer(u"Week")};
        const bool falls = m_calendar ? m_calendar->AddAnniversary(row) : AddTableLine(row, m_table);
        ++(falls ? m_sums.anniversaries : m_sums.onNoDay);
    }
}

void FileExport::WriteDaysOff() {
    if (!m_choice.daysOff || m_parts.holidays == nullptr) {
        return;
    }
    for (int year = m_choice.firstYear; year <= m_choice.lastYear; ++year) {
        for (int month = 1; month <= kMonthsOfYear; ++month) {
            QMap<QDate, QString> names;  // if a day occurs twice, its last name counts
            for (const days::NamedDay& day :
                 m_parts.holidays->DaysOff(days::ShapeOf(QDate(year, month, 1)))) {
                names[QDate(year, month, day.day)] = day.name;
            }
            names.remove(QDate());  // a day that the month does not have
            for (auto day = names.constBegin(); day != names.constEnd(); ++day) {
                AddDay(day.value(), day.key());
                ++m_sums.daysOff;
            }
        }
    }
}

void FileExport::WriteMarks() {
    for (const days::DayMark mark : days::kDayMarks) {
        if (!m_choice.marks) {
            return;
        }
        const QString query = days::MarkedDatesQuery(mark, FirstMark(), LastMark());
        for (const store::ResultRow& row : m_parts.dayDatabase.RunQuery(query)) {
            const QDate date = row.Date(u"Date");
            if (!date.isValid()) {  // another program has stored something else
                continue;
            }
            if (m_calendar) {
                m_calendar->AddMark(mark, date);
            } else {
                AddDay(MarkText(mark), date);
            }
            ++m_sums.marks;
        }
    }
}

void FileExport::AddDay(const QString& name, QDate date) {
    if (m_calendar) {
        m_calendar->AddDayOff(name, date);
    } else {
        m_table += TableLine(
            {.name = name, .year = date.year(), .month = date.month(), .day = date.day(), .week = 0});
    }
}

QByteArray FileExport::TakeBytes() {
    QByteArray bytes = m_calendar ? m_calendar->Take() : std::move(m_table);
    m_sums.isTooLargeToRead = bytes.size() > ical_helper::kMostBytes;
    return bytes;
}

bool FileExport::Save() {
    if (m_saving.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return false;
    }
    if (const QString reason = m_saving.get(); !reason.isEmpty()) {
        throw FileError(u"記念日を書き出せませんでした。"_s, m_path, reason);
    }
    IsDoneAllTheSame();
    return true;
}

double FileExport::Part() const {
    switch (m_phase) {
        case Phase::Searching:
            return m_search ? kSearchPart * m_search->Part() : 0;
        case Phase::Writing:
            return kSearchPart + kWritePart * static_cast<double>(m_next) /
                                     static_cast<double>(std::max<qsizetype>(1, m_rows.size()));
        case Phase::Saving:
            return kSearchPart + kWritePart;
    }
    Q_UNREACHABLE();
}

QString ExportText(const ExportSums& sums) {
    QStringList parts{u"記念日 %1件"_s.arg(sums.anniversaries)};
    if (sums.daysOff > 0) {
        parts.append(u"祝日 %1件"_s.arg(sums.daysOff));
    }
    if (sums.marks > 0) {
        parts.append(u"印 %1件"_s.arg(sums.marks));
    }
    QString text = parts.join(u"、"_s) + u"を書き出しました。";
    if (sums.onNoDay > 0) {
        text += u"\r\nどの日にも当たらない記念日 %1件は書き出していません。"_s.arg(sums.onNoDay);
    }
    if (sums.isTooLargeToRead) {
        text += u"\r\nファイルが40 MiBより大きいため、このプログラムでは読み込めません。"_s;
    }
    return text;
}

}  // namespace tickwell::exchange
