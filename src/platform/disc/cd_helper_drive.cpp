// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_helper_drive.h"

#include "platform/disc/cd_source.h"

namespace tickwell::platform {

namespace {

constexpr int kTick = 50;  // ms

}  // namespace

CdHelperDrive::CdHelperDrive(RealTimerSource& timers, media::SoundOutput& output, const QString& helper,
                             QString source, std::function<bool()> wantsTitles)
    : m_source(std::move(source)),
      m_wantsTitles(std::move(wantsTitles)),
      m_look(m_reaper, helper),
      m_stream(output, m_reaper, helper),
      m_timer(timers.Create(kTick, [this] { Tick(); })) {}

bool CdHelperDrive::Exists() const {
    return !CdSource(m_source).isEmpty();
}

media::CdPicture CdHelperDrive::Picture() const {
    media::CdPicture picture;
    picture.status = m_seen.status;
    picture.number = m_number;
    picture.contents = m_seen.contents;
    picture.titles = m_seen.titles;
    picture.mode = m_stream.Mode();
    picture.position = m_stream.Position();
    picture.readError = m_readError;
    return picture;
}

void CdHelperDrive::Look() {
    m_look.Start(CdSource(m_source), m_wantsTitles());
    m_timer->Start();
}

bool CdHelperDrive::Play(qint64 fromFrame, qint32 toSector) {
    m_readError = false;
    m_timer->Start();
    return m_stream.Play(Place(), fromFrame, toSector);
}

bool CdHelperDrive::GoOn(qint32 toSector) {
    m_timer->Start();
    return m_stream.GoOn(Place(), toSector);
}

void CdHelperDrive::Stop() {
    m_readError = false;
    m_stream.Stop();
    m_timer->Start();
}

CdPlace CdHelperDrive::Place() const {
    return {CdSource(m_source), m_seen.contents};
}

void CdHelperDrive::Tick() {
    m_reaper.Reap();
    TakeTrouble(m_stream.Tick(kTick));
    if (const std::optional<CdSeen> seen = m_look.Tick(kTick)) {
        Take(*seen);
    }
    if (m_stream.IsIdle() && !m_look.IsUnderWay() && m_reaper.IsIdle()) {
        m_timer->Stop();
    }
}

void CdHelperDrive::TakeTrouble(CdStream::Trouble trouble) {
    if (trouble == CdStream::Trouble::None) {
        return;
    }
    m_readError = true;
    if (trouble == CdStream::Trouble::HelperDied) {
        m_distrusted = m_seen.contents;
    }
    if (trouble != CdStream::Trouble::OutputGone) {
        Take({});
    }
}

void CdHelperDrive::Take(const CdSeen& seen) {
    const bool isDistrusted = seen.status == media::CdStatus::Ready && m_distrusted == seen.contents;
    const CdSeen taken = isDistrusted ? CdSeen() : seen;
    if (taken.status == media::CdStatus::Ready) {
        m_distrusted.reset();
    }
    if (taken == m_seen) {
        return;
    }
    const bool isSameDisc = taken.status == m_seen.status && taken.contents == m_seen.contents;
    m_seen = taken;
    if (!isSameDisc) {  // otherwise only the titles have become known
        ++m_number;
        m_stream.Stop();
    }
    if (m_changed) {
        m_changed();
    }
}

}  // namespace tickwell::platform
