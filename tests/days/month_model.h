// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <array>
#include <set>
#include <tuple>

namespace tickwell::days {

/// A date as three numbers. The model has its own calendar arithmetic, so that it cannot share a bug with
/// QDate.
struct ModelDate {
    int year = 0;
    int month = 0;
    int day = 0;

    bool operator==(const ModelDate&) const = default;
    bool operator<(const ModelDate& other) const {
        return std::tie(year, month, day) < std::tie(other.year, other.month, other.day);
    }
};

int DaysInMonth(int year, int month);

/// 0 (Sunday) to 6 (Saturday).
int WeekdayOf(const ModelDate& date);

struct ModelHoliday {
    QString name;
    int month = 0;
    int day = 0;
};

/// The stored data: national holidays in the order of insertion, and the dates that the user marked.
struct ModelTables {
    QList<ModelHoliday> holidays;
    std::multiset<ModelDate> red;    // Holiday
    std::multiset<ModelDate> blue;   // Halfday
    std::multiset<ModelDate> black;  // Usuallyday
};

struct ModelCell {
    QString caption;
    int color = 0;
    QString tip;
    bool isVisible = false;
    bool isPressed = false;
};

/// The expected six rows of days after a month was built, cell 7 first.
using ModelCells = std::array<ModelCell, 42>;

QString ModelHeading(int year, int month);

/// The expected cells of a month, none of them pressed.
ModelCells ModelMonth(const ModelTables& tables, int year, int month);

/// Replaces the month's marks by those of the cells at which its days are shown.
void StoreMonth(ModelTables& tables, const ModelCells& cells, int year, int month);

/// Deletes all marks between the two dates, both included.
void EraseMarks(ModelTables& tables, const ModelDate& first, const ModelDate& last);

}  // namespace tickwell::days
