// SPDX-License-Identifier: GPL-3.0-or-later
// tickwell-sound: plays one stream of sound for tickwell in a separate process, so that the memory of the
// sound library and of its drivers is freed with the last sound, and a sound server that hangs blocks only
// this process.
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "sound_helper/protocol.h"
#include "sound_helper/sound_device.h"

using namespace tickwell::sound_helper;

namespace {

constexpr unsigned kLastSeconds = 2;  // for closing the device; then the system ends this process

/// -1 unless `text` is a number in the range.
int NumberFrom(const char* text, int lowest, int highest) {
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    return end != text && *end == 0 && number >= lowest && number <= highest ? static_cast<int>(number) : -1;
}

/// The start of the queue in standard input, mapped; null if it is not a file of that kind.
SharedSound* MapQueue() {
    void* const mapped = mmap(nullptr, kSoundStart, PROT_READ | PROT_WRITE, MAP_SHARED, STDIN_FILENO, 0);
    return mapped == MAP_FAILED ? nullptr : static_cast<SharedSound*>(mapped);
}

/// On a machine without sound, the drivers would print errors to the standard error of the program.
void SilenceDrivers() {
    if (const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC); nowhere >= 0) {
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
}

/// Returns false if the other end of the pipe has been closed.
bool Tell(char word) {
    return write(STDOUT_FILENO, &word, 1) == 1;
}

void WaitForProgram() {
    pollfd pipe{STDOUT_FILENO, 0, 0};
    while (poll(&pipe, 1, -1) < 0) {
    }
}

}  // namespace

int main(int argc, char** argv) {
    const int rate = argc == 3 ? NumberFrom(argv[1], kLowestRate, kHighestRate) : -1;
    const int channels = argc == 3 ? NumberFrom(argv[2], 1, 2) : -1;
    SharedSound* const shared = rate < 0 || channels < 0 ? nullptr : MapQueue();
    if (shared == nullptr) {
        std::fputs("usage: tickwell-sound RATE CHANNELS < QUEUE\n", stderr);
        return kEndUsage;
    }
    SilenceDrivers();
    SoundDevice device(STDIN_FILENO, *shared);
    const bool isOpen = device.Open(rate, channels);
    if (!Tell(isOpen ? kOpened : kRefused) || !isOpen) {
        _exit(kEndRefused);
    }
    WaitForProgram();
    alarm(kLastSeconds);
    device.Close();
    _exit(kEndDone);  // nothing is left to clean up, and the drivers' threads may still run
}
