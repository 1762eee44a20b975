// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/timers.h"

#include <QApplication>
#include <QDir>

#include "app/log.h"
#include "media/sound_playback.h"
#include "media/wave_file.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLongestSound = 30;  // s
constexpr QStringView kDeliveredSound = u"TKW00.wav";

void TellOfDamage(MessageBoxes& boxes, const QString& name) {
    boxes.Show(nullptr,
               {.icon = MessageIcon::Exclamation,
                .title = u"Tickwell"_s,
                .text = u"タイマーの記録 %1 が壊れていたので、%2 に名前を変えて、新しく作りました。\r\n"
                        "登録したタイマーは、もう一度追加してください。"_s.arg(store::kToolsFile, name)},
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

Timers::Timers(const TimersParts& parts)
    : m_parts(parts),
      m_store(parts.folder, [&boxes = parts.boxes](const QString& name) { TellOfDamage(boxes, name); }),
      m_desk({.clock = parts.clock,
              .timers = parts.timers,
              .handlers = parts.handlers,
              .help = parts.windows.Help(),
              .store = m_store,
              .countdown = parts.countdown,
              .sounds = Sounds(),
              .isSilent = parts.isSilent,
              .isStored = [this] { return m_store.Exists(); },
              .isMenuOpen = [] { return QApplication::activePopupWidget() != nullptr; },
              .place = [&windows = parts.windows](QWidget& window) { windows.Place(window); }}) {}

timing::TimerSounds Timers::Sounds() {
    QList<timing::TimerSound> delivered{{.name = u"タイマーの音"_s, .file = kDeliveredSound.toString()}};
    for (const QString& name : media::SoundNames()) {
        delivered.append({.name = name, .file = media::SoundFile(name).value_or(QString())});
    }
    return {.delivered = delivered,
            .check = CheckTimerSound,
            .play = [this](const QString& file) { m_parts.handlers.Run([this, &file] { Play(file); }); },
            .stop = [this] { m_parts.handlers.Run([this] { Stop(); }); }};
}

void Timers::Play(const QString& file) {
    Stop();
    const QString path = m_parts.folder.PathOf(UsableSound(file));
    if (m_parts.media.MciSend(u"open \"%1\" alias Timers"_s.arg(path), true) == 0) {
        m_isSounding = true;
        m_parts.media.MciSend(u"play Timers"_s, true);
    }
}

void Timers::Stop() {
    if (m_isSounding) {
        m_isSounding = false;
        m_parts.media.MciSend(u"close Timers"_s, true);
    }
}

}  // namespace tickwell::app
