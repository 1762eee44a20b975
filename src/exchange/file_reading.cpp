// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/file_reading.h"

#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <utility>

#include "core/errors.h"
#include "core/regular_file.h"
#include "exchange/contacts.h"
#include "exchange/event_rows.h"
#include "exchange/table_text.h"
#include "ical_helper/protocol.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

// of the whole work
constexpr double kReadPart = 0.6;
constexpr double kConvertPart = 0.3;

Offer Parsed(FileKind kind, const QString& path, const std::atomic<bool>& isGivenUp) {
    const FileContents file = ReadRegularFile(path, ical_helper::kMostBytes);
    if (file.problem != FileProblem::None) {
        throw RunTimeError(file.reason);
    }
    return kind == FileKind::Contacts ? ReadContacts(file.bytes, isGivenUp)
                                      : ReadTable(file.bytes, isGivenUp);
}

}  // namespace

FileKind KindOf(const QString& path) {
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == u"ics") {
        return FileKind::Calendar;
    }
    if (ending == u"vcf") {
        return FileKind::Contacts;
    }
    if (ending == u"csv") {
        return FileKind::Table;
    }
    throw FileError(u"記念日を読み込めません。"_s, path,
                    u"名前が .ics、.vcf、.csv で終わるファイルを選んでください。"_s);
}

FileReading::FileReading(const ReadingParts& parts, QString path, QList<int> split)
    : m_parts(parts), m_path(std::move(path)), m_split(std::move(split)), m_kind(KindOf(m_path)) {}

FileReading::~FileReading() {
    m_isStopping = true;
    if (m_parsing.valid()) {
        m_parsing.wait();
    }
    if (m_calendar) {
        m_parts.helper.End();
    }
}

void FileReading::Fail(const QString& reason) const {
    throw FileError(u"記念日を読み込めません。"_s, m_path, reason);
}

void FileReading::Begin() {
    m_hasBegun = true;
    if (m_kind != FileKind::Calendar) {
        m_parsing = std::async(std::launch::async, [this] { return Parsed(m_kind, m_path, m_isStopping); });
        return;
    }
    const QFileInfo file(m_path);
    if (!file.isFile()) {
        Fail(file.exists() ? u"通常のファイルではありません。"_s : u"ファイルがありません。"_s);
    }
    m_size = file.size();
    m_calendar.emplace(m_parts.today, !m_split.isEmpty());
    if (!m_parts.helper.Start(file.absoluteFilePath(), m_parts.today, EndOfYearFrom(m_parts.today),
                              m_split)) {
        Fail(u"iCalendarを読むプログラム（tickwell-ical）を起動できません。"_s);
    }
}

bool FileReading::Step() {
    if (IsGivenUp()) {
        return true;
    }
    if (!m_hasBegun) {
        Begin();
    }
    if (!m_lookUp) {
        try {
            if (!Read()) {
                return false;
            }
        } catch (const RunTimeError& error) {
            Fail(error.Reason());
        }
        m_lookUp = std::make_unique<StoredLookUp>(m_parts.dayDatabase, m_offer.entries);
        return false;
    }
    return m_lookUp->Step();
}

bool FileReading::Read() {
    if (m_kind == FileKind::Calendar) {
        return ReadCalendar();
    }
    if (m_parsing.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return false;
    }
    m_offer = m_parsing.get();
    return true;
}

bool FileReading::ReadCalendar() {
    if (!m_hasEnded) {
        m_calendar->Take(m_parts.helper.Read());
        const std::optional<int> code = m_parts.helper.ExitCode();
        if (code) {
            m_calendar->End(*code);
            m_hasEnded = true;
        }
        return false;
    }
    if (!m_calendar->Convert()) {
        return false;
    }
    m_offer = m_calendar->TakeOffer();
    return true;
}

double FileReading::Part() const {
    if (m_lookUp) {
        return kReadPart + kConvertPart + (1 - kReadPart - kConvertPart) * m_lookUp->Part();
    }
    if (m_hasEnded) {
        return kReadPart + kConvertPart * m_calendar->Part();
    }
    const double read = m_calendar && m_size > 0
                            ? static_cast<double>(m_calendar->Position()) / static_cast<double>(m_size)
                            : 0;
    return kReadPart * std::min(1.0, read);
}

}  // namespace tickwell::exchange
