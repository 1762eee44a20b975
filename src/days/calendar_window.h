// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <utility>

#include "days/calendar_window_parts.h"
#include "days/day_list_model.h"
#include "days/month_calendar.h"
#include "days/month_view.h"
#include "days/row_table.h"

namespace tickwell::days {

/// The calendar window: the month, the buttons for other months, the marking modes, and beside it the list of
/// the selected day's anniversaries.
class Form5 : public QDialog {
    Q_OBJECT

public:
    Form5(const CalendarWindowParts& parts, QWidget* parent);
    ~Form5() override;
    Q_DISABLE_COPY_MOVE(Form5)

    /// Resets the window to its initial state: this month, today selected, no list, mode Normal. Queries the
    /// database and writes nothing. Throws RunTimeError; the window must then not be shown.
    void Form_Load();

    /// Selects a day. Does nothing while days are being marked or a message of the calendar is open. Throws
    /// RunTimeError.
    void GoTo(QDate day);

    /// Shows the month again after the settings were changed; not while days are being marked. Throws
    /// RunTimeError.
    void Refresh();

    bool IsMarking() const { return m_calendar.Mode() != CalendarMode::Normal; }

    /// Stores the marks of a marking mode that is still active, if keepsMarksOnClose is set. Returns false if
    /// that failed; the failure has then been reported.
    bool KeepMarks();

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct ActionButton;
    static const std::array<ActionButton, kCalendarActions> kActionButtons;

    void LayOut();
    void MakeMonth();
    QLayout* MakeModes();
    void MakePanel();
    QWidget* MakeList();
    void AddAccessKeys();
    void OrderTabs();
    void Fit();
    void FitHeights();
    void FitColumns();
    QPushButton* Button(CalendarAction action) const;
    QList<QPushButton*> Buttons(CalendarAction first, CalendarAction last) const;
    void MakeButtons();
    void Connect();
    bool HasWindowFor(CalendarAction action) const;
    void Tie(QAbstractButton* button, std::function<void()> handler);

    void Check1_Click(int index) { m_calendar.ClickCell(index); }
    void Option1_Click(int index);
    void Command1_Click() { m_calendar.GoBy(-1); }
    void Command2_Click() { m_calendar.GoBy(1); }
    void Command3_Click() { m_calendar.GoToToday(); }
    void Command4_Click() { m_calendar.GoBy(-kMonthsInYear); }
    void Command5_Click() { m_calendar.GoBy(kMonthsInYear); }
    void Command6_Click() { m_calendar.TogglePanel(); }
    void Command7_Click() { m_calendar.DeleteMarks(); }
    void Command9_Click();
    void Command10_Click();
    void Command11_Click();
    void Command12_Click() { m_parts.book.search(this); }
    void Command16_Click() { m_parts.help.ShowTopic(kHelpContents); }

    void OpenEditor();
    void AnniversariesChanged();
    void ShowAll();
    void FitSettings();
    void EnableButtons();
    void ShowList();
    void GoOnListing();
    void GoOnSearchingDays();

    CalendarWindowParts m_parts;
    MonthCalendar m_calendar;
    std::unique_ptr<Timer> m_listing;       // runs while the list of a day is incomplete
    std::unique_ptr<Timer> m_daySearch;     // runs while days with anniversaries are searched
    std::pair<UnderDays, bool> m_fitted{};  // what the width allows for: second lines, two eras
    // All controls are owned by the window as children.
    QWidget* m_month = nullptr;
    QWidget* m_panel = nullptr;  // beside the month
    QLabel* m_monthHeading = nullptr;
    QLabel* m_listHeading = nullptr;
    QLabel* m_listCount = nullptr;
    MonthView* m_monthView = nullptr;
    std::array<QRadioButton*, 3> m_modeOptions{};
    std::array<QPushButton*, kCalendarActions> m_buttons{};  // by CalendarAction
    RowTable* m_list = nullptr;
    DayListModel* m_rows = nullptr;
};

}  // namespace tickwell::days
