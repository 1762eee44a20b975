// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_book.h"

#include "book/deletion_window.h"
#include "book/editor_window.h"
#include "book/log.h"
#include "book/search_window.h"
#include "controls/access_keys.h"
#include "controls/help_key.h"
#include "core/errors.h"

namespace tickwell::book {

void AnniversaryBook::OpenEditor(QDate date, QWidget* calendar, Closed closed) const {
    std::unique_ptr<Form6> editor;
    try {
        editor = std::make_unique<Form6>(m_parts, date, calendar);
    } catch (const RunTimeError& error) {
        qCDebug(BookLog).noquote() << "no editor for the chosen row:" << error.Detail();
        closed();
        return;
    }
    Open(editor.release(), kHelpEditor, calendar, std::move(closed));
}

void AnniversaryBook::OpenDeletion(QWidget* calendar, Closed closed) const {
    Open(new Form10(m_parts, calendar), kHelpDeletion, calendar, std::move(closed));
}

void AnniversaryBook::OpenSearch(QWidget* calendar) const {
    Open(new Form9(m_parts, calendar), kHelpSearch, calendar, [] {});
}

void AnniversaryBook::Open(QDialog* window, int topic, QWidget* calendar, Closed closed) const {
    window->setAttribute(Qt::WA_DeleteOnClose);
    controls::OpenHelpByKey(*window, m_parts.handlers, m_parts.help, topic);
    controls::ShowAccessKeys(*window, m_parts.further.keyboard.showsAccessKeys);
    m_parts.handlers.Connect(window, &QDialog::finished, calendar, std::move(closed));
    window->open();  // modal to the calendar only: the main window stays usable
}

}  // namespace tickwell::book
