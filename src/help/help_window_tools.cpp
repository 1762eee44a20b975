// SPDX-License-Identifier: GPL-3.0-or-later
#include <QToolButton>

#include "core/ports/help_viewer.h"
#include "help/help_window.h"

namespace tickwell::help {

using namespace Qt::StringLiterals;

namespace {

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

QAction* HelpWindow::Add(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                         std::function<void()> handler) {
    auto* action = new QAction(caption, this);
    action->setObjectName(name);
    action->setShortcuts(keys);
    m_handlers.Connect(action, &QAction::triggered, this, std::move(handler));
    addAction(action);
    return action;
}

void HelpWindow::AddActions() {
    m_back = Add(u"Back"_s, u"戻る"_s, {Qt::ALT | Qt::Key_Left, Qt::Key_Back}, [this] { GoBack(); });
    m_forward =
        Add(u"Forward"_s, u"進む"_s, {Qt::ALT | Qt::Key_Right, Qt::Key_Forward}, [this] { GoForward(); });
    m_previous = Add(u"FindPrevious"_s, u"前を検索"_s, {Qt::SHIFT | Qt::Key_F3},
                     [this] { FindStep(&HelpSearch::Previous); });
    m_next = Add(u"FindNext"_s, u"次を検索"_s, {Qt::Key_F3}, [this] { FindStep(&HelpSearch::Next); });
    // Shortcuts for Japanese and English keyboards; + and = need Shift on one or the other.
    m_smaller = Add(u"Smaller"_s, u"小さく"_s, {Qt::CTRL | Qt::Key_Minus},
                    [this] { SetTextSize(&TextSize::Shrink); });
    m_normal = Add(u"Normal"_s, u"標準"_s, {Qt::CTRL | Qt::Key_0}, [this] { SetTextSize(&TextSize::Reset); });
    m_larger = Add(u"Larger"_s, u"大きく"_s,
                   {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal, Qt::CTRL | Qt::Key_Semicolon},
                   [this] { SetTextSize(&TextSize::Grow); });
    m_smaller->setToolTip(u"文字を小さく"_s);
    m_normal->setToolTip(u"文字を標準の大きさに"_s);
    m_larger->setToolTip(u"文字を大きく"_s);
    Add(u"FocusFind"_s, u"検索"_s, {Qt::CTRL | Qt::Key_F}, [this] {
        m_find->setFocus(Qt::ShortcutFocusReason);
        m_find->selectAll();
    });
    Add(u"HelpOfHelp"_s, u"このヘルプの使い方"_s, {Qt::Key_F1}, [this] { ShowTopic(kHelpOfHelp); });
    Add(u"SwitchPane"_s, u"目次と本文の切り替え"_s, {Qt::Key_F6}, [this] { SwitchPane(); });
}

QBoxLayout* HelpWindow::MakeTools() {
    auto* find = new QHBoxLayout;
    find->addWidget(ButtonFor(m_back, this));
    find->addWidget(ButtonFor(m_forward, this));
    find->addSpacing(fontMetrics().height());
    find->addWidget(MakeFindBox(), 1);
    find->addWidget(ButtonFor(m_previous, this));
    find->addWidget(ButtonFor(m_next, this));
    find->addWidget(m_count);
    auto* sizes = new QHBoxLayout;
    for (QAction* action : {m_smaller, m_normal, m_larger}) {
        sizes->addWidget(ButtonFor(action, this));
    }
    m_tools = new QBoxLayout(QBoxLayout::LeftToRight);
    m_tools->addLayout(find, 1);
    m_tools->addSpacing(fontMetrics().height());
    m_tools->addLayout(sizes);
    return m_tools;
}

/// Two rows if the screen is too narrow for one.
void HelpWindow::FitTools() {
    if (m_tools->minimumSize().width() > LargestSize().width()) {
        m_tools->itemAt(m_tools->count() - 1)->setAlignment(Qt::AlignLeft);
        delete m_tools->takeAt(1);  // the space between them
        m_find->setMinimumWidth(m_find->minimumWidth() / 2);
        m_tools->setDirection(QBoxLayout::TopToBottom);
    }
}

QWidget* HelpWindow::MakeFindBox() {
    m_find->setObjectName(u"Find"_s);
    m_find->setAccessibleName(u"検索する語"_s);
    m_find->setPlaceholderText(u"ヘルプ全体を検索"_s);
    m_find->setClearButtonEnabled(true);
    m_find->setMinimumWidth(m_find->fontMetrics().averageCharWidth() * 24);
    m_count->setObjectName(u"FindCount"_s);
    m_count->setTextFormat(Qt::PlainText);
    // Reserves the width of the longest text, so that the buttons do not move while the reader types.
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(u"見つかりません "_s));
    m_handlers.Connect(m_find, &QLineEdit::textChanged, this, [this] { Find(); });
    return m_find;
}

/// Enter in the search box goes to the next hit, Shift+Enter to the previous one, as in other programs.
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

}  // namespace tickwell::help
