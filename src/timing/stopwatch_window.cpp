// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch_window.h"

#include <QPointer>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <utility>

#include "timing/bring_forward.h"
#include "timing/lap_report.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kListColumns = 30;  // minimum size of the list in characters and lines
constexpr int kListLines = 8;

}  // namespace

StopForm::StopForm(StopwatchWindowParts parts, QWidget* parent)
    : QDialog(parent),
      m_parts(std::move(parts)),
      m_printing(m_parts.printer, m_parts.boxes, m_parts.handlers, this),
      m_Command1(new QPushButton(this)),
      m_Command2(new QPushButton(this)),
      m_Command3(new QPushButton(u"印刷"_s, this)),
      m_Command4(new QPushButton(u"ヘルプ"_s, this)),
      m_Text1(new QPlainTextEdit(this)) {
    setObjectName(u"StopForm"_s);
    setWindowTitle(u"ストップウォッチ"_s);
    m_Command1->setObjectName(u"Command1"_s);
    m_Command2->setObjectName(u"Command2"_s);
    m_Command3->setObjectName(u"Command3"_s);
    m_Command4->setObjectName(u"Command4"_s);
    m_Text1->setObjectName(u"Text1"_s);
    m_Text1->setAccessibleName(u"ラップ/経歴一覧表"_s);
    m_Text1->setReadOnly(true);
    m_Text1->setUndoRedoEnabled(false);
    m_Text1->setTabChangesFocus(true);
    m_Text1->setLineWrapMode(QPlainTextEdit::NoWrap);
    LayOut();
    Handlers& handlers = m_parts.handlers;
    handlers.Connect(m_Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    handlers.Connect(m_Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    handlers.Connect(m_Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
    handlers.Connect(m_Command4, &QPushButton::clicked, this, [this] { Command4_Click(); });
}

void StopForm::LayOut() {
    auto* above = new QHBoxLayout;
    above->addWidget(m_Command1, 1);
    above->addWidget(m_Command2, 1);
    auto* below = new QHBoxLayout;
    below->addStretch(1);
    for (QPushButton* button : {m_Command3, m_Command4}) {
        // Kanji and kana may come from fonts of different heights: expand all buttons to the height of the
        // row.
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
        below->addWidget(button);
    }
    auto* all = new QVBoxLayout(this);
    all->addLayout(above);
    all->addWidget(m_Text1, 1);
    all->addLayout(below);
    const QFontMetrics metrics = m_Text1->fontMetrics();
    m_Text1->setMinimumSize(kListColumns * metrics.averageCharWidth(), kListLines * metrics.lineSpacing());
    setTabOrder(m_Command1, m_Command2);
    setTabOrder(m_Command2, m_Text1);
    setTabOrder(m_Text1, m_Command3);
    setTabOrder(m_Command3, m_Command4);
    m_Command1->setDefault(true);
}

void StopForm::BringUp() {
    if (!isVisible()) {
        Form_Load();
    }
    BringForward(*this);
}

void StopForm::Form_Load() {
    m_parts.handlers.Run(m_parts.enterFolder);
    m_parts.panel.Load();
    ShowState();
    m_Command1->setFocus();
}

void StopForm::Form_Unload() {
    m_parts.panel.Unload();
}

void StopForm::done(int result) {
    if (isVisible()) {
        Form_Unload();
    }
    QDialog::done(result);
}

void StopForm::Command1_Click() {
    const auto shown = qScopeGuard([this] { ShowState(); });  // a failed stop changes the state too
    m_parts.panel.StartOrStop();
}

void StopForm::Command2_Click() {
    m_parts.panel.LapOrReset();
    ShowState();
}

/// Allows one question and then one print at a time; both may end after the window was closed.
void StopForm::Command3_Click() {
    const bool hadFocus = focusWidget() == m_Command3;
    m_Command3->setEnabled(false);  // which moves its focus
    m_focusInstead = hadFocus ? focusWidget() : nullptr;
    const QPointer<StopForm> self(this);
    m_parts.boxes.Ask(
        this, {MessageIcon::Question, u"印刷"_s, u"ラップ情報などを印刷します。\r\n準備はよろしいですか？"_s},
        [self](bool ok) {
            if (self == nullptr) {
                return;
            }
            if (!ok || !self->m_parts.handlers.Run([self] { self->Print(); }, self)) {
                self->EnablePrinting();
            }
        });
}

/// Returns the focus to the button, unless the user has moved it meanwhile.
void StopForm::EnablePrinting() {
    m_Command3->setEnabled(true);
    if (m_focusInstead != nullptr && focusWidget() == m_focusInstead) {
        m_Command3->setFocus();
    }
}

void StopForm::Print() {
    m_printing.Print({windowTitle(), LapReport(m_parts.version, m_parts.clock.Now(), m_parts.panel.List())},
                     [this] { EnablePrinting(); });
}

void StopForm::Command4_Click() {
    m_parts.help.ShowTopic(kHelpStopwatch);
}

void StopForm::ShowState() {
    const StopwatchCaptions captions = m_parts.panel.Captions();
    m_Command1->setText(captions.command1.toString());
    m_Command2->setText(captions.command2.toString());
    ShowList();
}

/// Appends only new text: setting the complete text for each lap would take longer with every lap. The text
/// box is never read, because it does not preserve carriage returns.
void StopForm::ShowList() {
    const QString& list = m_parts.panel.List();
    if (m_shownList != m_parts.panel.ListNumber()) {
        m_shownList = m_parts.panel.ListNumber();
        m_Text1->setPlainText(list);
    } else {
        QTextCursor end(m_Text1->document());
        end.movePosition(QTextCursor::End);
        end.insertText(list.mid(m_shownLength));
    }
    m_shownLength = list.size();
    m_Text1->moveCursor(QTextCursor::End);
}

}  // namespace tickwell
