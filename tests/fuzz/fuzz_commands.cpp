// SPDX-License-Identifier: GPL-3.0-or-later
// Multimedia commands, one per line; a line starting with "!" is an event of the drive or the sound output.
// Each command is answered or refused, and has the same result with other whitespace and in other letter
// case.

#include <QStringList>
#include <array>

#include "fuzz/fuzz_check.h"
#include "media/command_devices.h"
#include "media/command_error.h"
#include "platform/time/virtual_time.h"
#include "support/discs.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_sound_output.h"
#include "support/files.h"
#include "support/wave_bytes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr qsizetype kLongestReply = 512;
constexpr qsizetype kMostLines = 100;  // the fakes keep a history

/// Where the commands find their sounds.
const QuickFolder& Sounds() {
    static const QuickFolder folder;
    return folder;
}

/// Command devices on a fake drive and a fake sound output; lines of the input trigger their events.
class Bench {
public:
    Bench() {
        m_drive.PutIn(ThreeTracks());
        m_wait.meanwhile = [this] { Happen(u"!p9"); };
    }

    media::CommandResult Send(const QString& command) { return m_devices.Send(command, kLongestReply); }
    std::optional<QString> ErrorText(qint32 error) const { return m_devices.ErrorText(error); }

    /// `line`: "!", a letter for the event, and a digit if the event has a size.
    void Happen(QStringView line) {
        const int measure = line.size() > 2 ? line[2].unicode() % 16 : 0;
        switch (line.size() > 1 ? line[1].unicode() : u'\0') {
            case u'd':
                m_drive.PutIn(std::array{ThreeTracks(), OddTracks(), MixedDisc(), DataDisc()}.at(
                    static_cast<std::size_t>(measure % 4)));
                break;
            case u't':
                m_drive.TakeOut(static_cast<media::CdStatus>(measure % 5));
                break;
            case u'r':
                m_drive.FailToRead();
                break;
            case u's':
                m_drive.sounds = !m_drive.sounds;
                break;
            case u'o':
                m_sound.works = !m_sound.works;
                break;
            case u'l':
                if (!m_sound.Devices().isEmpty()) {
                    m_sound.Devices().last()->lost = true;
                }
                break;
            case u'e':
                m_drive.exists = !m_drive.exists;
                break;
            default:
                m_drive.Pass(qint64{20'000} * measure);
                m_sound.Sound(20 * measure);
                m_time.Advance(50 * measure);
        }
    }

private:
    FakeCdDrive m_drive;
    FakeSoundOutput m_sound;
    FakeEventWait m_wait;
    platform::VirtualTime m_time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    RealTimerSource m_realTime{m_time};
    media::CommandDevices m_devices{{.drive = m_drive,
                                     .playback = m_drive,
                                     .sound = m_sound,
                                     .timers = m_realTime,
                                     .wait = m_wait,
                                     .folder = ProgramFolder(Sounds().Path())}};
};

/// The command with more whitespace, and with upper and lower case swapped unless it can name a file.
QString InOtherWords(const QString& command) {
    const bool namesFiles = command.contains(u"open", Qt::CaseInsensitive);
    QString other = u"\t "_s;
    bool isQuoted = false;
    bool isWordStart = true;
    for (const QChar c : command) {
        const bool isBlank = c == u' ' || c == u'\t';
        // A quote in the middle of a word is an ordinary character.
        isQuoted = c == u'"' ? !isQuoted && isWordStart : isQuoted;
        isWordStart = !isQuoted && (isBlank || c == u'"');
        if (isBlank && !isQuoted) {
            other += u" \t";
        } else if (!namesFiles && c.unicode() < 128 && c.isLetter()) {
            other += c.isUpper() ? c.toLower() : c.toUpper();
        } else {
            other += c;
        }
    }
    return other;
}

void RequireSound(const media::CommandResult& result, const Bench& bench) {
    Require(result.reply.size() <= kLongestReply, "a reply is as long as was asked for at most");
    if (result.error != 0) {
        Require(result.reply.isEmpty(), "an error has no reply");
        Require(result.error == media::kErrorDriver || bench.ErrorText(result.error).has_value(),
                "an error has a text");
    }
}

/// The lines of the input; "WAVE" is replaced by the path of a prepared sound file.
QStringList LinesOf(const QByteArray& input) {
    static const QString wave = [] {
        QString path = Sounds().File("sound.wav");
        WriteAll(path, WaveBytes({.rate = 1000, .data = Samples16(100)}));
        WriteAll(Sounds().File("none.wav"), "RIFF");
        return path;
    }();
    return QString::fromUtf8(input).replace(u"WAVE"_s, wave).split(u'\n').mid(0, kMostLines);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bench bench;
    Bench other;
    for (const QString& line : LinesOf(InputBytes(data, size))) {
        if (line.startsWith(u'!')) {
            bench.Happen(line);
            other.Happen(line);
            continue;
        }
        const media::CommandResult result = bench.Send(line);
        RequireSound(result, bench);
        const media::CommandResult same = other.Send(InOtherWords(line));
        Require(same.error == result.error && same.reply == result.reply,
                "a command means the same in other blanks and in capitals");
    }
    return 0;
}
