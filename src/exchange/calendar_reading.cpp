// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/calendar_reading.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/errors.h"
#include "exchange/event_rows.h"
#include "exchange/log.h"
#include "exchange/record_fields.h"
#include "exchange/row_rule.h"
#include "ical_helper/protocol.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kEventsAtOnce = 500;                        // per slice: some milliseconds
constexpr qsizetype kLongestRecord = qsizetype{8} * 1024 * 1024;  // bytes; the dates of the biggest event fit
constexpr qsizetype kShown = 200;                                 // bytes of an invalid line in the log

struct Sentence {
    const char* word = nullptr;
    QStringView text;  // %1 is the line
};

constexpr std::array<Sentence, 9> kSentences{{
    {ical_helper::kCannotRead, u"ファイルを読めません。"},
    {ical_helper::kTooLarge, u"ファイルが大きすぎます（40 MiBまで）。分けて保存してください。"},
    {ical_helper::kNoCalendar, u"iCalendarのファイルではありません。"},
    {ical_helper::kTooLong, u"%1行目が長すぎます（64 KiBまで）。"},
    {ical_helper::kNotUtf8, u"%1行目がUTF-8ではありません。"},
    {ical_helper::kTooDeep, u"%1行目のBEGINの入れ子が深すぎます。"},
    {ical_helper::kTooBig, u"%1行目からの予定が大きすぎます。"},
    {ical_helper::kWrongEnd, u"%1行目のENDに合うBEGINがありません。"},
    {ical_helper::kCutOff, u"ファイルが途中で終わっています（%1行目）。"},
}};

RunTimeError HelperFailed() {
    return RunTimeError(u"iCalendarを読むプログラムが途中で終了しました。"_s);
}

QString SentenceOf(const QByteArray& word, const QByteArray& line) {
    const auto* found = std::find_if(kSentences.begin(), kSentences.end(),
                                     [&word](const Sentence& known) { return word == known.word; });
    if (found == kSentences.end()) {
        throw HelperFailed();
    }
    return found->text.toString().replace(u"%1"_s, QString::number(line.toInt()));
}

}  // namespace

void CalendarReading::Take(const QByteArray& bytes) {
    m_rest += bytes;
    qsizetype start = 0;
    for (qsizetype end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n', start)) {
        TakeLine(m_rest.mid(start, end - start));
        start = end + 1;
    }
    m_rest.remove(0, start);
    if (m_rest.size() > kLongestRecord) {
        throw HelperFailed();
    }
}

void CalendarReading::TakeLine(const QByteArray& line) {
    const QByteArray word = line.left(line.indexOf(ical_helper::kFieldJoint));
    const QByteArrayList fields = line.split(ical_helper::kFieldJoint);
    if (word == ical_helper::kEventWord) {
        std::optional<CalendarEvent> event = EventFrom(line);
        if (event) {
            if (event->replaces.isValid() && (event->isCancelled || event->start != event->replaces)) {
                m_replaced[event->uid].append(event->replaces);
            }
            m_events.push_back(*std::move(event));
            return;
        }
    } else if (word == ical_helper::kAtWord && fields.size() == 2) {
        m_position = fields[1].toLongLong();
        return;
    } else if (word == ical_helper::kOtherWord && fields.size() == 2) {
        m_others = NumberFrom(fields[1], 0, std::numeric_limits<int>::max()).value_or(0);
        m_isComplete = true;
        return;
    } else if (word == ical_helper::kRefusedWord && fields.size() == 3) {
        m_refusal = SentenceOf(fields[1], fields[2]);
        return;
    }
    qCWarning(ExchangeLog, "tickwell-ical wrote an invalid line: %s", line.left(kShown).constData());
    throw HelperFailed();
}

QList<QDate> CalendarReading::ReplacedOf(const CalendarEvent& event) const {
    return event.uid.isEmpty() || event.replaces.isValid() ? QList<QDate>() : m_replaced.value(event.uid);
}

void CalendarReading::AddEntries(const CalendarEvent& event, int number) {
    const QList<QDate> replaced = ReplacedOf(event);
    EventRows found = RowsOf(event, m_today, replaced);
    if (!found.reason.isEmpty()) {
        m_offer.refusedEvents.append(number);
        if (m_splits) {
            found.rows = SingleRowsOf(event, m_today, replaced);
        }
        if (found.rows.empty()) {
            m_offer.entries.push_back(RefusedEntry(event.name, DayText(event.start), found.reason));
        }
    }
    for (const days::Anniversary& row : found.rows) {
        m_offer.entries.push_back(EntryOf(event.name, row));
    }
}

void CalendarReading::End(int exitCode) const {
    if (!m_refusal.isEmpty()) {
        throw RunTimeError(m_refusal);
    }
    if (exitCode != ical_helper::kEndDone || !m_isComplete || !m_rest.isEmpty()) {
        throw HelperFailed();
    }
}

bool CalendarReading::Convert() {
    const std::size_t last = std::min(m_events.size(), m_converted + kEventsAtOnce);
    for (; m_converted < last; ++m_converted) {
        const CalendarEvent& event = m_events[m_converted];
        if (event.isCancelled) {
            ++m_offer.cancelled;
        } else {
            AddEntries(event, static_cast<int>(m_converted));
        }
    }
    return m_converted == m_events.size();
}

double CalendarReading::Part() const {
    return m_events.empty() ? 1 : static_cast<double>(m_converted) / static_cast<double>(m_events.size());
}

Offer CalendarReading::TakeOffer() {
    m_offer.others = m_others;
    return std::move(m_offer);
}

}  // namespace tickwell::exchange
