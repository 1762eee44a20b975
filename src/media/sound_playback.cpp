// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/sound_playback.h"

#include <algorithm>
#include <array>

#include "core/errors.h"
#include "core/integers.h"
#include "media/log.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kChannels = 2;
constexpr qint32 kChimeChannel = 1;
constexpr int kSessionTime = 30'000;  // ms

struct Sound {
    QStringView name;
    QStringView file;
};

constexpr std::array kSounds{
    Sound{u"鳩時計の音", u"TKW01.wav"},       Sound{u"赤ちゃん", u"TKW02.wav"},
    Sound{u"機械時計[高い音]", u"TKW03.wav"}, Sound{u"機械時計[低い音]", u"TKW04.wav"},
    Sound{u"人の掛け声", u"TKW05.wav"},
};

}  // namespace

QStringList SoundNames() {
    QStringList names;
    for (const Sound& sound : kSounds) {
        names.append(sound.name.toString());
    }
    return names;
}

std::optional<QString> SoundFile(const QString& soundName) {
    const auto* const found = std::find_if(kSounds.begin(), kSounds.end(),
                                           [&](const Sound& sound) { return sound.name == soundName; });
    return found == kSounds.end() ? std::nullopt : std::optional(found->file.toString());
}

SoundPlayback::SoundPlayback(const Parts& parts, ProgramFolder folder)
    : m_parts(parts),
      m_folder(std::move(folder)),
      m_sessionTimer(parts.timers.Create(kSessionTime, [this] { AudioStop(); })) {}

void SoundPlayback::PlayChime(const QString& soundName, qint32 count) {
    const std::optional<QString> file = SoundFile(soundName);
    if (!file) {
        return;
    }
    MakeFolderCurrent();
    AudioStart(false);
    AudioLoadWave(*file, kChimeChannel);
    AudioPlay(kChimeChannel, CheckedSub(count, 1));
    // Restarts the timer: the tick left over from the previous chime would cut this one off.
    m_sessionTimer->Stop();
    m_sessionTimer->Start();
}

void SoundPlayback::AudioStart(bool showError) {
    AudioStop();
    SoundState& sound = m_parts.sound;
    sound.MixWaves = {0};
    MakeFolderCurrent();
    sound.MixSession = m_parts.mix.WaveMixConfigureInit(kChannels);
    if (m_parts.mix.WaveMixActivate(sound.MixSession)) {
        m_parts.media.MediaError = 0;
        return;
    }
    m_parts.mix.WaveMixCloseSession(sound.MixSession);
    sound.MixSession = 0;
    m_parts.media.MediaError = 1;
    if (showError) {
        m_parts.boxes.Show(
            nullptr, {MessageIcon::Critical, u"オーディオエラー"_s, u"DLLファイルが開けません"_s}, [] {});
    }
}

void SoundPlayback::AudioLoadWave(const QString& fileName, qint32 channel) {
    SoundState& sound = m_parts.sound;
    if (sound.MixSession == 0 || channel < 0) {
        return;
    }
    sound.MixWaves.resize(std::max<qsizetype>(sound.MixWaves.size(), channel + qsizetype{1}));
    if (sound.MixWaves[channel] != 0) {
        AudioFlush(channel);
        m_parts.mix.WaveMixFreeWave(sound.MixSession, sound.MixWaves[channel]);
        sound.MixWaves[channel] = 0;
    }
    sound.MixWaves[channel] = m_parts.mix.WaveMixOpenWave(sound.MixSession, m_folder.PathOf(fileName));
    m_parts.mix.WaveMixOpenChannel(sound.MixSession, channel);
}

void SoundPlayback::AudioPlay(qint32 channel, qint32 loops) {
    const SoundState& sound = m_parts.sound;
    if (sound.MixSession == 0 || channel < 0 || channel >= sound.MixWaves.size()) {
        return;
    }
    m_parts.mix.WaveMixPlay(sound.MixSession, channel, sound.MixWaves[channel], loops);
}

void SoundPlayback::AudioFlush(qint32 channel) {
    if (m_parts.sound.MixSession != 0) {
        m_parts.mix.WaveMixFlushChannel(m_parts.sound.MixSession, channel);
    }
}

void SoundPlayback::AudioStop() {
    SoundState& sound = m_parts.sound;
    if (sound.MixSession == 0) {
        return;
    }
    for (qint32 channel = 0; channel < sound.MixWaves.size(); ++channel) {
        if (sound.MixWaves[channel] != 0) {
            AudioFlush(channel);
            m_parts.mix.WaveMixFreeWave(sound.MixSession, sound.MixWaves[channel]);
        }
    }
    m_parts.mix.WaveMixCloseSession(sound.MixSession);
    sound.MixSession = 0;
}

/// If the folder no longer exists, the sounds are not found either, and the program stays silent.
void SoundPlayback::MakeFolderCurrent() const {
    try {
        m_folder.Enter();
    } catch (const RunTimeError& error) {
        qCWarning(MediaLog).noquote() << "the folder of the sounds cannot be entered:" << error.Detail();
    }
}

}  // namespace tickwell::media
