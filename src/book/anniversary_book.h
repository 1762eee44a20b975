// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>

#include "book/book_parts.h"

namespace tickwell {

/// Opens the windows of the anniversary book, each above the calendar, which does not react until it is
/// closed.
class AnniversaryBook {
public:
    using Closed = std::function<void()>;

    explicit AnniversaryBook(const BookParts& parts) : m_parts(parts) {}

    /// The editor, for the row that the list has chosen, or for a new one on `date`. A chosen row that is not
    /// there any more opens nothing, and nothing is said. `closed` is called once the window is closed, at
    /// once when none was opened; it runs as a handler does, and not any more when `calendar` is gone.
    void OpenEditor(QDate date, QWidget* calendar, Closed closed) const;
    void OpenDeletion(QWidget* calendar, Closed closed) const;

    /// What it finds is in the list by the time it closes.
    void OpenSearch(QWidget* calendar) const;

private:
    void Open(QDialog* window, QWidget* calendar, Closed closed) const;

    BookParts m_parts;
};

}  // namespace tickwell
