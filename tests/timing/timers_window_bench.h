// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QContextMenuEvent>
#include <QTest>

#include "timing/timer_desk.h"
#include "timing/timer_list_bench.h"
#include "timing/timing_bench.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

/// The desk of the list of timers, with two presets: tea, and work with a break.
struct TimersBench : TimingBench {
    KeptTimersInMemory store;
    QStringList sounds;
    bool isMenuOpen = false;
    bool isSilent = false;
    std::unique_ptr<TimerDesk> desk;

    TimersBench() {
        store.kept.presets = {{.id = 101, .plan = kTea}, {.id = 102, .plan = kWork}};
        Begin();
    }

    void Begin() {
        desk.reset();
        sounds.clear();
        desk = std::make_unique<TimerDesk>(
            TimerDeskParts{.clock = time,
                           .timers = time,
                           .handlers = handlers,
                           .help = help,
                           .store = store,
                           .countdown = tools,
                           .sounds = {.delivered = {{.name = u"標準"_s, .file = u"TKW00.wav"_s},
                                                    {.name = u"鳩"_s, .file = u"TKW01.wav"_s}},
                                      .check = [](const QString&) {},
                                      .play = [this](const QString& file) { sounds.append(file); },
                                      .stop = [this] { sounds.append(u"stop"_s); }},
                           .isSilent = [this] { return isSilent; },
                           .isStored = [this] { return !store.kept.timers.isEmpty(); },
                           .isMenuOpen = [this] { return isMenuOpen; },
                           .place = [this](QWidget& window) { Place(window); }});
    }

    TimersForm& Form() const { return The<TimersForm>(); }
    QTableWidget& Table() const { return The<TimersForm, QTableWidget>("List1"); }
    QPushButton& Button(const char* name) const { return The<TimersForm, QPushButton>(name); }
    QStringList Row(int row) const {
        QStringList texts;
        for (int column = 0; column < Table().columnCount(); ++column) {
            texts.append(Table().item(row, column)->text());
        }
        return texts;
    }
    /// Which of start, pause, reset and remove can be pressed.
    QString Enabled() const {
        QString enabled;
        for (const char* name : {"Command1", "Command2", "Command3", "Command4"}) {
            enabled += Button(name).isEnabled() ? u'1' : u'0';
        }
        return enabled;
    }
    bool IsNoticeOpen() const {
        const auto* notice = Find<TimersNotice>();
        return notice != nullptr && notice->isVisible();
    }
    QStringList Lines() const {
        QStringList lines;
        const auto& list = The<TimersNotice, QListWidget>("List1");
        for (int i = 0; i < list.count(); ++i) {
            lines.append(list.item(i)->text());
        }
        return lines;
    }
    /// As the menu key does.
    void AskForMenu(const char* button) const {
        const QPoint point = Button(button).rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, point, Button(button).mapToGlobal(point));
        QCoreApplication::sendEvent(&Button(button), &event);
    }
    void PressPreset(int index) const { Button(qPrintable(u"Preset(%1)"_s.arg(index))).click(); }
};

}  // namespace tickwell::timing
