// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

namespace tickwell {

/// "2026年5月6日", for messages.
inline QString YearMonthDay(QDate date) {
    return QString::number(date.year()) + u"年" + QString::number(date.month()) + u"月" +
           QString::number(date.day()) + u"日";
}

}  // namespace tickwell
