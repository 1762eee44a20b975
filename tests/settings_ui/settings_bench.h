// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QColorDialog>

#include "settings_ui/settings_window.h"
#include "shell/main_window_bench.h"
#include "support/child.h"
#include "support/fake_autostart.h"
#include "support/fake_help_viewer.h"

namespace tickwell::settings_ui {

/// The settings dialog with a real main window; records the operations it calls.
struct SettingsBench {
    shell::MainWindowBench main;
    FakeHelpViewer help;
    FakeAutostart autostart;
    QStringList asked;
    SettingsOperations operations{
        [this] {
            asked.append(QStringLiteral("apply"));
            main.form->ApplySettings();
        },
        [this](bool flag) {
            asked.append(QStringLiteral("refresh %1").arg(flag));
            main.form->RaiseRefresh();
        },
        [this](bool held) {
            asked.append(QStringLiteral("hold %1").arg(held));
            main.form->HoldKeepTop(held);
        },
        [this](const QString& sound, qint32 volume) {
            asked.append(QStringLiteral("listen %1 at %2").arg(sound).arg(volume));
        },
        [this](std::function<void()> done) {
            asked.append(QStringLiteral("compact"));
            compacted = std::move(done);
        },
        {.status = [this] { return list.isEmpty() ? QStringLiteral("none") : list; },
         .isKept = [this] { return !list.isEmpty(); },
         .replace =
             [this](const QString& path) {
                 if (path.endsWith(QStringLiteral("bad.csv"))) {
                     throw RunTimeError(QStringLiteral("refused"));
                 }
                 list = path;
                 return QStringLiteral("report");
             },
         .remove = [this] { list.clear(); }},
        [] { return true; },
        [this] { return main.tray.IsThere(); }};
    QString list;                     ///< the path of the stored list of holidays
    std::function<void()> compacted;  ///< the dialog's callback for the end of a compaction
    std::unique_ptr<Form2> form;

    /// Starts the main window, waits for its start-up delay, and opens the dialog.
    void Open() {
        if (main.form == nullptr) {
            main.Start();
            main.time.Advance(shell::kStartUp);
        }
        form = std::make_unique<Form2>(SettingsParts{.displays = main.form->AllDisplays(),
                                                     .settings = main.settings,
                                                     .further = main.further,
                                                     .clock = main.time,
                                                     .timers = main.time,
                                                     .handlers = main.handlers,
                                                     .boxes = main.boxes,
                                                     .help = help,
                                                     .autostart = autostart,
                                                     .operations = operations});
        form->show();
    }

    template <typename Control>
    Control& Child(const QString& name) const {
        return ChildOf<Control>(*form, name);
    }
    QAbstractButton& Button(const QString& name) const { return Child<QAbstractButton>(name); }
    void Click(const QString& name) const { Button(name).click(); }

    /// Index of the checked option button; -1: none, -2: more than one.
    qint32 Selected(const QString& array) const {
        qint32 selected = -1;
        for (qint32 index = 0; index < 4; ++index) {
            const auto* option =
                form->findChild<QAbstractButton*>(QStringLiteral("%1(%2)").arg(array).arg(index));
            if (option != nullptr && option->isChecked()) {
                selected = selected == -1 ? index : -2;
            }
        }
        return selected;
    }
    /// The open dialog for a line's font, and the one for a colour.
    QDialog& StylePicker() const { return Child<QDialog>(QStringLiteral("StylePicker")); }
    QColorDialog& ColourPicker() const { return ChildOf<QColorDialog>(*form); }
    lines::MovingWord& Sample(int line) const {
        return Child<lines::MovingWord>(QStringLiteral("MovingWord%1").arg(line));
    }
};

}  // namespace tickwell::settings_ui
