// SPDX-License-Identifier: GPL-3.0-or-later
// tickwell-cd: reads audio CDs for tickwell, in a process of its own, so that neither a stuck drive nor a
// damaged image touches the program. How it is asked and how it answers stands in protocol.h.

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>

#include "cd_helper/disc.h"
#include "cd_helper/drive.h"
#include "cd_helper/protocol.h"
#include "cd_helper/sound_writer.h"

namespace {

using namespace tickwell;

/// Whoever asked may die at any moment, and a library that aborts need not leave a core.
void BecomeHelper() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
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

int Look(const char* source) {
    if (Drive::IsNode(source)) {
        const DriveState state = Drive(source).State();
        if (state != DriveState::Disc) {
            std::puts(WordFor(state));
            return std::fflush(stdout) == 0 ? kEndDone : kEndGone;
        }
    }
    const std::optional<Disc> disc = Disc::Open(source);
    if (!disc) {
        std::puts(kNotReady);
    } else {
        std::puts(kDisc);
        for (const DiscTrack& track : disc->Contents().tracks) {
            std::printf("%s %d\n", track.isAudio ? kAudioTrack : kDataTrack, track.start);
        }
        std::printf("%s %d\n", kLeadOut, disc->Contents().end);
    }
    return std::fflush(stdout) == 0 ? kEndDone : kEndGone;
}

int Read(const char* source, std::int32_t from, std::int32_t to) {
    const auto drive = Drive::IsNode(source) ? std::make_unique<Drive>(source) : nullptr;
    if (drive && drive->State() != DriveState::Disc) {
        return kEndGone;
    }
    std::optional<Disc> disc = Disc::Open(source);
    return disc ? SoundWriter(*disc, drive.get(), STDOUT_FILENO).Write(from, to) : kEndGone;
}

}  // namespace

int main(int argc, char** argv) {
    BecomeHelper();
    if (argc == 3 && std::strcmp(argv[1], kLookWord) == 0) {
        return Look(argv[2]);
    }
    if (argc == 5 && std::strcmp(argv[1], kReadWord) == 0) {
        const auto from = SectorOf(argv[3]);
        const auto to = SectorOf(argv[4]);
        if (from && to) {
            return Read(argv[2], *from, *to);
        }
    }
    std::fputs("usage: tickwell-cd look SOURCE | tickwell-cd read SOURCE FROM TO\n", stderr);
    return kEndUsage;
}
