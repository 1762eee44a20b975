// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/zone_time.h"

#include <QTimeZone>
#include <algorithm>

namespace tickwell {

using namespace Qt::StringLiterals;

QStringList ZoneIds() {
    QStringList ids;
    for (const QByteArray& id : QTimeZone::availableTimeZoneIds()) {
        ids.append(QString::fromLatin1(id));
    }
    ids.sort();
    return ids;
}

std::optional<QString> TypedZone(const QString& typed) {
    QString wanted = typed.trimmed();
    wanted.replace(u' ', u'_');
    const QStringList ids = ZoneIds();
    const auto found = std::find_if(ids.begin(), ids.end(), [&wanted](const QString& id) {
        return id.compare(wanted, Qt::CaseInsensitive) == 0;
    });
    return found == ids.end() ? std::nullopt : std::optional(*found);
}

QString ZoneCity(const QString& zoneId) {
    return zoneId.section(u'/', -1).replace(u'_', u' ');
}

QString ZoneTimeText(const QString& name, const QString& zoneId, const QDateTime& now) {
    if (zoneId.isEmpty()) {
        return {};  // Qt would return the machine's own zone for it
    }
    const QTimeZone zone(zoneId.toLatin1());
    if (!zone.isValid()) {
        return {};
    }
    const QString place = name.trimmed().isEmpty() ? ZoneCity(zoneId) : name.trimmed();
    return place + u' ' + now.toTimeZone(zone).time().toString(u"H:mm"_s);
}

}  // namespace tickwell
