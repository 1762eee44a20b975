// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media_keys.h"

#include <array>
#include <utility>

#include "remote/player_properties.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr int kAtOnce = 1;
constexpr int kLookInterval = 10'000;

/// There are 44100 frames per second.
qint64 MicrosecondsOf(qint64 frames) {
    return frames * 10'000 / 441;
}

qint32 MillisecondsOf(qint64 microseconds) {
    return static_cast<qint32>(microseconds / 1000);
}

int ButtonOf(remote::PlayerKey key) {
    switch (key) {
        case remote::PlayerKey::Previous:
            return media::kCdPrevious;
        case remote::PlayerKey::Play:
            return media::kCdPlay;
        case remote::PlayerKey::Pause:
            return media::kCdPause;
        case remote::PlayerKey::Stop:
            return media::kCdStop;
        case remote::PlayerKey::Next:
            break;
    }
    return media::kCdNext;
}

remote::PlayerStatus StatusOf(qint32 state) {
    if (state == media::kCdPlaying) {
        return remote::PlayerStatus::Playing;
    }
    return state == media::kCdPaused ? remote::PlayerStatus::Paused : remote::PlayerStatus::Stopped;
}

}  // namespace

MediaKeys::MediaKeys(MediaKeysParts parts)
    : m_parts(std::move(parts)),
      m_calls(*this, m_parts.timers),
      m_update(m_parts.timers.Create(kAtOnce, [this] { Update(); })),
      m_look(m_parts.timers.Create(kLookInterval,
                                   [this] { m_parts.handlers.Run([this] { m_parts.player.Appear(); }); })) {
    m_parts.player.SetFollower(this);
}

MediaKeys::~MediaKeys() {
    m_parts.player.SetFollower(nullptr);
    if (m_isOffered) {
        m_parts.service.Withdraw();
    }
}

/// Changes made while one event is handled are announced together, afterwards.
void MediaKeys::PlayerChanged() {
    if (m_parts.further.remote.mediaKeys && !m_update->IsRunning()) {
        m_update->Start();
    }
}

void MediaKeys::PlayerJumped() {
    m_hasJumped = true;
    PlayerChanged();
}

void MediaKeys::Update() {
    m_update->Stop();
    const media::CdPlayerState& state = m_parts.player.State();
    const bool hasDisc = state.CdState != media::kCdNotReady && state.CdTrackCount > 0;
    const bool isWanted = m_parts.further.remote.mediaKeys && m_parts.player.HasAppeared() && hasDisc;
    if (isWanted != m_isOffered) {
        m_isOffered = isWanted;
        if (isWanted) {
            Offer();
        } else {
            m_parts.service.Withdraw();
        }
    } else if (m_isOffered) {
        TellNews();
    }
    m_hasJumped = false;
    KeepLooking();
}

void MediaKeys::Offer() {
    m_told = Picture();
    m_parts.service.Offer([this](const remote::PlayerCall& call) { return m_calls.Run(call); });
}

void MediaKeys::TellNews() {
    const remote::PlayerPicture now = Picture();
    const QVariantMap changed = remote::ChangedProperties(std::exchange(m_told, now), now);
    if (!changed.isEmpty()) {
        m_parts.service.TellChanged(changed);
    }
    if (m_hasJumped && now.status == remote::PlayerStatus::Playing) {
        m_parts.service.TellJump(Position());
    }
}

/// Polls for a disc while none is playing; during playback the drive itself reports a removed disc.
void MediaKeys::KeepLooking() {
    const bool isWanted = m_parts.further.remote.mediaKeys && m_parts.player.HasAppeared() && !IsPlayed();
    if (isWanted && !m_look->IsRunning()) {
        m_look->Start();
    } else if (!isWanted) {
        m_look->Stop();
    }
}

bool MediaKeys::IsPlayed() const {
    return StatusOf(m_parts.player.State().CdState) != remote::PlayerStatus::Stopped;
}

media::CdReading MediaKeys::Reading() const {
    return media::ReadingOf(m_parts.drive.Picture(), m_parts.player.State());
}

remote::PlayerPicture MediaKeys::Picture() const {
    const media::CdPicture picture = m_parts.drive.Picture();
    const media::CdReading reading = media::ReadingOf(picture, m_parts.player.State());
    const media::CdButtons& buttons = m_parts.player.Controls().buttons;
    const bool hasTrack = reading.track > 0;
    return {.status = StatusOf(m_parts.player.State().CdState),
            .disc = picture.number,
            .track = reading.track,
            .length = MicrosecondsOf(reading.length),
            .title = hasTrack ? TitleOf(reading.track) : QString(),
            .album = m_parts.player.Texts().Title(0),
            .canSkip = buttons.at(media::kCdNext),
            .canSeek = buttons.at(media::kCdForward)};
}

QString MediaKeys::TitleOf(qint32 track) const {
    const QString title = m_parts.player.Texts().Title(track);
    return title.isEmpty() ? u"トラック "_s + QString::number(track) : title;
}

qint64 MediaKeys::Position() const {
    return MicrosecondsOf(Reading().position);
}

void MediaKeys::Press(remote::PlayerKey key) {
    const int button = ButtonOf(key);
    if (m_parts.player.Controls().buttons.at(static_cast<std::size_t>(button))) {
        m_parts.handlers.Run([this, button] { m_parts.player.Command1_Click(button); });
    }
}

void MediaKeys::SeekTo(qint64 position) {
    const qint64 onDisc = MicrosecondsOf(Reading().start) + position;
    m_parts.handlers.Run([this, onDisc] { m_parts.player.GoTo(MillisecondsOf(onDisc)); });
}

void MediaKeys::ShowWindow() {
    m_parts.handlers.Run(m_parts.openWindow);
}

}  // namespace tickwell::app
