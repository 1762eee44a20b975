// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_look.h"

#include "cd_helper/protocol.h"

namespace tickwell::platform {

namespace {

constexpr int kLongestLook = 30'000;     // ms
constexpr qsizetype kMostAnswer = 8192;  // bytes; 99 tracks take 1400

}  // namespace

void CdLook::Start(const QString& source) {
    if (m_isUnderWay) {
        return;
    }
    m_isUnderWay = true;
    m_answer.clear();
    m_passed = 0;
    m_hasSource = !source.isEmpty();
    m_isStarted = m_hasSource && m_child.Start(m_helper, {QLatin1String(cd_helper::kLookWord), source});
}

std::optional<CdSeen> CdLook::Tick(int milliseconds) {
    if (!m_isUnderWay) {
        return std::nullopt;
    }
    if (!m_isStarted) {
        return End(m_hasSource ? media::CdStatus::Failed : media::CdStatus::NotReady);
    }
    m_passed += milliseconds;
    m_answer += m_child.Read(kMostAnswer - m_answer.size());
    if (const std::optional<int> code = m_child.ExitCode()) {
        m_isUnderWay = false;
        return code == cd_helper::kEndDone ? SeenFrom(m_answer) : CdSeen();
    }
    if (m_answer.size() >= kMostAnswer || m_passed >= kLongestLook) {
        return End(media::CdStatus::NotReady);
    }
    return std::nullopt;
}

CdSeen CdLook::End(media::CdStatus status) {
    m_isUnderWay = false;
    m_child.End();
    return {status, {}};
}

}  // namespace tickwell::platform
