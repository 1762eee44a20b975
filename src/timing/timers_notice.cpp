// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timers_notice.h"

#include <utility>

#include "timing/timer_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

TimersNotice::TimersNotice(TimersNoticeParts parts, QWidget* parent)
    : ListNotice({.name = u"TimersNotice"_s,
                  .title = u"タイマー"_s,
                  .linesName = u"終わったタイマー"_s,
                  .handlers = parts.handlers,
                  .timers = parts.timers,
                  .again = [this] { m_parts.tellAgain(m_ids); },
                  .closed =
                      [this] {
                          m_ids.clear();
                          m_parts.closed();
                      }},
                 parent),
      m_parts(std::move(parts)) {}

void TimersNotice::Tell(const QList<TimerEnd>& ends) {
    for (const TimerEnd& end : ends) {
        Lines().addItem(EndedText(end.name, end.ago));
        m_ids.removeAll(end.id);
        m_ids.append(end.id);
    }
    Present();
}

}  // namespace tickwell::timing
