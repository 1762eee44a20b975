// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_history.h"

namespace tickwell::help {

void HelpHistory::Jump(int from, int to) {
    if (from == to) {
        return;
    }
    m_back.append(from);
    m_forward.clear();
}

int HelpHistory::Step(QList<int>& there, QList<int>& behind, int from) {
    if (there.isEmpty()) {
        return from;
    }
    behind.append(from);
    return there.takeLast();
}

}  // namespace tickwell::help
