// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/windows.h"

#include <QEvent>
#include <QMenu>
#include <utility>

#include "app/window_placing.h"
#include "controls/access_keys.h"
#include "controls/bring_forward.h"
#include "controls/help_key.h"
#include "exchange/exchange_windows.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

Windows::Windows(const WindowsParts& parts)
    : m_parts(parts),
      m_help(parts.folder.PathOf(u"Help.hlp"_s), parts.handlers, [this](QWidget& window) { Place(window); }),
      m_dayFiles({.dayDatabase = parts.dayDatabase,
                  .folder = parts.folder,
                  .boxes = parts.boxes,
                  .handlers = parts.handlers}),
      m_backups({.folder = parts.folder,
                 .jobs = m_dayFiles,
                 .boxes = parts.boxes,
                 .handlers = parts.handlers,
                 .clock = parts.clock,
                 .owner = [this] { return m_settings.data(); },
                 .isMarking = [this] { return m_calendar != nullptr && m_calendar->IsMarking(); },
                 .daysReplaced = [this] { DaysReplaced(); },
                 .saveSettings = [this] { m_mainWindow->SaveAll(); },
                 .closeTools = parts.closeTools,
                 .openTools = parts.openTools}) {}

Windows::~Windows() {
    if (m_calendar != nullptr) {
        m_calendar->KeepMarks();
    }
    delete m_calendar;
    delete m_about;
    delete m_settings;
    delete m_cdPlayer;
}

shell::OtherWindows Windows::Openers() {
    shell::OtherWindows openers;
    openers.calendar = [this] { OpenCalendar(); };
    openers.settings = [this] { Open(m_settings, [this] { return MakeSettings(); }); };
    openers.help = [this] { m_help.ShowTopic(kHelpContents); };
    openers.windowHelp = [this] { m_help.ShowTopic(kHelpMainWindow); };
    openers.about = [this] {
        Open(m_about, [this] {
            return std::make_unique<frmAbout>(AboutBoxParts{.timers = m_parts.timers,
                                                            .handlers = m_parts.handlers,
                                                            .boxes = m_parts.boxes,
                                                            .help = m_help,
                                                            .programs = m_parts.programs,
                                                            .folder = m_parts.folder});
        });
    };
    return openers;
}

void Windows::OpenCalendar() {
    Open(m_calendar, [this] {
        auto calendar =
            std::make_unique<days::Form5>(days::CalendarWindowParts{.dayDatabase = m_parts.dayDatabase,
                                                                    .holidays = m_parts.holidays,
                                                                    .further = m_parts.further,
                                                                    .list = m_dayList,
                                                                    .clock = m_parts.clock,
                                                                    .boxes = m_parts.boxes,
                                                                    .handlers = m_parts.handlers,
                                                                    .help = m_help,
                                                                    .book = Book(),
                                                                    .timers = m_parts.timers},
                                          nullptr);
        calendar->Form_Load();
        return calendar;
    });
}

void Windows::OpenCalendarOn(QDate day) {
    OpenCalendar();
    m_calendar->GoTo(day);
}

void Windows::OpenCdPlayer() {
    Open(m_cdPlayer, [this] {
        auto player = std::make_unique<media::CDForm>(m_parts.cdPlayer, m_parts.handlers, nullptr);
        controls::OpenHelpByKey(*player, m_parts.handlers, m_help, kHelpCdPlayer);
        return player;
    });
}

/// Opens a window, or brings it to the front if it is already open.
template <typename Window, typename Make>
void Windows::Open(QPointer<Window>& window, Make make) {
    if (window == nullptr || window->isHidden()) {
        delete window;
        window = make().release();  // deletes itself when it is closed
        window->setAttribute(Qt::WA_DeleteOnClose);
        Place(*window);
    }
    controls::BringForward(*window);
}

days::BookWindows Windows::Book() {
    const book::AnniversaryBook book({.dayDatabase = m_parts.dayDatabase,
                                      .further = m_parts.further,
                                      .list = m_dayList,
                                      .changes = *m_mainWindow,
                                      .clock = m_parts.clock,
                                      .boxes = m_parts.boxes,
                                      .handlers = m_parts.handlers,
                                      .help = m_help,
                                      .timers = m_parts.timers});
    return {[book](QDate date, QWidget* calendar, days::BookWindows::Closed closed) {
                book.OpenEditor(date, calendar, std::move(closed));
            },
            [book](QWidget* calendar, days::BookWindows::Closed closed) {
                book.OpenDeletion(calendar, std::move(closed));
            },
            [book](QWidget* calendar) { book.OpenSearch(calendar); }};
}

std::unique_ptr<settings_ui::Form2> Windows::MakeSettings() {
    settings_ui::SettingsOperations operations;
    operations.apply = [this, before = m_parts.further]() mutable {
        m_parts.applied();
        m_mainWindow->ApplySettings();
        const FurtherSettings last = std::exchange(before, m_parts.further);
        if (last != m_parts.further) {
            RefreshCalendar();
        }
        if (last.corrections.savesImmediately || m_parts.further.corrections.savesImmediately) {
            m_mainWindow->SaveAll();
        }
    };
    operations.refresh = [this](bool flag) {
        if (flag) {
            m_mainWindow->RaiseRefresh();
        }
    };
    operations.listen = m_parts.listen;
    operations.compact = [this](std::function<void()> done) {
        m_dayFiles.Compact(m_settings, std::move(done));
    };
    operations.holidayList = HolidayList();
    operations.exchange = Exchange();
    operations.backups = m_backups.Operations();
    operations.sync = m_parts.sync;
    operations.isComposited = m_parts.isComposited;
    operations.hasTray = m_parts.hasTray;
    operations.lookForNotices = [&notices = m_parts.notices](std::function<void(bool isThere)> onAnswer) {
        notices.Look(std::move(onAnswer));
    };
    operations.holdKeepTop = [this](bool held) { m_mainWindow->HoldKeepTop(held); };
    return std::make_unique<settings_ui::Form2>(
        settings_ui::SettingsParts{.displays = m_mainWindow->AllDisplays(),
                                   .settings = m_parts.settings,
                                   .further = m_parts.further,
                                   .clock = m_parts.clock,
                                   .timers = m_parts.timers,
                                   .handlers = m_parts.handlers,
                                   .boxes = m_parts.boxes,
                                   .help = m_settingsHelp,
                                   .autostart = m_parts.autostart,
                                   .operations = operations});
}

settings_ui::HolidayListOperations Windows::HolidayList() {
    days::HolidayListFile& list = m_parts.holidays.List();
    const auto changed = [this] {
        if (m_parts.further.calendar.holidaysByLaw) {
            m_mainWindow->RaiseRefresh();
            RefreshCalendar();
        }
    };
    return {.status = [&list] { return list.StatusText(); },
            .isKept = [&list] { return list.IsKept(); },
            .replace =
                [&list, changed](const QString& path) {
                    QString report = list.Replace(path);
                    changed();
                    return report;
                },
            .remove =
                [&list, changed] {
                    list.Remove();
                    changed();
                }};
}

settings_ui::ExchangeOperations Windows::Exchange() {
    const exchange::ExchangeWindows windows({.dayDatabase = m_parts.dayDatabase,
                                             .holidays = m_parts.holidays,
                                             .further = m_parts.further,
                                             .changes = *m_mainWindow,
                                             .helper = m_parts.calendarHelper,
                                             .clock = m_parts.clock,
                                             .boxes = m_parts.boxes,
                                             .handlers = m_parts.handlers,
                                             .help = m_settingsHelp,
                                             .timers = m_parts.timers,
                                             .imported = [this] { RefreshCalendar(); }});
    return {.read = [windows](QWidget* owner) { windows.OpenImport(owner); },
            .write = [windows](QWidget* owner) { windows.OpenExport(owner); }};
}

/// The calendar could be opened while the database was being replaced, and days be marked in it.
void Windows::DaysReplaced() {
    m_mainWindow->RaiseRefresh();
    if (m_calendar != nullptr && m_parts.dayDatabase.TryOpen()) {
        m_calendar->DaysReplaced();
    }
}

/// If the calendar is open, shows its month again with the current settings, unless the database is being
/// compacted.
void Windows::RefreshCalendar() {
    if (m_calendar != nullptr && m_parts.dayDatabase.TryOpen()) {
        m_calendar->Refresh();
    }
}

void Windows::DaysChanged() {
    m_mainWindow->RaiseRefresh();
    RefreshCalendar();
}

void Windows::SetMainWindow(shell::Form1& mainWindow) {
    m_mainWindow = &mainWindow;
    mainWindow.installEventFilter(&m_hideWatch);
    for (QMenu* menu : mainWindow.findChildren<QMenu*>()) {
        menu->installEventFilter(&m_hideWatch);
    }
}

void Windows::Place(QWidget& window) {
    window.installEventFilter(&m_hideWatch);
    controls::ShowAccessKeys(window, m_parts.further.keyboard.showsAccessKeys);
    // A compositor chooses the position by itself, so the window may well be put where the main one is.
    const bool always = m_parts.further.face.toolsStayOnTop || m_parts.isPlacedByCompositor;
    PlaceNear(window, *m_mainWindow, always ? OnTop::Always : OnTop::IfNeeded);
    LetThroughModal(window);
}

bool HideWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        m_hidden();
    }
    return QObject::eventFilter(watched, event);
}

void UnblockedHelp::ShowTopic(int topic) {
    m_desk.ShowTopic(topic);
    LetThroughModal(*m_desk.Window());
}

}  // namespace tickwell::app
