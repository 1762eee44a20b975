// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/computer_name.h"

#include <QSysInfo>

#include "core/one_line.h"
#include "sync/day_file.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

QString ComputerName(const QString& chosen) {
    QString name = OnOneLine(chosen).trimmed().left(kLongestComputerName);
    if (name.isEmpty()) {
        name = OnOneLine(QSysInfo::machineHostName()).trimmed().left(kLongestComputerName);
    }
    return name.isEmpty() ? u"computer"_s : name;
}

QString DayFileName(const QString& computer) {
    QString name = computer;
    for (QChar& each : name) {
        if (u"\\/:*?\"<>|~"_s.contains(each) || each.isSurrogate()) {
            each = u'_';
        }
    }
    if (name.startsWith(u'.')) {  // hidden files are those of sync tools
        name.front() = u'_';
    }
    return name + kDayFileSuffix;
}

}  // namespace tickwell::sync
