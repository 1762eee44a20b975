// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_reader.h"

#include <QEvent>
#include <QTextCursor>
#include <utility>

namespace tickwell::help {

namespace {

QString TextBetween(const HelpBrowser& text, int from, int to) {
    QTextCursor cursor(text.document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return cursor.selectedText().simplified();
}

}  // namespace

HelpReader::HelpReader(HelpBrowser& text, const HelpPage& page)
    : QObject(&text), m_text(text), m_page(page), m_announcer(&text) {
    text.installEventFilter(this);
    connect(&text, &HelpBrowser::PositionChanged, this, [this] { ReadSection(); });
    connect(&text, &HelpBrowser::LinkReached, this,
            [this](const QString& link) { m_announcer.Announce(link); });
}

bool HelpReader::eventFilter(QObject* watched, QEvent* event) {
    const bool goesOn = QObject::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) {
        ReadSection();
    }
    return goesOn;
}

void HelpReader::ReadSection() {
    const int section = m_page.HeadingAt(m_text.Position());
    if (!m_text.hasFocus() || std::exchange(m_section, section) == section) {
        return;
    }
    const qsizetype next = qsizetype{section} + 1;
    const int from = section < 0 ? 0 : m_page.headings.at(section).position;
    const int end = m_text.document()->characterCount() - 1;
    const int to = next < m_page.headings.size() ? m_page.headings.at(next).position : end;
    m_announcer.Announce(TextBetween(m_text, from, to));
}

}  // namespace tickwell::help
