// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_desk.h"

#include "controls/bring_forward.h"
#include "help/help_file.h"

namespace tickwell::help {

HelpDesk::HelpDesk(QString file, Handlers& handlers, Opening opening)
    : m_file(std::move(file)), m_handlers(handlers), m_opening(std::move(opening)) {}

HelpDesk::~HelpDesk() {
    delete m_window;  // before m_look, which it writes to
}

void HelpDesk::ShowTopic(int topic) {
    if (m_window != nullptr && m_window->isHidden()) {
        m_window = nullptr;  // just closed and about to be deleted
    }
    if (m_window == nullptr) {
        m_window = new HelpWindow(m_handlers, ReadHelpFile(m_file), m_look);
        m_opening(*m_window);
    }
    m_window->ShowTopic(topic);
    controls::BringForward(*m_window);
}

}  // namespace tickwell::help
