// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_notice.h"

#include <algorithm>
#include <utility>

#include "controls/access_keys.h"
#include "timing/alarm_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

AlarmNotice::AlarmNotice(AlarmNoticeParts parts, QWidget* parent)
    : ListNotice({.name = u"AlarmNotice"_s,
                  .title = u"アラーム"_s,
                  .linesName = u"アラーム"_s,
                  .handlers = parts.handlers,
                  .timers = parts.timers,
                  .again = [this] { SnoozeAll(); },
                  .closed =
                      [this] {
                          m_told.clear();
                          m_parts.closed();
                      }},
                 parent),
      m_parts(std::move(parts)) {}

void AlarmNotice::Add(const AlarmLine& line) {
    const auto found = std::find_if(m_told.begin(), m_told.end(),
                                    [&line](const AlarmLine& other) { return other.id == line.id; });
    if (found != m_told.end()) {
        delete Lines().takeItem(static_cast<int>(found - m_told.begin()));
        m_told.erase(found);
    }
    Lines().addItem(line.text);
    m_told.push_back(line);
}

void AlarmNotice::ShowSnooze() {
    QList<int> minutes;
    for (const AlarmLine& line : m_told) {
        if (line.snoozeMinutes > 0) {
            minutes.append(line.snoozeMinutes);
        }
    }
    Again().setVisible(!minutes.isEmpty());
    if (!minutes.isEmpty()) {
        controls::SetCaption(Again(), SnoozeText(minutes));
    }
}

void AlarmNotice::Tell(const QList<AlarmLine>& lines) {
    for (const AlarmLine& line : lines) {
        Add(line);
    }
    ShowSnooze();
    Present();
}

void AlarmNotice::SnoozeAll() {
    QList<qint64> ids;
    for (const AlarmLine& line : m_told) {
        if (line.snoozeMinutes > 0) {
            ids.append(line.id);
        }
    }
    m_parts.snooze(ids);
}

}  // namespace tickwell::timing
