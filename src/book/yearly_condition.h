// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

namespace tickwell::book {

/// The condition on month, day and week, for the end of a statement, of the anniversaries of every year that
/// fall on a day from `first` to `last`, in whatever year. It selects neither 29 February if no leap day is
/// among these days, nor a fifth weekday that none of these months has, nor what falls in no year. `first` is
/// not after `last`; both are valid.
QString YearlyCondition(QDate first, QDate last);

}  // namespace tickwell::book
