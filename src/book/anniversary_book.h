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

    /// Opens the editor for the row that the list has chosen, or for a new one on `date`. If the chosen row
    /// no longer exists, opens nothing and reports nothing. `closed` is called once the window is closed, or
    /// at once if none was opened; it runs as a handler, and not after `calendar` was destroyed.
    void OpenEditor(QDate date, QWidget* calendar, Closed closed) const;
    void OpenDeletion(QWidget* calendar, Closed closed) const;

    /// The results are in the list when the window closes.
    void OpenSearch(QWidget* calendar) const;

private:
    void Open(QDialog* window, QWidget* calendar, Closed closed) const;

    BookParts m_parts;
};

}  // namespace tickwell::book
