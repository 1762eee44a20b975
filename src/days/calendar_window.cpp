// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/calendar_window.h"

#include <QKeyEvent>
#include <QScopeGuard>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "controls/access_keys.h"
#include "controls/help_key.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPause = 1;  // ms between two slices of a listing, to process events

}  // namespace

Form5::Form5(const CalendarWindowParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_calendar({.dayDatabase = parts.dayDatabase,
                  .holidays = parts.holidays,
                  .further = parts.further,
                  .list = parts.list,
                  .clock = parts.clock,
                  .boxes = parts.boxes,
                  .handlers = parts.handlers,
                  .window = this}),
      m_listing(parts.handlers.MakeTimer(parts.timers, kPause, [this] { GoOnListing(); })),
      m_daySearch(parts.handlers.MakeTimer(parts.timers, kPause, [this] { GoOnSearchingDays(); })) {
    setObjectName(u"Form5"_s);
    setWindowTitle(u"カレンダー"_s);
    LayOut();
    Connect();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpCalendar);
    m_calendar.WhenAnswered([this] { ShowAll(); });
    m_parts.list.WhenChanged([this] { ShowList(); });
}

Form5::~Form5() {
    m_parts.list.WhenChanged(nullptr);
}

/// A click is ignored while a message box of the calendar is open. The result is shown even after an error.
void Form5::Tie(QAbstractButton* button, std::function<void()> handler) {
    m_parts.handlers.Connect(button, &QAbstractButton::clicked, this, [this, handler = std::move(handler)] {
        const auto shown = qScopeGuard([this] { ShowAll(); });
        if (!m_calendar.IsWaiting()) {
            handler();
        }
    });
}

void Form5::Connect() {
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        Tie(&m_monthView->Cell(cell), [this, cell] { Check1_Click(cell); });
    }
    for (int index = 0; index < static_cast<int>(m_modeOptions.size()); ++index) {
        Tie(m_modeOptions.at(static_cast<std::size_t>(index)), [this, index] { Option1_Click(index); });
    }
}

void Form5::Form_Load() {
    m_calendar.Load();
    ShowAll();
    m_monthView->FocusDay(m_calendar.SelectedDate().day());
}

void Form5::GoTo(QDate day) {
    if (!m_calendar.CanUse(CalendarAction::Today) || m_calendar.IsWaiting()) {
        return;
    }
    m_calendar.GoTo(day);
    ShowAll();
    m_monthView->FocusDay(day.day());
}

void Form5::Refresh() {
    m_calendar.Refresh();
    ShowAll();
}

void Form5::DaysReplaced() {
    if (IsMarking()) {
        m_calendar.Load();
    } else {
        m_calendar.Refresh();
    }
    m_calendar.ListAnniversariesOfDay();
    ShowAll();
}

/// Leaving a marking mode stores its marks; clicking the button of the current mode again does not.
void Form5::Option1_Click(int index) {
    const auto mode = static_cast<CalendarMode>(index);
    if (mode != m_calendar.Mode()) {
        m_calendar.ChooseMode(mode);
    }
}

void Form5::Command9_Click() {
    const QModelIndexList selected = m_list->selectionModel()->selectedRows();
    m_parts.list.ChooseRow(selected.isEmpty() ? std::nullopt : std::optional(selected.constFirst().row()));
    OpenEditor();
}

void Form5::Command11_Click() {
    m_parts.list.ChooseNewRow();
    OpenEditor();
}

void Form5::OpenEditor() {
    m_parts.book.edit(m_calendar.SelectedDate(), this, [this] { AnniversariesChanged(); });
}

void Form5::Command10_Click() {
    m_parts.book.remove(this, [this] { AnniversariesChanged(); });
}

void Form5::ShowAll() {
    FitSettings();
    m_monthHeading->setText(m_calendar.Grid().heading);
    m_monthView->Show(m_calendar.Grid());
    m_modeOptions.at(static_cast<std::size_t>(m_calendar.Mode()))->setChecked(true);
    EnableButtons();
    const bool isOpen = m_calendar.IsPanelOpen();
    QPushButton* toggle = Button(CalendarAction::TogglePanel);
    controls::SetCaption(*toggle, PanelCaption(isOpen));
    toggle->setAccessibleName(isOpen ? u"記念日の一覧を閉じる"_s : u"記念日の一覧を開く"_s);
    m_panel->setVisible(isOpen);
    if (m_calendar.IsSearchingDays()) {
        m_daySearch->Start();
    }
}

/// Resizes the window if the settings have changed what it shows: second lines below the days and headings
/// with two eras need more room.
void Form5::FitSettings() {
    const MonthGrid& grid = m_calendar.Grid();
    if (std::exchange(m_fitted, {grid.under, m_parts.further.calendar.eras.byDate}) !=
        std::pair(grid.under, m_parts.further.calendar.eras.byDate)) {
        m_monthView->SetUnder(grid.under);
        Fit();
    }
}

void Form5::AnniversariesChanged() {
    m_calendar.AnniversariesChanged();
    if (m_parts.further.corrections.showsToday) {
        ShowAll();
    }
}

void Form5::GoOnSearchingDays() {
    if (m_calendar.IsSearchingDays()) {
        m_calendar.GoOnSearchingDays();
    }
    if (!m_calendar.IsSearchingDays()) {
        m_daySearch->Stop();
        m_monthView->Show(m_calendar.Grid());
    }
}

bool Form5::KeepMarks() {
    if (!m_parts.further.corrections.keepsMarksOnClose || m_calendar.Mode() == CalendarMode::Normal) {
        return true;
    }
    const CalendarMode mode = m_calendar.Mode();
    if (m_parts.handlers.Run([this] { m_calendar.ChooseMode(CalendarMode::Normal); }, this)) {
        return true;
    }
    m_calendar.ChooseMode(mode);  // so that the next attempt to close stores them again
    ShowAll();
    return false;
}

/// Stays open if the marks cannot be stored: they exist nowhere else.
void Form5::done(int result) {
    if (KeepMarks()) {
        QDialog::done(result);
    }
}

void Form5::ShowList() {
    m_rows->SetRows(m_parts.list.Rows());
    m_listHeading->setText(m_parts.list.Heading());
    m_listCount->setText(m_parts.list.CountText());
    if (m_parts.list.IsListing()) {
        m_listing->Start();
    }
}

void Form5::GoOnListing() {
    if (m_parts.list.IsListing()) {
        m_parts.list.GoOn();
    }
    if (!m_parts.list.IsListing()) {
        m_listing->Stop();
    }
}

/// Opening the panel widens the window; if that exceeds the right edge of the screen, the window is moved
/// left.
void Form5::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const QRect room = screen()->availableGeometry();
    const int beyond = frameGeometry().right() - room.right();
    if (isVisible() && beyond > 0) {
        move(std::max(room.left(), frameGeometry().left() - beyond), frameGeometry().top());
    }
}

void Form5::keyPressEvent(QKeyEvent* event) {
    const bool byYear = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_PageUp:
            return Button(byYear ? CalendarAction::PreviousYear : CalendarAction::PreviousMonth)->click();
        case Qt::Key_PageDown:
            return Button(byYear ? CalendarAction::NextYear : CalendarAction::NextMonth)->click();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
                button->click();
            }
            return;
        default:
            QDialog::keyPressEvent(event);
    }
}

void Form5::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Fit();
    }
}

}  // namespace tickwell::days
