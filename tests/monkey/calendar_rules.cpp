// SPDX-License-Identifier: GPL-3.0-or-later
// The calendar: which controls are enabled in each mode, and whether each day matches the day database.
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTableView>

#include "days/month_model.h"
#include "monkey/rules.h"
#include "store/day_store.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDays = 7;       // in a week
constexpr int kFirstCell = 7;  // index of the first day cell
constexpr int kCells = 49;
constexpr int kFirstYear = 1926;
constexpr int kLastYear = 2100;

/// Controls that are only enabled in normal mode.
const QStringList& OffWhileMarking() {
    static const QStringList names{u"Command1"_s,  u"Command2"_s,  u"Command3"_s,   u"Command4"_s,
                                   u"Command5"_s,  u"Command6"_s,  u"Command9"_s,   u"Command10"_s,
                                   u"Command11"_s, u"Command12"_s, u"Command7(2)"_s};
    return names;
}

int ModeOf(const QWidget& form) {
    int mode = -1;
    for (int index = 0; index < 3; ++index) {
        if (ChildOf<QRadioButton>(form, u"Option1(%1)"_s.arg(index)).isChecked()) {
            mode = mode == -1 ? index : 3;
        }
    }
    return mode;
}

std::multiset<days::ModelDate> DatesIn(const QStringList& rows) {
    std::multiset<days::ModelDate> dates;
    for (const QString& row : rows) {
        const QDate date = QDate::fromString(row, Qt::ISODate);
        dates.insert({date.year(), date.month(), date.day()});
    }
    return dates;
}

/// The stored tables, read without the program's own database code.
days::ModelTables TablesOf(const QString& path) {
    store::RawConnection database(path);
    days::ModelTables tables;
    for (const QString& row : database.Run("SELECT Month, Day, Name FROM Syukuzitu ORDER BY id")) {
        tables.holidays.append(
            {row.section(u'|', 2), row.section(u'|', 0, 0).toInt(), row.section(u'|', 1, 1).toInt()});
    }
    tables.red = DatesIn(database.Run("SELECT Date FROM Holiday"));
    tables.blue = DatesIn(database.Run("SELECT Date FROM Halfday"));
    tables.black = DatesIn(database.Run("SELECT Date FROM Usuallyday"));
    return tables;
}

/// The word in a day's accessible name for a colour other than its column's default.
QString MarkOf(const days::ModelCell& cell, int column) {
    const bool hasTip = !cell.tip.isEmpty();
    if (cell.color == 0 && (hasTip || column == 0 || column == kDays - 1)) {
        return u"平日"_s;
    }
    if (cell.color == 0xFF && column != 0) {
        return u"休日"_s;
    }
    return cell.color == 0xFF0000 && (hasTip || column != kDays - 1) ? u"半日"_s : QString();
}

QString SpokenOf(const days::ModelCell& cell, int year, int month, int column) {
    QStringList parts{u"%1年%2月%3日 %4曜日"_s.arg(QString::number(year), QString::number(month),
                                                   cell.caption, u"日月火水木金土"_s.mid(column, 1))};
    parts.append(cell.tip);
    parts.append(MarkOf(cell, column));
    parts.removeAll(QString());
    return parts.join(u'、');
}

/// Compares the day cells with the database. Not called in a marking mode, because marks are not stored yet,
/// and not in the first and the last year, where the current month can be out of range while the grid still
/// shows the previous one.
void CheckColors(const Scene& scene, const QWidget& form, int year, int month, Complaints& complaints) {
    const days::ModelCells cells = days::ModelMonth(TablesOf(scene.Of().DatabasePath()), year, month);
    for (int index = kFirstCell; index < kCells; ++index) {
        const days::ModelCell& expected = cells.at(static_cast<std::size_t>(index - kFirstCell));
        const auto& cell = ChildOf<QPushButton>(form, u"Check1(%1)"_s.arg(index));
        if (expected.isVisible) {
            const QString spoken = SpokenOf(expected, year, month, index % kDays);
            complaints.Unless(cell.accessibleName() == spoken,
                              u"a day is %1 and should be %2"_s.arg(cell.accessibleName(), spoken));
        }
    }
}

void CheckGrid(const QWidget& form, int year, int month, Complaints& complaints) {
    complaints.Unless(ChildOf<QLabel>(form, u"Label1"_s).text() == days::ModelHeading(year, month),
                      u"the calendar's heading"_s);
    const days::ModelCells cells = days::ModelMonth({}, year, month);
    for (int index = kFirstCell; index < kCells; ++index) {
        const days::ModelCell& expected = cells.at(static_cast<std::size_t>(index - kFirstCell));
        const auto& cell = ChildOf<QPushButton>(form, u"Check1(%1)"_s.arg(index));
        complaints.Unless(
            cell.isVisible() == expected.isVisible && cell.text() == expected.caption,
            u"cell %1 says %2 and should say %3"_s.arg(index).arg(cell.text(), expected.caption));
        complaints.Unless(cell.isEnabled(), u"cell %1 is off"_s.arg(index));
    }
}

void CheckPressed(const QWidget& form, int mode, Complaints& complaints) {
    int pressed = 0;
    for (int index = kFirstCell; index < kCells; ++index) {
        const auto& cell = ChildOf<QPushButton>(form, u"Check1(%1)"_s.arg(index));
        pressed += cell.isVisible() && cell.isChecked() ? 1 : 0;
    }
    complaints.Unless(mode != 0 || pressed <= 1, u"%1 days are selected"_s.arg(pressed));
}

void CheckPanel(const QWidget& form, Complaints& complaints) {
    const bool isOpen = ChildOf<QTableView>(form, u"ListView1"_s).isVisible();
    complaints.Unless(ChildOf<QPushButton>(form, u"Command6"_s).text() == (isOpen ? u"←閉" : u"開→"),
                      u"the panel's button"_s);
    if (isOpen) {
        const int rows = ChildOf<QTableView>(form, u"ListView1"_s).model()->rowCount();
        const QString count = ChildOf<QLabel>(form, u"Label3"_s).text();
        complaints.Unless(rows == 0 || count == u"ﾃﾞｰﾀ件数 %1件"_s.arg(rows),
                          u"%1 rows, and the caption says %2"_s.arg(rows).arg(count));
    }
}

}  // namespace

void CheckCalendar(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"Form5"_s);
    if (form == nullptr) {
        return;
    }
    const int mode = ModeOf(*form);
    complaints.Met(u"Form5 mode %1"_s.arg(mode));
    complaints.Unless(mode >= 0 && mode <= 2, u"the calendar has no mode, or two"_s);
    CheckEnabled(*form, OffWhileMarking(), mode == 0, complaints);
    CheckEnabled(*form, {u"Option1(0)"_s, u"Option1(1)"_s, u"Option1(2)"_s, u"Command16"_s}, true,
                 complaints);
    CheckPressed(*form, mode, complaints);
    CheckPanel(*form, complaints);
    const QString heading = ChildOf<QLabel>(*form, u"Label1"_s).text();
    if (heading.isEmpty() && scene.Now().wasOddYear) {
        return;  // the calendar was opened on a day outside of its range
    }
    static const QRegularExpression pattern(uR"(^(\d+)年（(?:昭和|平成)(?:\d+|元)年）(\d+)月$)"_s);
    const auto match = pattern.match(heading);
    const int year = match.captured(1).toInt();
    const int month = match.captured(2).toInt();
    const bool isMonth = year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12;
    complaints.Unless(isMonth, u"the calendar shows no month"_s);
    if (!isMonth) {
        return;
    }
    CheckGrid(*form, year, month, complaints);
    const bool isAtEdge = year == kFirstYear || year == kLastYear;
    if (mode == 0 && !isAtEdge && scene.IsThorough()) {
        complaints.Met(u"Form5 against the database"_s);
        CheckColors(scene, *form, year, month, complaints);
    }
}

}  // namespace tickwell
