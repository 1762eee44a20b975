// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_look.h"

#include <QStringList>
#include <utility>

#include "cd_helper/protocol.h"

namespace tickwell::platform {

namespace {

constexpr int kLongestLook = 30'000;  // ms

// bytes; 99 tracks take 1400, and the longest title 2400
constexpr qsizetype kMostAnswer = 8192;
constexpr qsizetype kMostAnswerWithTitles = 262'144;

}  // namespace

void CdLook::Start(const QString& source, bool withTitles) {
    if (m_isUnderWay) {
        return;
    }
    m_isUnderWay = true;
    m_passed = 0;
    m_source = source;
    m_withTitles = withTitles;
    StartHelper();
}

void CdLook::StartHelper() {
    QStringList arguments{QLatin1String(cd_helper::kLookWord), m_source};
    if (m_withTitles) {
        arguments.append(QLatin1String(cd_helper::kTitlesWord));
    }
    m_answer.clear();
    m_isStarted = !m_source.isEmpty() && m_child.Start(m_helper, arguments);
}

std::optional<CdSeen> CdLook::Tick(int milliseconds) {
    if (!m_isUnderWay) {
        return std::nullopt;
    }
    if (!m_isStarted) {
        return End(!m_source.isEmpty() ? media::CdStatus::Failed : media::CdStatus::NotReady);
    }
    m_passed += milliseconds;
    const qsizetype most = m_withTitles ? kMostAnswerWithTitles : kMostAnswer;
    m_answer += m_child.Read(most - m_answer.size());
    if (const std::optional<int> code = m_child.ExitCode()) {
        if (code != cd_helper::kEndDone && std::exchange(m_withTitles, false)) {
            StartHelper();
            return std::nullopt;
        }
        m_isUnderWay = false;
        return code == cd_helper::kEndDone ? SeenFrom(m_answer) : CdSeen();
    }
    if (m_answer.size() >= most || m_passed >= kLongestLook) {
        return End(media::CdStatus::NotReady);
    }
    return std::nullopt;
}

CdSeen CdLook::End(media::CdStatus status) {
    m_isUnderWay = false;
    m_child.End();
    return {status, {}, {}};
}

}  // namespace tickwell::platform
