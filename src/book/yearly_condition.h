// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

namespace tickwell::book {

/// The SQL condition, to be appended to a statement, that selects the yearly anniversaries that fall on a day
/// from `first` to `last`. It tests only month, day and week. It leaves out 29 February if the range has no
/// leap day, a fifth weekday that no month of the range has, and rows that fall on no day of any year.
/// `first` is not after `last`; both are valid.
QString YearlyCondition(QDate first, QDate last);

}  // namespace tickwell::book
