// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/multimedia.h"

#include "core/errors.h"
#include "core/integer_text.h"
#include "core/integers.h"
#include "media/log.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestReply = 512;
constexpr qsizetype kLongestErrorText = 256;
constexpr qint32 kEmptyCommand = -1;

/// The text up to its first NUL, at most `longest` characters.
QString Cut(const QString& text, qsizetype longest) {
    const qsizetype nul = text.indexOf(QChar(u'\0'));
    return text.left(nul < 0 ? longest : std::min(nul, longest));
}

}  // namespace

qint32 NumberInReply(const QString& reply) {
    try {
        return IntegerOf(reply);
    } catch (const RunTimeError& error) {
        qCDebug(MediaLog).noquote() << "a reply that is no number:" << reply << error.Detail();
        return 0;
    }
}

void Multimedia::MciOpen(const QString& device, const QString& alias, bool showError) {
    MciSend(u"open "_s + device + u" alias " + alias, showError);
}

void Multimedia::MciPlay(const QString& alias, bool wait, const QString& from, const QString& to,
                         bool showError) {
    QString command = u"play "_s + alias;
    if (!from.isEmpty()) {
        command += u" from "_s + from;
    }
    if (!to.isEmpty()) {
        command += u" to "_s + to;
    }
    if (wait) {
        command += u" wait"_s;
    }
    MciSend(command, showError);
}

void Multimedia::MciPlaySimple(const QString& alias, bool showError) {
    MciSend(u"play "_s + alias, showError);
}

void Multimedia::MciStop(const QString& alias, bool showError) {
    MciSend(u"stop "_s + alias, showError);
}

void Multimedia::MciPause(const QString& alias, bool showError) {
    MciSend(u"pause "_s + alias, showError);
}

void Multimedia::MciClose(const QString& alias, bool showError) {
    MciSend(u"close "_s + alias, showError);
}

QString Multimedia::MciTrackPosition(const QString& alias, qint32 track, bool showError) {
    const QString command = u"status "_s + alias + u" position track " + QString::number(track);
    return MciSend(command, showError) == 0 ? m_state.MciReply : QString();
}

qint32 Multimedia::MciTrackCount(const QString& alias, bool showError) {
    return MciSend(u"status "_s + alias + u" number of tracks", showError) == 0
               ? NumberInReply(m_state.MciReply)
               : 0;
}

QString Multimedia::MciLength(const QString& alias, bool showError) {
    return MciSend(u"status "_s + alias + u" length", showError) == 0 ? m_state.MciReply : u"0"_s;
}

void Multimedia::MciPlayTrack(const QString& alias, qint32 track, bool oneTrack, bool showError) {
    const QString position = MciTrackPosition(alias, track, showError);
    if (!oneTrack) {
        m_state.MciEndPosition = NumberInReply(MciLength(alias, showError));
        MciPlay(alias, false, position, {}, showError);
        return;
    }
    MciSend(u"status "_s + alias + u" length track " + QString::number(track), showError);
    m_state.MciEndPosition = CheckedAdd(NumberInReply(position), NumberInReply(m_state.MciReply));
    MciPlay(alias, false, position, QString::number(m_state.MciEndPosition), showError);
}

qint32 Multimedia::MciSend(const QString& command, bool showError) {
    return Send(command, [this, showError] {
        if (showError) {
            ShowBox();
        }
    });
}

qint32 Multimedia::MciSend(const QString& command, FailureChoice choice) {
    return Send(command, [this, &choice] {
        if (!m_isBoxOpen) {
            m_isBoxOpen = true;
            const QString below = choice.below.isEmpty() ? QString() : u"\r\n\r\n"_s + choice.below;
            m_boxes.ShowWithChoice(
                nullptr, {MessageIcon::Critical, u"マルチメディアエラー"_s, m_state.MciReply + below},
                choice.text, [this, onClosed = std::move(choice.onClosed)](bool isTicked) {
                    m_isBoxOpen = false;
                    onClosed(isTicked);
                });
        }
    });
}

qint32 Multimedia::Send(const QString& command, const std::function<void()>& showFailure) {
    if (command.isEmpty()) {
        m_state.MciReply = u"内部エラー　コマンド文字列が指定されていません"_s;
        m_state.MediaError = kEmptyCommand;
        return kEmptyCommand;
    }
    const CommandResult result = m_devices.Send(command, kLongestReply);
    m_state.MediaError = result.error;
    if (result.error == 0) {
        m_state.MciReply = Cut(result.reply, kLongestReply);
        return 0;
    }
    const auto text = m_devices.ErrorText(result.error);
    m_state.MciReply = text ? Cut(*text, kLongestErrorText) : u"意味不明なエラーが発生しました"_s;
    showFailure();
    if (m_notReady) {
        m_notReady();
    }
    return result.error;
}

/// At most one box at a time: a timer's tick may fail again and again.
void Multimedia::ShowBox() {
    if (m_isBoxOpen) {
        return;
    }
    m_isBoxOpen = true;
    m_boxes.Show(nullptr, {MessageIcon::Critical, u"マルチメディアエラー"_s, m_state.MciReply},
                 [this] { m_isBoxOpen = false; });
}

}  // namespace tickwell::media
