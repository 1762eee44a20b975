// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "book/book_parts.h"
#include "book/date_frame.h"
#include "book/search_fields.h"
#include "controls/work_bar.h"

namespace tickwell {

/// The search of the anniversary book by kind, name and date. Puts its results into the calendar's list and
/// closes; after an error it stays open and the list is unchanged.
class Form9 : public QDialog {
    Q_OBJECT

public:
    Form9(const BookParts& parts, QWidget* parent);

    /// Closes the window; a running search is cancelled instead, and the window stays open.
    void reject() override;

private:
    void MakeControls();
    QGroupBox* NameFrame();
    QGroupBox* DateConditionFrame();
    void Connect();
    void Form_Load();
    void Command1_Click();
    void ShowFinds(AnniversarySearch& search);
    SearchFields Fields() const;
    RangeKind Range() const;
    void Enable();

    BookParts m_parts;
    bool m_isTelling = false;  // the message box is open; another one would only cover it
    // All owned by the window as children.
    std::array<QCheckBox*, 3> m_Check{};  // Check1 to Check3: one year, every year, every month
    std::array<QRadioButton*, 2> m_Option1{};
    QLabel* m_Label1 = nullptr;
    QLineEdit* m_Text1 = nullptr;
    std::array<QRadioButton*, 2> m_Option2{};
    QGroupBox* m_Frame5 = nullptr;
    std::array<QRadioButton*, 3> m_Option3{};
    DateFrame* m_Frame3 = nullptr;  // start
    DateFrame* m_Frame4 = nullptr;  // end
    QPushButton* m_Command1 = nullptr;
    QPushButton* m_Command2 = nullptr;
    WorkBar* m_work = nullptr;
};

}  // namespace tickwell
