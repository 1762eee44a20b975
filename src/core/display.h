// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringView>
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "core/display_function.h"
#include "core/text_line.h"

namespace tickwell {

/// How a display takes part in the roll.
struct RollTraits {
    QStringView caption;            ///< of its check box in the settings
    bool isSkippedOnMains = false;  ///< the roll passes over it while the machine runs on mains
};

/// What the menu, the roll and the settings know of a display. All texts are literals.
struct DisplayTraits {
    qint32 number = 0;              ///< as the settings store it; no two displays have the same
    QStringView menuItem;           ///< object name of its menu item
    QStringView caption;            ///< of its menu item
    QStringView title = {};         ///< upper line; empty if the display writes that line itself
    bool hasOperationItem = false;  ///< Menu0, which opens its window, stays enabled
    bool turnsWithSeconds = false;  ///< its line changes about once a second
    std::optional<RollTraits> roll = std::nullopt;  ///< none: the roll never shows it
};

/// One of the things that the main window can show on its two lines. It owns its timers, which run only while
/// it is shown unless it says otherwise.
class Display {
public:
    virtual ~Display() = default;

    virtual const DisplayTraits& Traits() const = 0;

    /// It was chosen: writes its first texts, which come in with a wipe, and starts its timers. Throws
    /// RunTimeError; its timers are then stopped.
    virtual void Show() = 0;

    /// A display is about to be chosen, perhaps this one again: stops its timers. Called whether it is shown
    /// or not.
    virtual void Hide() = 0;

    /// The lines have become visible: brings them up to date if this display is shown.
    virtual void Tick() = 0;

    /// Milliseconds until its lines show something new; may be longer while they are not visible.
    virtual qint64 UntilDue(bool isSeen) const = 0;

    /// The time jumped, or another part of the program wrote to the lines: something may be due sooner than
    /// UntilDue said.
    virtual void Wake() {}

    /// A screen reader asks for the text: updates a running reading between two ticks. Never throws.
    virtual void BringUp() {}

    /// The settings, or what falls on today, have changed: they are looked up again at the next tick.
    virtual void Refresh() {}

    /// Opens the window that controls it; does nothing if it has none. Throws RunTimeError.
    virtual void OpenWindow() {}

    /// The program ends: closes its windows.
    virtual void CloseWindows() {}
};

using Displays = std::vector<std::unique_ptr<Display>>;

/// The main window as its displays see it; outlives them.
struct DisplayView {
    TextLines lines;
    DisplayFunctions& functions;
    std::function<bool()> isSeen = [] { return true; };
    /// ms after a change until the lines can show another one
    std::function<qint64()> untilFrame = [] { return 1; };
    /// A window of a display wrote to the lines while another display is shown, whose timer may sleep.
    std::function<void()> linesWritten = [] {};
};

/// The display of this number, owned by `displays`; null if the number names none.
inline Display* FindDisplay(const Displays& displays, qint32 number) {
    const auto found = std::find_if(displays.begin(), displays.end(), [number](const auto& display) {
        return display->Traits().number == number;
    });
    return found == displays.end() ? nullptr : found->get();
}

/// The displays that take part in the roll, in its order.
inline QList<const DisplayTraits*> DisplaysInRoll(const Displays& displays) {
    QList<const DisplayTraits*> inRoll;
    for (const auto& display : displays) {
        if (display->Traits().roll) {
            inRoll.append(&display->Traits());
        }
    }
    return inRoll;
}

}  // namespace tickwell
