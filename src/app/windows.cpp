// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/windows.h"

#include "app/window_placing.h"

namespace tickwell {

using namespace Qt::StringLiterals;

Windows::Windows(const WindowsParts& parts)
    : m_parts(parts), m_help(u"Help.hlp"_s, parts.handlers, [this](QWidget& window) { Place(window); }) {}

Windows::~Windows() {
    delete m_calendar;
    delete m_about;
}

OtherWindows Windows::Openers() {
    OtherWindows openers;
    openers.calendar = [this] { OpenCalendar(); };
    openers.help = [this] { m_help.ShowTopic(kHelpContents); };
    openers.about = [this] {
        Open(m_about, [this] {
            return new frmAbout({m_parts.timers, m_parts.handlers, m_parts.boxes, m_help, m_parts.programs});
        });
    };
    return openers;
}

/// Opened again while it is open, a window comes forward.
template <typename Window, typename Make>
void Windows::Open(QPointer<Window>& window, Make make) {
    if (window == nullptr || window->isHidden()) {
        delete window;
        window = make();
        window->setAttribute(Qt::WA_DeleteOnClose);
        Place(*window);
    }
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

/// It begins with today each time, and not when it only comes forward.
void Windows::OpenCalendar() {
    if (m_calendar == nullptr || m_calendar->isHidden()) {
        delete m_calendar;
        m_calendar = new Form5(
            {m_parts.dayDatabase, m_dayList, m_parts.clock, m_parts.boxes, m_parts.handlers, m_help, Book()},
            nullptr);
        m_calendar->setAttribute(Qt::WA_DeleteOnClose);
        Place(*m_calendar);
    }
    m_calendar->Open();
}

BookWindows Windows::Book() {
    const AnniversaryBook book(
        {m_parts.dayDatabase, m_dayList, *m_mainWindow, m_parts.clock, m_parts.boxes, m_parts.handlers});
    return {[book](QDate date, QWidget* calendar, BookWindows::Closed closed) {
                book.OpenEditor(date, calendar, std::move(closed));
            },
            [book](QWidget* calendar, BookWindows::Closed closed) {
                book.OpenDeletion(calendar, std::move(closed));
            },
            [book](QWidget* calendar) { book.OpenSearch(calendar); }};
}

void Windows::Place(QWidget& window) {
    PlaceNear(window, *m_mainWindow);
}

}  // namespace tickwell
