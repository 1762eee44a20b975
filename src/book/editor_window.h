// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <optional>

#include "book/anniversary_change.h"
#include "book/book_window.h"
#include "book/editor_fields.h"
#include "controls/up_down.h"

namespace tickwell::book {

/// The editor of an anniversary: adds one, or changes the one chosen in the calendar's list. It writes to the
/// database and closes; an error is reported in a message box, and the fields stay as typed.
class Form6 : public BookWindow {
    Q_OBJECT

public:
    /// `date`: the calendar's selected date. Throws RunTimeError if the chosen row is no longer in the list
    /// or cannot be read; there is then nothing to show.
    Form6(const BookParts& parts, QDate date, QWidget* parent);

private:
    void MakeControls();
    void Connect();
    void Form_Load(QDate date);
    void Option2_Click(AnniversaryKind kind);
    void Check2_Click();
    void Command1_Click();
    void Add(const days::Anniversary& entered);
    void Change(const days::Anniversary& entered);
    void TellFailed();
    void Finish();
    void ShowFields(const EditorFields& fields);
    EditorFields Fields() const;
    AnniversaryKind Kind() const;
    void Enable();
    QLayout* DateRow();
    QLayout* WeekRow();

    std::optional<days::DayListRow> m_chosen;  // the row to change; empty: a row is added
    QString m_shownName;                       // the row's name as initially shown in the field
    // All owned by the window as children.
    QLineEdit* m_name = nullptr;
    controls::UpDown* m_year = nullptr;
    controls::UpDown* m_month = nullptr;
    controls::UpDown* m_day = nullptr;
    QLabel* m_yearLabel = nullptr;
    QLabel* m_monthLabel = nullptr;
    QLabel* m_dayLabel = nullptr;
    std::array<QRadioButton*, 3> m_kindOptions{};
    QCheckBox* m_byWeek = nullptr;
    QComboBox* m_weekday = nullptr;
    QComboBox* m_ordinal = nullptr;  // of the week in the month
};

}  // namespace tickwell::book
