// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/told_notices.h"

#include <QStringList>

namespace tickwell::days {

ToldNotices::ToldNotices(QStringView text) {
    for (const QStringView entry : text.split(u',', Qt::SkipEmptyParts)) {
        const qsizetype slash = entry.indexOf(u'/');
        if (slash < 0) {
            continue;
        }
        bool isNumber = false;
        const int ahead = entry.mid(slash + 1).trimmed().toInt(&isNumber);
        const QDate day = QDate::fromString(entry.left(slash).trimmed().toString(), Qt::ISODate);
        if (isNumber && ahead >= 0 && day.isValid()) {
            Add({day, ahead});
        }
    }
}

QString ToldNotices::Text() const {
    QStringList entries;
    for (const DayNotice& notice : m_told) {
        entries.append(notice.day.toString(Qt::ISODate) + u'/' + QString::number(notice.ahead));
    }
    return entries.join(u',');
}

void ToldNotices::Add(const DayNotice& notice) {
    m_told.removeAll(notice);
    m_told.append(notice);
    if (m_told.size() > kMost) {
        m_told.removeFirst();
    }
}

}  // namespace tickwell::days
