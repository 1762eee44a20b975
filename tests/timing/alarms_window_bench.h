// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRadioButton>
#include <QSet>

#include "timing/alarm_desk.h"
#include "timing/kept_alarms.h"
#include "timing/timing_bench.h"

namespace tickwell::timing {

inline constexpr qint64 kMinute = 60'000;  ///< ms
inline constexpr qint64 kHour = 60 * kMinute;

/// The alarms with their windows. It is Sunday, 15 November 1998, 21:05:07.
struct AlarmWindowBench : TimingBench {
    KeptAlarmsInMemory store;
    QStringList sounds;
    QSet<QDate> off;
    bool isMenuOpen = false;
    bool isQuiet = false;
    std::unique_ptr<AlarmDesk> desk;

    AlarmWindowBench() { Begin(); }

    void Begin() {
        desk.reset();
        desk = std::make_unique<AlarmDesk>(AlarmDeskParts{
            .clock = time,
            .timers = time,
            .handlers = handlers,
            .help = help,
            .store = store,
            .sounds = {.delivered = {{.name = QStringLiteral("標準"), .file = QStringLiteral("TKW00.wav")},
                                     {.name = QStringLiteral("鳩"), .file = QStringLiteral("TKW01.wav")}},
                       .check = [](const QString&) {},
                       .play = [this](const QString& file) { sounds.append(file); },
                       .stop = [this] { sounds.append(QStringLiteral("stop")); },
                       .length = [](const QString&) { return qint64{30'000}; }},
            .local = {.offset =
                          [](qint64 utc) { return QDateTime::fromMSecsSinceEpoch(utc).offsetFromUtc(); },
                      .isOff = [this](QDate day) { return off.contains(day); }},
            .isSilent = [this] { return isQuiet; },
            .isStored = [this] { return !store.kept.isEmpty(); },
            .isMenuOpen = [this] { return isMenuOpen; },
            .place = [this](QWidget& window) { Place(window); }});
        desk->Load();
    }

    AlarmsForm& Form() const { return The<AlarmsForm>(); }
    QTableWidget& Table() const { return The<AlarmsForm, QTableWidget>("List1"); }
    QPushButton& Button(const char* name) const { return The<AlarmsForm, QPushButton>(name); }
    QCheckBox& Box(const char* name) const { return The<AlarmsForm, QCheckBox>(name); }
    QSpinBox& Number(const char* name) const { return The<AlarmsForm, QSpinBox>(name); }
    void SetNumber(const char* name, int value) const { Number(name).setValue(value); }
    void SetTime(int hour, int minute) const {
        SetNumber("UpDown1", hour);
        SetNumber("UpDown2", minute);
    }
    void SetName(const QString& name) const { The<AlarmsForm, QLineEdit>("Text1").setText(name); }
    void ChooseDays(int days) const {
        The<AlarmsForm, QRadioButton>(qPrintable(QStringLiteral("Option1(%1)").arg(days))).click();
    }
    /// Adds one with the window.
    void AddAlarm(const QString& name, int hour, int minute) {
        desk->Show();
        SetName(name);
        SetTime(hour, minute);
        Press<AlarmsForm>("Command1");
    }
    QStringList Row(int row) const {
        QStringList texts;
        for (int column = 0; column < Table().columnCount(); ++column) {
            texts.append(Table().item(row, column)->text());
        }
        return texts;
    }
    bool IsNoticeOpen() const {
        const auto* notice = Find<AlarmNotice>();
        return notice != nullptr && notice->isVisible();
    }
    QStringList Lines() const {
        QStringList lines;
        const auto& list = The<AlarmNotice, QListWidget>("List1");
        for (int i = 0; i < list.count(); ++i) {
            lines.append(list.item(i)->text());
        }
        return lines;
    }
};

}  // namespace tickwell::timing
