// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/holiday_list_file.h"

#include <QFile>
#include <algorithm>

#include "core/days_off.h"
#include "core/errors.h"
#include "core/regular_file.h"
#include "core/saved_file.h"
#include "days/log.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBytes = 1 << 20;
constexpr qsizetype kMostDifferences = 10;

QString ProblemText(const HolidayListProblem& problem) {
    return u"%1行目：%2"_s.arg(problem.line).arg(problem.reason);
}

QString YearsText(const HolidayList& list) {
    return u"%1年～%2年（%3日）"_s.arg(list.FirstYear()).arg(list.LastYear()).arg(list.days.size());
}

QString HolidayReport(const HolidayList& list) {
    QStringList lines{YearsText(list) + u"の祝日データを読み込みました。"};
    const QStringList differences = DifferencesFromLaw(list);
    if (differences.isEmpty()) {
        lines.append(u"法律に基づく計算との違いはありません。"_s);
    } else {
        lines.append(u"法律に基づく計算と%1か所違います。データの方を使います。"_s.arg(differences.size()));
        lines.append(differences.first(std::min(differences.size(), kMostDifferences)));
        if (differences.size() > kMostDifferences) {
            lines.append(u"ほか%1か所"_s.arg(differences.size() - kMostDifferences));
        }
    }
    return lines.join(u"\r\n"_s);
}

/// Reads one byte more than the size limit, so that ReadHolidayList can report the line at which a list
/// exceeds it.
FileContents ReadListFile(const QString& path) {
    return ReadRegularFile(path, kMostBytes + 1);
}

}  // namespace

const HolidayList* HolidayListFile::List() const {
    const Kept& kept = Read();
    return kept.list ? &*kept.list : nullptr;
}

const HolidayListFile::Kept& HolidayListFile::Read() const {
    if (m_kept) {
        return *m_kept;
    }
    m_kept.emplace();
    const FileContents file = ReadListFile(Path());
    if (file.problem == FileProblem::Absent) {
        return *m_kept;
    }
    if (file.problem != FileProblem::None) {
        m_kept->problem = file.reason;
    } else {
        auto result = ReadHolidayList(file.bytes);
        if (const auto* problem = std::get_if<HolidayListProblem>(&result)) {
            m_kept->problem = u"%1行目"_s.arg(problem->line);
            qCWarning(DaysLog).noquote() << Path() << "is ignored:" << ProblemText(*problem);
        } else {
            m_kept->list = std::get<HolidayList>(std::move(result));
        }
    }
    return *m_kept;
}

QString HolidayListFile::StatusText() const {
    const Kept& kept = Read();
    const QString label = u"内閣府の祝日データ："_s;
    if (!kept.problem.isEmpty()) {
        return label + u"読み込めません（" + kept.problem + u"）";
    }
    return label + (kept.list ? YearsText(*kept.list) : u"なし"_s);
}

QString HolidayListFile::Replace(const QString& path) {
    const FileContents file = ReadListFile(path);
    if (file.problem != FileProblem::None) {
        throw FileError(u"祝日データを読み込めません。"_s, path, file.reason);
    }
    auto result = ReadHolidayList(file.bytes);
    if (const auto* problem = std::get_if<HolidayListProblem>(&result)) {
        throw FileError(u"祝日データを読み込めません。"_s, path, ProblemText(*problem));
    }
    if (const QString reason = SaveFile(Path(), file.bytes); !reason.isEmpty()) {
        throw FileError(u"祝日データを保存できません。"_s, Path(), reason);
    }
    m_kept = Kept{.list = std::get<HolidayList>(std::move(result)), .problem = {}};
    return HolidayReport(*m_kept->list);
}

bool HolidayListFile::IsKept() const {
    return EntryExists(Path());
}

void HolidayListFile::Remove() {
    QFile file(Path());
    if (!file.remove() && EntryExists(Path())) {
        throw FileError(u"祝日データを取り除けません。"_s, Path(), file.errorString());
    }
    m_kept.emplace();
}

}  // namespace tickwell::days
