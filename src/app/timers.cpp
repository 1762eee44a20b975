// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/timers.h"

#include <QApplication>
#include <QDir>
#include <utility>

#include "app/log.h"
#include "media/sound_playback.h"
#include "media/wave_file.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLongestSound = 30;  // s
constexpr QStringView kDeliveredSound = u"TKW00.wav";

void TellOfDamage(MessageBoxes& boxes, const QString& name) {
    boxes.Show(
        nullptr,
        {.icon = MessageIcon::Exclamation,
         .title = u"Tickwell"_s,
         .text = u"タイマーの記録 %1 が壊れていたので、%2 に名前を変えて、新しく作りました。\r\n"
                 "登録したタイマーとアラームは、もう一度追加してください。"_s.arg(store::kToolsFile, name)},
        [] {});
}

/// A file of the user's that has gone since it was chosen must not make a timer silent.
QString UsableSound(const QString& file) {
    if (QDir::isAbsolutePath(file)) {
        try {
            CheckTimerSound(file);
        } catch (const RunTimeError& error) {
            qCWarning(AppLog).noquote() << "a timer has its delivered sound:" << error.Detail();
            return kDeliveredSound.toString();
        }
    }
    return file.isEmpty() ? kDeliveredSound.toString() : file;
}

bool IsMenuOpen() {
    return QApplication::activePopupWidget() != nullptr;
}

}  // namespace

void CheckTimerSound(const QString& path) {
    const media::WaveFile file = media::ReadWaveFile(path);
    if (file.problem == media::WaveProblem::Missing) {
        throw FileError(u"音のファイルを読めません。"_s, path, u"ファイルがないか、開けません。"_s);
    }
    if (file.problem == media::WaveProblem::NotPlayable || path.contains(u'"')) {
        throw FileError(u"この音は鳴らせません。"_s, path,
                        u"PCM の WAVE ファイル（8か16ビット）を選んでください。"_s);
    }
    if (file.wave.Frames() > kLongestSound * file.wave.format.rate) {
        throw FileError(u"この音は長すぎます。"_s, path,
                        u"%1秒までの音を選んでください。"_s.arg(kLongestSound));
    }
}

ToolSound::ToolSound(ProgramFolder folder, media::Multimedia& media, Handlers& handlers, QString alias)
    : m_folder(std::move(folder)), m_media(media), m_handlers(handlers), m_alias(std::move(alias)) {}

timing::TimerSounds ToolSound::Functions() {
    QList<timing::TimerSound> delivered{{.name = u"タイマーの音"_s, .file = kDeliveredSound.toString()}};
    for (const QString& name : media::SoundNames()) {
        delivered.append({.name = name, .file = media::SoundFile(name).value_or(QString())});
    }
    return {.delivered = delivered,
            .check = CheckTimerSound,
            .play = [this](const QString& file) { m_handlers.Run([this, &file] { Play(file); }); },
            .stop = [this] { m_handlers.Run([this] { Stop(); }); },
            .length = [this](const QString& file) { return LengthOf(file); }};
}

void ToolSound::Play(const QString& file) {
    Stop();
    const QString path = m_folder.PathOf(UsableSound(file));
    if (m_media.MciSend(u"open \"%1\" alias %2"_s.arg(path, m_alias), true) == 0) {
        m_isSounding = true;
        m_media.MciSend(u"play "_s + m_alias, true);
    }
}

void ToolSound::Stop() {
    if (m_isSounding) {
        m_isSounding = false;
        m_media.MciSend(u"close "_s + m_alias, true);
    }
}

qint64 ToolSound::LengthOf(const QString& file) const {
    constexpr qint64 kMilliseconds = 1000;
    const media::WaveFile wave = media::ReadWaveFile(m_folder.PathOf(UsableSound(file)));
    return wave.problem == media::WaveProblem::None
               ? wave.wave.Frames() * kMilliseconds / wave.wave.format.rate
               : 0;
}

Timers::Timers(const TimersParts& parts)
    : m_parts(parts),
      m_store(parts.folder, [&boxes = parts.boxes](const QString& name) { TellOfDamage(boxes, name); }),
      m_timerSound(parts.folder, parts.media, parts.handlers, u"Timers"_s),
      m_alarmSound(parts.folder, parts.media, parts.handlers, u"Alarms"_s),
      m_desk(PartsOfTimers()),
      m_alarms(PartsOfAlarms()) {}

timing::TimerDeskParts Timers::PartsOfTimers() {
    return {.clock = m_parts.clock,
            .timers = m_parts.timers,
            .handlers = m_parts.handlers,
            .help = m_parts.windows.Help(),
            .store = m_store,
            .countdown = m_parts.countdown,
            .sounds = m_timerSound.Functions(),
            .isSilent = m_parts.isSilent,
            .isStored = [this] { return m_store.Exists(); },
            .isMenuOpen = IsMenuOpen,
            .place = [&windows = m_parts.windows](QWidget& window) { windows.Place(window); },
            .loaded = [this] { m_alarms.Load(); }};
}

timing::AlarmDeskParts Timers::PartsOfAlarms() {
    return {
        .clock = m_parts.clock,
        .timers = m_parts.timers,
        .handlers = m_parts.handlers,
        .help = m_parts.windows.Help(),
        .store = m_store,
        .sounds = m_alarmSound.Functions(),
        .local = {.offset = [](qint64 utc) { return QDateTime::fromMSecsSinceEpoch(utc).offsetFromUtc(); },
                  .isOff = m_parts.isDayOff},
        .isSilent = m_parts.isSilent,
        .isStored = [this] { return m_store.Exists(); },
        .isMenuOpen = IsMenuOpen,
        .place = [&windows = m_parts.windows](QWidget& window) { windows.Place(window); }};
}

void Timers::TimeJumped() {
    m_desk.TimeJumped();
    m_alarms.TimeJumped();
}

}  // namespace tickwell::app
