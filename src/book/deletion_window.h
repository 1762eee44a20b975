// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QPushButton>
#include <vector>

#include "book/book_window.h"
#include "book/tick_list.h"

namespace tickwell::book {

/// The deletion of anniversaries: lists those of the calendar's list, to be ticked one by one or all at once.
/// Deletes the ticked ones without further confirmation and closes; after an error it stays open unchanged.
class Form10 : public BookWindow {
    Q_OBJECT

public:
    Form10(const BookParts& parts, QWidget* parent);

private:
    void MakeControls();
    void Connect();
    void Form_Load();
    void List1_Click();
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void ShowCount();

    days::ListedRows m_rows;       // the rows of the list when the window opened
    std::vector<bool> m_isTicked;  // one per row
    // All owned by the window as children.
    TickList* m_anniversaries = nullptr;
    QLabel* m_tickedCount = nullptr;
    QPushButton* m_tickAllButton = nullptr;
    QPushButton* m_untickAllButton = nullptr;
};

}  // namespace tickwell::book
