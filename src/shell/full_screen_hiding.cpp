// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/full_screen_hiding.h"

#include <utility>

namespace tickwell::shell {

FullScreenHiding::FullScreenHiding(FullScreenWatch& watch, Handlers& handlers, View view)
    : m_watch(watch), m_handlers(handlers), m_view(std::move(view)) {}

FullScreenHiding::~FullScreenHiding() {
    if (m_isOn) {
        m_watch.Listen(nullptr);
    }
}

void FullScreenHiding::Use(bool isOn) {
    if (isOn == m_isOn) {
        return;
    }
    m_isOn = isOn;
    if (isOn) {
        m_watch.Listen([this] { m_handlers.Run([this] { Look(); }); });
        return;
    }
    m_watch.Listen(nullptr);
    Look();
}

void FullScreenHiding::Look() {
    const bool isCovered = m_isOn && m_watch.IsCovered(m_view.id());
    m_isWanted = m_isWanted && isCovered;
    const bool isHidden = isCovered && !m_isWanted;
    if (isHidden != m_isHidden && !(isHidden && m_view.isInUse())) {
        m_isHidden = isHidden;
        m_view.update();
    }
}

void FullScreenHiding::Insist() {
    m_isHidden = false;
    m_isWanted = m_isOn && m_watch.IsCovered(m_view.id());
}

}  // namespace tickwell::shell
