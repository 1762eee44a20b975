// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <algorithm>
#include <utility>

#include "media/ports/cd_drive.h"

namespace tickwell {

/// A drive whose disc the test inserts, plays and removes. It notifies only when Tell() is called.
class FakeCdDrive : public media::CdDrive, public media::CdPlayback {
public:
    QString Named() const override { return named; }
    bool Exists() const override { return exists; }
    media::CdPicture Picture() const override { return m_picture; }
    void Look() override { ++looks; }
    void WhenChanged(std::function<void()> changed) override { m_changed = std::move(changed); }

    bool Play(qint64 fromFrame, qint32 toSector) override {
        Note(QStringLiteral("play %1 %2").arg(fromFrame).arg(toSector));
        return Begin(fromFrame, toSector);
    }
    bool GoOn(qint32 toSector) override {
        Note(QStringLiteral("go on %1").arg(toSector));
        return Begin(m_picture.position, toSector);
    }
    void Pause() override {
        Note(QStringLiteral("pause"));
        if (m_picture.mode == media::CdMode::Playing || m_picture.mode == media::CdMode::Seeking) {
            m_picture.mode = media::CdMode::Paused;
        }
    }
    void Stop() override {
        Note(QStringLiteral("stop"));
        m_picture.mode = media::CdMode::Stopped;
        m_picture.position = 0;
        m_picture.readError = false;
    }

    /// Inserts a disc whose contents are known, replacing the previous one.
    void PutIn(const media::CdContents& contents) {
        Replace(media::CdStatus::Ready);
        m_picture.contents = contents;
    }
    void TakeOut(media::CdStatus status = media::CdStatus::NoDisc) { Replace(status); }
    /// Makes the titles of the disc known.
    void SetTitles(const QStringList& titles) { m_picture.titles = titles; }
    void SetMode(media::CdMode mode) { m_picture.mode = mode; }

    /// Sets the smallest position that reads as this many milliseconds from the start of sector 0.
    void SetMilliseconds(qint64 ms) { m_picture.position = (ms * 441 + 9) / 10; }

    /// Lets the disc play for this time, at most to the end of the range.
    void Pass(qint64 ms) {
        if (m_picture.mode != media::CdMode::Playing) {
            return;
        }
        m_picture.position = std::min(m_picture.position + ms * 441 / 10, m_end);
        if (m_picture.position == m_end) {
            m_picture.mode = media::CdMode::Stopped;
        }
    }
    void FailToRead() {
        m_picture.mode = media::CdMode::Stopped;
        m_picture.readError = true;
    }
    void Tell() const {
        if (m_changed) {
            m_changed();
        }
    }

    /// The commands sent to the disc since the last call.
    QStringList TakeRecord() { return std::exchange(m_record, {}); }

    QString named;
    bool exists = true;
    bool sounds = true;  ///< whether a sound output can be opened
    int looks = 0;

private:
    void Note(const QString& what) { m_record.append(what); }
    void Replace(media::CdStatus status) {
        const quint32 number = m_picture.number + 1;
        m_picture = media::CdPicture();
        m_picture.status = status;
        m_picture.number = number;
    }
    bool Begin(qint64 fromFrame, qint32 toSector) {
        if (sounds) {
            m_picture.position = fromFrame;
            m_picture.mode = media::CdMode::Playing;
            m_picture.readError = false;
            m_end = toSector * media::kFramesPerSector;
        }
        return sounds;
    }

    media::CdPicture m_picture;
    qint64 m_end = 0;  // end of the range, in frames
    std::function<void()> m_changed;
    QStringList m_record;
};

}  // namespace tickwell
