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

/// What the menu, the roll and the settings know about a display. All texts are literals.
struct DisplayTraits {
    qint32 number = 0;              ///< as the settings store it; no two displays have the same
    QStringView menuItem;           ///< object name of its menu item
    QStringView caption;            ///< of its menu item
    QStringView title = {};         ///< upper line; empty if the display writes that line itself
    bool hasOperationItem = false;  ///< Menu0, which opens its window, stays enabled
    bool turnsWithSeconds = false;  ///< its line changes about once a second
    std::optional<RollTraits> roll = std::nullopt;  ///< nullopt if the roll never shows it
};

/// Something that the main window can show on its two lines. It owns its timers; they run only while it is
/// shown, unless the class documents otherwise.
class Display {
public:
    virtual ~Display() = default;

    virtual const DisplayTraits& Traits() const = 0;

    /// Called when it is chosen: shows its first texts with a wipe and starts its timers. Throws
    /// RunTimeError; its timers are then stopped.
    virtual void Show() = 0;

    /// Stops its timers. Called for every display, shown or not, before one of them is chosen, even if that
    /// is this one again.
    virtual void Hide() = 0;

    /// Called when the lines have become visible: updates them if this display is shown.
    virtual void Tick() = 0;

    /// Milliseconds until its lines show something new; may be longer while they are not visible.
    virtual qint64 UntilDue(bool isSeen) const = 0;

    /// Called after a time jump, or when another part of the program wrote to the lines: something may be due
    /// sooner than UntilDue returned.
    virtual void Wake() {}

    /// Called when a screen reader requests the text: updates a running reading between two ticks. Never
    /// throws.
    virtual void BringUp() {}

    /// Called when the settings or today's names have changed: looks them up again at the next tick.
    virtual void Refresh() {}

    /// Opens the window that controls it; does nothing if it has none. Throws RunTimeError.
    virtual void OpenWindow() {}

    /// Called at the end of the program: closes its windows.
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
    /// To be called after a display's window wrote to the lines while another display is shown: wakes the
    /// timer of the shown one.
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
