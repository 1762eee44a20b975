// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

namespace tickwell {

/// The ids of the time zones that a user can choose, such as "Europe/London", sorted. The first call reads
/// the system's table, which takes some milliseconds.
QStringList ZoneIds();

/// The id in this list that the user has typed, ignoring case and surrounding blanks, with blanks accepted
/// for underscores; nullopt if there is none.
std::optional<QString> TypedZone(const QString& typed);

/// The name of a zone's city: "New York" for "America/New_York".
QString ZoneCity(const QString& zoneId);

/// The time at `now` in another zone, preceded by `name` or, if that is blank, by the city: "ロンドン 3:05".
/// Empty if the system does not know the zone.
QString ZoneTimeText(const QString& name, const QString& zoneId, const QDateTime& now);

}  // namespace tickwell
