// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>

#include "book/book_parts.h"

namespace tickwell::book {

/// Opens the windows of the anniversary book, each modal to the calendar.
class AnniversaryBook {
public:
    using Closed = std::function<void()>;

    explicit AnniversaryBook(const BookParts& parts) : m_parts(parts) {}

    /// Opens the editor for the row chosen in the list, or for a new one on `date`. If the chosen row no
    /// longer exists, opens nothing and reports nothing. `closed` is called through Handlers when the window
    /// closes, or immediately if none was opened; never after `calendar` is destroyed.
    void OpenEditor(QDate date, QWidget* calendar, Closed closed) const;
    void OpenDeletion(QWidget* calendar, Closed closed) const;

    /// When the window closes, the results are in the list.
    void OpenSearch(QWidget* calendar) const;

private:
    void Open(QDialog* window, int topic, QWidget* calendar, Closed closed) const;

    BookParts m_parts;
};

}  // namespace tickwell::book
