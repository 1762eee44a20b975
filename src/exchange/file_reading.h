// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <future>
#include <memory>
#include <optional>

#include "core/ports/calendar_helper.h"
#include "core/sliced_work.h"
#include "exchange/calendar_reading.h"
#include "exchange/stored_look_up.h"

namespace tickwell::exchange {

/// What a reading works with; all outlive it.
struct ReadingParts {
    store::DayDatabase& dayDatabase;
    CalendarHelper& helper;
    QDate today;
};

enum class FileKind { Calendar, Contacts, Table };

/// The kind of a file by the ending of its name: .ics, .vcf or .csv. Throws RunTimeError for another one.
FileKind KindOf(const QString& path);

/// Reads a file and looks up which of its rows are stored already. Changes nothing.
class FileReading : public SlicedWork {
public:
    /// `split`: numbers of the events that are to become single days of the coming year.
    FileReading(const ReadingParts& parts, QString path, QList<int> split = {});
    ~FileReading() override;

    /// Throws RunTimeError with path and reason.
    bool Step() override;
    double Part() const override;

    /// What was read, once complete.
    Offer TakeOffer() { return std::move(m_offer); }

private:
    void Begin();
    bool Read();
    bool ReadCalendar();
    [[noreturn]] void Fail(const QString& reason) const;

    ReadingParts m_parts;
    QString m_path;
    QList<int> m_split;
    FileKind m_kind;
    bool m_hasBegun = false;
    bool m_hasEnded = false;  // the helper has
    qint64 m_size = 0;
    std::optional<CalendarReading> m_calendar;
    std::atomic<bool> m_isStopping = false;
    std::future<Offer> m_parsing;  // of contacts and tables, on a thread
    Offer m_offer;
    std::unique_ptr<StoredLookUp> m_lookUp;
};

}  // namespace tickwell::exchange
