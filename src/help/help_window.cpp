// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_window.h"

#include <QHideEvent>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "help/help_reader.h"

namespace tickwell::help {

using namespace Qt::StringLiterals;

namespace {

// The width of the window and of the contents in it, if the screen is wide enough.
constexpr int kCharacters = 160;
constexpr int kSideCharacters = 46;

/// Of Latin text. In some Japanese fonts the average character is a full-width one.
int CharacterWidth(const QFontMetrics& metrics) {
    return std::min(metrics.averageCharWidth(), metrics.horizontalAdvance(u'0'));
}

HelpBrowser* MakeText(const QString& html, QWidget* parent) {
    auto* text = new HelpBrowser(parent);
    text->setObjectName(u"Text"_s);
    text->setAccessibleName(u"ヘルプの本文"_s);
    text->SetHtml(html);
    return text;
}

}  // namespace

HelpWindow::HelpWindow(Handlers& handlers, const QString& html, HelpLook& look, QWidget* parent)
    : QDialog(parent, Qt::Window),
      m_handlers(handlers),
      m_look(look),
      m_text(MakeText(html, this)),
      m_page(HelpPageOf(*m_text->document())),
      m_side(new HelpSide(handlers, m_page, this)),
      m_find(new QLineEdit(this)),
      m_count(new QLabel(this)) {
    setObjectName(u"HelpWindow"_s);
    setWindowTitle(u"Tickwell ヘルプ"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* panes = new QSplitter(this);
    panes->addWidget(m_side);
    panes->addWidget(m_text);
    panes->setStretchFactor(1, 1);
    panes->setChildrenCollapsible(false);
    AddActions();
    AddFindKeys();
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(MakeTools());
    whole->addWidget(panes, 1);
    ConnectPanes();
    new HelpReader(*m_text, m_page);  // owned by the text
    m_text->SetPercent(m_look.textSize.Percent());
    FitTools();
    PlaceFirst();
    const int room = width() - whole->contentsMargins().left() - whole->contentsMargins().right();
    panes->setSizes(
        {room * kSideCharacters / kCharacters, room * (kCharacters - kSideCharacters) / kCharacters});
    ShowState();
    m_text->setFocus();
}

void HelpWindow::ConnectPanes() {
    m_handlers.Connect(m_text, &HelpBrowser::PositionChanged, this, [this] { ShowState(); });
    connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        if (const auto position = m_page.LinkPosition(url.toString())) {
            JumpTo(*position);
        }
    });
    connect(m_text, &HelpBrowser::SizeTurned, this,
            [this](int direction) { SetTextSize(direction > 0 ? &TextSize::Grow : &TextSize::Shrink); });
    connect(m_side, &HelpSide::Chosen, this, &HelpWindow::JumpTo);
}

void HelpWindow::PlaceFirst() {
    if (!m_look.geometry.isEmpty() && restoreGeometry(m_look.geometry)) {
        return;
    }
    const QSize wanted(CharacterWidth(fontMetrics()) * kCharacters, fontMetrics().height() * 42);
    resize(wanted.boundedTo(LargestSize()));
}

QSize HelpWindow::LargestSize() const {
    return screen()->availableSize() * 9 / 10;
}

void HelpWindow::ShowTopic(int topic) {
    if (isVisible()) {
        JumpTo(m_page.TopicPosition(topic));
    } else {
        m_text->GoTo(m_page.TopicPosition(topic));
    }
}

void HelpWindow::JumpTo(int position) {
    m_history.Jump(m_text->Position(), position);
    m_text->GoTo(position);
}

void HelpWindow::GoBack() {
    m_text->GoTo(m_history.Back(m_text->Position()));
}

void HelpWindow::GoForward() {
    m_text->GoTo(m_history.Forward(m_text->Position()));
}

/// While the reader types, each search starts from the current position.
void HelpWindow::Find() {
    m_search.Start(m_page.text, m_find->text(), m_text->Position());
    ShowFound();
}

void HelpWindow::FindStep(void (HelpSearch::*step)()) {
    if (m_find->text().trimmed().isEmpty()) {
        m_find->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    (m_search.*step)();
    ShowFound();
}

void HelpWindow::ShowFound() {
    m_count->setText(m_search.CountText());
    if (const auto current = m_search.Current()) {
        m_text->ShowHits(m_search.Hits(), *current);
    } else {
        m_text->HideHits();
    }
    ShowState();
}

void HelpWindow::SetTextSize(void (TextSize::*step)()) {
    (m_look.textSize.*step)();
    m_text->SetPercent(m_look.textSize.Percent());
    ShowState();
}

void HelpWindow::SwitchPane() {
    if (m_text->hasFocus()) {
        m_side->TakeFocus();
    } else {
        m_text->setFocus(Qt::ShortcutFocusReason);
    }
}

void HelpWindow::ShowState() {
    m_side->MarkHeading(m_page.HeadingAt(m_text->Position()));
    m_back->setEnabled(m_history.CanGoBack());
    m_forward->setEnabled(m_history.CanGoForward());
    m_smaller->setEnabled(!m_look.textSize.IsSmallest());
    m_larger->setEnabled(!m_look.textSize.IsLargest());
}

void HelpWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        m_look.geometry = saveGeometry();
    }
    QDialog::hideEvent(event);
}

}  // namespace tickwell::help
