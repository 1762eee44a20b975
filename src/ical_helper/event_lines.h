// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <map>

#include "core/content_lines.h"

namespace tickwell::ical_helper {

/// The lines of a VEVENT that are read, without those of the components inside it.
struct EventLines {
    int number = 0;                    ///< line of its BEGIN, counted from 1
    QByteArray text;                   ///< the component, unfolded, its lines ended by CR LF
    std::map<QByteArray, int> counts;  ///< how many lines there are by name
    QByteArrayList rules;              ///< values of its RRULEs as written
    QString name;                      ///< SUMMARY; the library would trim it
    QByteArray row;                    ///< value of kRowName
};

/// Whether a line of that name is read, of an event or of the file around it.
bool IsWantedLine(const QByteArray& name);

/// Begins an event at a line.
EventLines BegunEvent(int line);

void AddLine(EventLines& event, const ContentLine& line);

}  // namespace tickwell::ical_helper
