// SPDX-License-Identifier: GPL-3.0-or-later
// tickwell-cd: reads audio CDs for tickwell in a separate process, so that neither a stuck drive nor a
// damaged image affects the program. See protocol.h for its arguments and output.

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cd_helper/disc.h"
#include "cd_helper/drive.h"
#include "cd_helper/protocol.h"
#include "cd_helper/sound_writer.h"

namespace {

using namespace tickwell::cd_helper;

constexpr rlim_t kMostToOpen = 3;  // seconds of CPU time; an intact image takes milliseconds

/// Makes this process end together with its parent, and leave no core dump if libcdio aborts.
void BecomeHelper() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

/// Limits the CPU time while it exists: libcdio can loop forever on a damaged image, and the system then
/// kills this process.
class TimeLimit {
public:
    TimeLimit() {
        getrlimit(RLIMIT_CPU, &m_usual);
        const rlimit limited{kMostToOpen, m_usual.rlim_max};
        setrlimit(RLIMIT_CPU, &limited);  // fails if a stricter limit is set
    }
    ~TimeLimit() { setrlimit(RLIMIT_CPU, &m_usual); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

private:
    rlimit m_usual{};
};

std::optional<Disc> OpenInTime(const char* source) {
    const TimeLimit limit;
    return Disc::Open(source);
}

std::optional<std::int32_t> SectorOf(std::string_view text) {
    std::int32_t sector = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), sector);
    const bool isSector = error == std::errc() && end == text.data() + text.size() && sector >= 0;
    return isSector ? std::optional(sector) : std::nullopt;
}

const char* WordFor(DriveState state) {
    switch (state) {
        case DriveState::NoDisc:
            return kNoDisc;
        case DriveState::TrayOpen:
            return kTrayOpen;
        default:
            return kNotReady;
    }
}

std::string TextOf(const DiscContents& contents, char joint) {
    std::string text;
    for (const DiscTrack& track : contents.tracks) {
        text +=
            std::string(track.isAudio ? kAudioTrack : kDataTrack) + ' ' + std::to_string(track.start) + joint;
    }
    return text + kLeadOut + ' ' + std::to_string(contents.end);
}

std::string TitleLines(const Disc& disc) {
    const TimeLimit limit;
    std::string lines;
    for (const DiscTitle& title : disc.Titles()) {
        lines += '\n' + std::string(kTitle) + ' ' + std::to_string(title.track) + ' ' +
                 PercentEncoded(title.bytes);
    }
    return lines;
}

std::string SeenAt(const char* source, bool withTitles) {
    if (access(source, R_OK) != 0 && errno == EACCES) {
        return kNoRight;
    }
    const DriveState state = Drive::IsNode(source) ? Drive(source).State() : DriveState::Disc;
    if (state != DriveState::Disc) {
        return WordFor(state);
    }
    const std::optional<Disc> disc = OpenInTime(source);
    return disc ? std::string(kDisc) + '\n' + TextOf(disc->Contents(), '\n') +
                      (withTitles ? TitleLines(*disc) : std::string())
                : kNotReady;
}

int Look(const char* source, bool withTitles) {
    return std::puts(SeenAt(source, withTitles).c_str()) >= 0 && std::fflush(stdout) == 0 ? kEndDone
                                                                                          : kEndGone;
}

int Read(const char* source, std::int32_t from, std::int32_t to, const char* contents) {
    const auto drive = Drive::IsNode(source) ? std::make_unique<Drive>(source) : nullptr;
    if (drive && drive->State() != DriveState::Disc) {
        return kEndGone;
    }
    std::optional<Disc> disc = OpenInTime(source);
    if (!disc || TextOf(disc->Contents(), kLineJoint) != contents) {
        return kEndGone;
    }
    return SoundWriter(*disc, drive.get(), STDOUT_FILENO).Write(from, to);
}

}  // namespace

int main(int argc, char** argv) {
    BecomeHelper();
    const bool withTitles = argc == 4 && std::strcmp(argv[3], kTitlesWord) == 0;
    if ((argc == 3 || withTitles) && std::strcmp(argv[1], kLookWord) == 0) {
        return Look(argv[2], withTitles);
    }
    if (argc == 6 && std::strcmp(argv[1], kReadWord) == 0) {
        const auto from = SectorOf(argv[3]);
        const auto to = SectorOf(argv[4]);
        if (from && to) {
            return Read(argv[2], *from, *to, argv[5]);
        }
    }
    std::fputs("usage: tickwell-cd look SOURCE [titles] | tickwell-cd read SOURCE FROM TO CONTENTS\n",
               stderr);
    return kEndUsage;
}
