// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_texts.h"

#include "core/duration_text.h"
#include "core/integers.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

QString MinSecOf(qint32 milliseconds) {
    return MinSecText(milliseconds);  // on a copy, because it changes its argument to seconds
}

}  // namespace

std::optional<qint32> AskCd(Multimedia& media, const QString& command, bool showError) {
    return media.MciSend(command, showError) == 0 ? std::optional(NumberInReply(media.State().MciReply))
                                                  : std::nullopt;
}

std::optional<QString> CdTexts::StatusText() {
    const auto track = AskCd(m_media, u"status CDP current track"_s, false);
    if (!track) {
        return std::nullopt;
    }
    m_state.CdTrack = *track;
    const auto position = AskCd(m_media, u"status CDP position"_s, false);
    const auto time = position ? StatusTime(*position) : std::nullopt;
    if (!time) {
        return std::nullopt;
    }
    const bool isOfDisc = m_state.CdDisplayFormat == kCdTimeLeftOnDisc;
    const QString number = isOfDisc ? u'-' + QString::number(m_state.CdTrackCount - m_state.CdTrack)
                                    : QString::number(m_state.CdTrack);
    const QString sign = m_state.CdDisplayFormat == kCdTimeIntoTrack ? u""_s : u"- "_s;
    return u"[ "_s + number + u" ]    " + sign + MinSecOf(*time);
}

/// The time to display for a position, in the chosen format.
std::optional<qint32> CdTexts::StatusTime(qint32 position) {
    if (m_state.CdDisplayFormat == kCdTimeLeftOnDisc) {
        const auto length = AskCd(m_media, u"status CDP length"_s, false);
        return length ? std::optional(CheckedSub(*length, position)) : std::nullopt;
    }
    if (m_state.CdDisplayFormat == kCdTimeLeftInTrack) {
        const bool isLast = m_state.CdTrack >= m_state.CdTrackCount;
        const auto end = isLast ? std::optional(m_state.CdLength) : StartOf(m_state.CdTrack + 1);
        return end ? std::optional(CheckedSub(*end, position)) : std::nullopt;
    }
    const auto start = StartOf(m_state.CdTrack);
    return start ? std::optional(CheckedSub(position, *start)) : std::nullopt;
}

std::optional<QString> CdTexts::SelectionText() {
    if (m_state.CdTrack == 0) {
        const auto length = ReadLength();
        return length ? std::optional<QString>(u"[ Total ]    "_s + MinSecOf(*length)) : std::nullopt;
    }
    const auto start = StartOf(m_state.CdTrack);
    if (!start) {
        return std::nullopt;
    }
    const auto end = m_state.CdTrack >= m_state.CdTrackCount ? ReadLength() : StartOf(m_state.CdTrack + 1);
    if (!end) {
        return std::nullopt;
    }
    return u"[ "_s + QString::number(m_state.CdTrack) + u" ]    " + MinSecOf(CheckedSub(*end, *start));
}

QString CdTexts::TrackCountText() const {
    return u"全トラック数 "_s + QString::number(m_state.CdTrackCount);
}

QString CdTexts::UpperText() const {
    const QString title = Title(m_state.CdTrack);
    return title.isEmpty() ? TrackCountText() : title;
}

std::optional<qint32> CdTexts::ReadLength() {
    const auto length = AskCd(m_media, u"status CDP length"_s, false);
    if (length) {
        m_state.CdLength = *length;
    }
    return length;
}

std::optional<qint32> CdTexts::StartOf(qint32 track) {
    return AskCd(m_media, u"status CDP position track "_s + QString::number(track), false);
}

}  // namespace tickwell::media
