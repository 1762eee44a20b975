// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_window.h"

#include <QHideEvent>
#include <QScreen>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

HelpBrowser* MakeText(const QString& html, QWidget* parent) {
    auto* text = new HelpBrowser(parent);
    text->setObjectName(u"Text"_s);
    text->setAccessibleName(u"ヘルプの本文"_s);
    text->SetHtml(html);
    return text;
}

QToolButton* ButtonFor(QAction* action, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(action->objectName());
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::TabFocus);
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    button->setToolTip(action->toolTip() + (keys.isEmpty() ? QString() : u" (" + keys + u')'));
    button->setAccessibleName(action->toolTip());
    return button;
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
    panes->setSizes({fontMetrics().averageCharWidth() * 46, fontMetrics().averageCharWidth() * 114});
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(MakeTools());
    whole->addWidget(panes, 1);
    AddFindKeys();
    m_handlers.Connect(m_text, &HelpBrowser::PositionChanged, this, [this] { ShowState(); });
    connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        if (const auto position = m_page.LinkPosition(url.toString())) {
            JumpTo(*position);
        }
    });
    connect(m_text, &HelpBrowser::SizeTurned, this,
            [this](int direction) { SetTextSize(direction > 0 ? &TextSize::Grow : &TextSize::Shrink); });
    connect(m_side, &HelpSide::Chosen, this, &HelpWindow::JumpTo);
    m_text->SetPercent(m_look.textSize.Percent());
    PlaceFirst();
    ShowState();
    m_text->setFocus();
}

QAction* HelpWindow::Add(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                         std::function<void()> handler) {
    auto* action = new QAction(caption, this);
    action->setObjectName(name);
    action->setShortcuts(keys);
    m_handlers.Connect(action, &QAction::triggered, this, std::move(handler));
    addAction(action);
    return action;
}

QHBoxLayout* HelpWindow::MakeTools() {
    m_back = Add(u"Back"_s, u"戻る"_s, {Qt::ALT | Qt::Key_Left, Qt::Key_Back}, [this] { GoBack(); });
    m_forward =
        Add(u"Forward"_s, u"進む"_s, {Qt::ALT | Qt::Key_Right, Qt::Key_Forward}, [this] { GoForward(); });
    m_previous = Add(u"FindPrevious"_s, u"前を検索"_s, {Qt::SHIFT | Qt::Key_F3},
                     [this] { FindStep(&HelpSearch::Previous); });
    m_next = Add(u"FindNext"_s, u"次を検索"_s, {Qt::Key_F3}, [this] { FindStep(&HelpSearch::Next); });
    // The keys of Japanese and of English keyboards; + and = need Shift on one or the other.
    m_smaller = Add(u"Smaller"_s, u"小さく"_s, {Qt::CTRL | Qt::Key_Minus},
                    [this] { SetTextSize(&TextSize::Shrink); });
    auto* normal =
        Add(u"Normal"_s, u"標準"_s, {Qt::CTRL | Qt::Key_0}, [this] { SetTextSize(&TextSize::Reset); });
    m_larger = Add(u"Larger"_s, u"大きく"_s,
                   {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal, Qt::CTRL | Qt::Key_Semicolon},
                   [this] { SetTextSize(&TextSize::Grow); });
    m_smaller->setToolTip(u"文字を小さく"_s);
    normal->setToolTip(u"文字を標準の大きさに"_s);
    m_larger->setToolTip(u"文字を大きく"_s);
    Add(u"FocusFind"_s, u"検索"_s, {Qt::CTRL | Qt::Key_F}, [this] {
        m_find->setFocus(Qt::ShortcutFocusReason);
        m_find->selectAll();
    });
    Add(u"SwitchPane"_s, u"目次と本文の切り替え"_s, {Qt::Key_F6}, [this] { SwitchPane(); });

    auto* tools = new QHBoxLayout;
    tools->addWidget(ButtonFor(m_back, this));
    tools->addWidget(ButtonFor(m_forward, this));
    tools->addSpacing(fontMetrics().height());
    tools->addWidget(MakeFindBox(), 1);
    tools->addWidget(ButtonFor(m_previous, this));
    tools->addWidget(ButtonFor(m_next, this));
    tools->addWidget(m_count);
    tools->addSpacing(fontMetrics().height());
    for (QAction* action : {m_smaller, normal, m_larger}) {
        tools->addWidget(ButtonFor(action, this));
    }
    return tools;
}

QWidget* HelpWindow::MakeFindBox() {
    m_find->setObjectName(u"Find"_s);
    m_find->setAccessibleName(u"検索する語"_s);
    m_find->setPlaceholderText(u"ヘルプ全体を検索"_s);
    m_find->setClearButtonEnabled(true);
    m_find->setMinimumWidth(m_find->fontMetrics().averageCharWidth() * 24);
    m_count->setObjectName(u"FindCount"_s);
    m_count->setTextFormat(Qt::PlainText);
    // Room for what it will say: the buttons stay where they are while the reader types.
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(u"見つかりません "_s));
    m_handlers.Connect(m_find, &QLineEdit::textChanged, this, [this] { Find(); });
    return m_find;
}

/// Enter in the find box goes on, as it does in every other search box.
void HelpWindow::AddFindKeys() {
    const auto add = [this](const QList<QKeySequence>& keys, void (HelpSearch::*step)()) {
        auto* action = new QAction(m_find);
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        m_handlers.Connect(action, &QAction::triggered, this, [this, step] { FindStep(step); });
        m_find->addAction(action);
    };
    add({Qt::Key_Return, Qt::Key_Enter}, &HelpSearch::Next);
    add({Qt::SHIFT | Qt::Key_Return, Qt::SHIFT | Qt::Key_Enter}, &HelpSearch::Previous);
}

void HelpWindow::PlaceFirst() {
    if (!m_look.geometry.isEmpty() && restoreGeometry(m_look.geometry)) {
        return;
    }
    const QSize wanted(fontMetrics().averageCharWidth() * 160, fontMetrics().height() * 42);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
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

/// While the reader types, the search begins again from where they are.
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

}  // namespace tickwell
