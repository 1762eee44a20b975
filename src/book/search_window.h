// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "book/book_window.h"
#include "book/date_frame.h"
#include "book/search_fields.h"

namespace tickwell::book {

/// The search of the anniversary book by kind, name and date. Puts its results into the calendar's list and
/// closes; after an error it stays open and the list is unchanged.
class Form9 : public BookWindow {
    Q_OBJECT

public:
    Form9(const BookParts& parts, QWidget* parent);

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

    // All owned by the window as children.
    std::array<QCheckBox*, 3> m_kinds{};  // one year, every year, every month
    std::array<QRadioButton*, 2> m_nameOptions{};
    QLabel* m_nameLabel = nullptr;
    QLineEdit* m_name = nullptr;
    std::array<QRadioButton*, 2> m_dateOptions{};
    QGroupBox* m_rangeFrame = nullptr;
    std::array<QRadioButton*, 3> m_rangeOptions{};
    DateFrame* m_start = nullptr;
    DateFrame* m_end = nullptr;
};

}  // namespace tickwell::book
