// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <vector>

#include "book/book_parts.h"
#include "book/tick_list.h"
#include "controls/work_bar.h"

namespace tickwell {

/// The deletion of anniversaries: those that the calendar's list shows, to be ticked by clicks, all or none.
/// It deletes them without asking again and closes; when something goes wrong it stays open as it was.
class Form10 : public QDialog {
    Q_OBJECT

public:
    Form10(const BookParts& parts, QWidget* parent);

    /// Ends a running deletion first, which takes it back, and then stays open.
    void reject() override;

private:
    void MakeControls();
    void Connect();
    void Form_Load();
    void List1_Click();
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void ShowCount();

    BookParts m_parts;
    ListedRows m_rows;             // what the list showed when the window opened
    std::vector<bool> m_isTicked;  // one for each of them
    // All owned by the window, as its children.
    TickList* m_List1 = nullptr;
    QLabel* m_Label2 = nullptr;
    QPushButton* m_Command1 = nullptr;
    QPushButton* m_Command2 = nullptr;
    QPushButton* m_Command3 = nullptr;
    QPushButton* m_Command4 = nullptr;
    WorkBar* m_work = nullptr;
};

}  // namespace tickwell
