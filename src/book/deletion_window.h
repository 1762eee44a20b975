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

/// The deletion of anniversaries: lists those of the calendar's list, to be ticked one by one or all at once.
/// Deletes the ticked ones without further confirmation and closes; after an error it stays open unchanged.
class Form10 : public QDialog {
    Q_OBJECT

public:
    Form10(const BookParts& parts, QWidget* parent);

    /// Closes the window; a running deletion is cancelled and rolled back instead, and the window stays open.
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
    ListedRows m_rows;             // the rows of the list when the window opened
    std::vector<bool> m_isTicked;  // one per row
    // All owned by the window as children.
    TickList* m_anniversaries = nullptr;
    QLabel* m_tickedCount = nullptr;
    QPushButton* m_deleteButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_tickAllButton = nullptr;
    QPushButton* m_untickAllButton = nullptr;
    WorkBar* m_work = nullptr;
};

}  // namespace tickwell
