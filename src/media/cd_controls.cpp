// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_controls.h"

#include "media/cd_state.h"

namespace tickwell::media {

namespace {

struct ButtonRow {
    qint32 state;
    CdButtons buttons;
};

// previous, rewind, play, pause, stop, forward, next
constexpr std::array kButtons{
    ButtonRow{kCdStopped, {true, false, true, false, false, false, true}},
    ButtonRow{kCdPlaying, {true, true, false, true, true, true, true}},
    ButtonRow{kCdPaused, {false, false, false, true, false, false, false}},
};

}  // namespace

const CdButtons* CdButtonsOf(qint32 state) {
    for (const ButtonRow& row : kButtons) {
        if (row.state == state) {
            return &row.buttons;
        }
    }
    return nullptr;
}

}  // namespace tickwell::media
