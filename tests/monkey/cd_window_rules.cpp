// SPDX-License-Identifier: GPL-3.0-or-later
// The CD player's window: which buttons and menus are enabled in which state.
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <algorithm>
#include <array>

#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// `buttons`: previous, rewind, play, pause, stop, forward, next.
struct StateTable {
    qint32 state;
    QStringView caption;
    std::array<bool, 7> buttons;
    bool menus;
};
constexpr std::array kStates{
    StateTable{0, u"停止", {true, false, true, false, false, false, true}, true},
    StateTable{1, u"再生", {true, true, false, true, true, true, true}, true},
    StateTable{2, u"一時停止", {false, false, false, true, false, false, false}, true},
    StateTable{99, u"再生不可", {false, false, false, false, false, false, false}, false},
};

}  // namespace

void CheckCdWindow(const Scene& scene, Complaints& complaints) {
    const media::CdPlayerState& state = scene.Now().program->Player().State();
    const auto* row = std::find_if(kStates.begin(), kStates.end(),
                                   [&](const StateTable& each) { return each.state == state.CdState; });
    complaints.Unless(row != kStates.end(), u"CD state %1"_s.arg(state.CdState));
    complaints.Unless(state.CdTrack >= 0 && state.CdTrack <= std::max(1, state.CdTrackCount),
                      u"CD track %1 of %2"_s.arg(state.CdTrack).arg(state.CdTrackCount));
    const QWidget* form = scene.Window(u"CDForm"_s);
    if (form == nullptr || row == kStates.end()) {
        return;
    }
    complaints.Met(u"CDForm %1"_s.arg(state.CdState));
    for (std::size_t index = 0; index < row->buttons.size(); ++index) {
        CheckEnabled(*form, {u"Command1(%1)"_s.arg(index)}, row->buttons.at(index), complaints);
    }
    CheckEnabled(*form, {u"cdtm"_s, u"cdtm1"_s}, row->menus, complaints);
    complaints.Unless(ChildOf<QLabel>(*form, u"Label1"_s).text() == row->caption,
                      u"the CD player's caption"_s);
    for (int index = 1; index <= 3; ++index) {
        const auto& format = ChildOf<QAction>(*form, u"cdm(%1)"_s.arg(index));
        complaints.Unless(format.isChecked() == (index == state.CdDisplayFormat + 1),
                          u"format %1 of the CD player"_s.arg(index));
    }
}

}  // namespace tickwell
