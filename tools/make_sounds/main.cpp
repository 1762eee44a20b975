// SPDX-License-Identifier: GPL-3.0-or-later
// make_sounds DIR: writes the program's six sounds into DIR, replacing existing files. The finished files are
// in data/sounds; this program is only needed after a sound was changed.

#include <cstdio>
#include <exception>
#include <string>

#include "make_sounds/sounds.h"
#include "make_sounds/wave_file.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_sounds DIR\n", stderr);
        return 1;
    }
    try {
        for (const tickwell::Sound& sound : tickwell::kSounds) {
            const std::string path = std::string(argv[1]) + "/" + std::string(sound.fileName);
            tickwell::WriteFile(path, tickwell::WaveBytes(tickwell::Finished(sound.make(), sound.peak)));
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_sounds: cannot write %s\n", error.what());
        return 1;
    }
    return 0;
}
