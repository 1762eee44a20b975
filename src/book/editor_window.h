// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <optional>

#include "book/anniversary_change.h"
#include "book/book_parts.h"
#include "book/editor_fields.h"
#include "controls/up_down.h"
#include "controls/work_bar.h"

namespace tickwell {

/// The editor of an anniversary: adds one, or changes the one that is chosen in the calendar's list. It
/// writes one statement and closes; what goes wrong on the way is said in one box, and all stays as it was
/// typed.
class Form6 : public QDialog {
    Q_OBJECT

public:
    /// `date`: the calendar's selected one. Throws RunTimeError when the chosen row is not in the list any
    /// more or cannot be read; there is then nothing to show.
    Form6(const BookParts& parts, QDate date, QWidget* parent);

    /// Ends a running change first, which takes it back, and then stays open.
    void reject() override;

private:
    void MakeControls();
    void Connect();
    void Form_Load(QDate date);
    void Option2_Click(AnniversaryKind kind);
    void Check2_Click();
    void Command1_Click();
    void Add(const Anniversary& entered);
    void Change(const Anniversary& entered);
    void Tell();
    void Finish();
    void ShowFields(const EditorFields& fields);
    EditorFields Fields() const;
    AnniversaryKind Kind() const;
    void Enable();
    QLayout* DateRow();
    QLayout* WeekRow();

    BookParts m_parts;
    bool m_isTelling = false;            // the box is open; another one would only cover it
    std::optional<DayListRow> m_chosen;  // the row to change; nothing: one is added
    QString m_shownName;                 // its name, as the field has it before the user types
    // All owned by the window, as its children.
    QLineEdit* m_Text1 = nullptr;
    UpDown* m_UpDown1 = nullptr;  // year
    UpDown* m_UpDown2 = nullptr;  // month
    UpDown* m_UpDown3 = nullptr;  // day
    QLabel* m_Label3 = nullptr;
    QLabel* m_Label4 = nullptr;
    QLabel* m_Label5 = nullptr;
    std::array<QRadioButton*, 3> m_Option2{};
    QCheckBox* m_Check2 = nullptr;
    QComboBox* m_Combo1 = nullptr;  // weekday
    QComboBox* m_Combo2 = nullptr;  // ordinal
    QPushButton* m_Command1 = nullptr;
    QPushButton* m_Command2 = nullptr;
    WorkBar* m_work = nullptr;
};

}  // namespace tickwell
