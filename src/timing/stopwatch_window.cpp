// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/stopwatch_window.h"

#include <QPointer>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "controls/access_keys.h"
#include "controls/bring_forward.h"
#include "controls/control_making.h"
#include "controls/help_key.h"
#include "timing/lap_line.h"
#include "timing/lap_report.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kListColumns = 30;  // minimum size of the list in characters and lines
constexpr int kListLines = 8;
constexpr QStringView kLongLap = u"Lapse8888  88:58'58\"888  (+88:58'58\"888)";  // longer ones are scrolled

int PlainWidth(const QPlainTextEdit& list) {
    return kListColumns * list.fontMetrics().averageCharWidth();
}

int WidthOfIntervals(const QPlainTextEdit& list) {
    const double margins = 2 * (list.document()->documentMargin() + list.frameWidth());
    return list.fontMetrics().horizontalAdvance(kLongLap.toString()) + static_cast<int>(std::ceil(margins)) +
           list.verticalScrollBar()->sizeHint().width();
}

QLayout* RowAtTheRight(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* button : buttons) {
        // Kanji and kana may come from fonts of different heights: expand all buttons to the height of the
        // row.
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
        row->addWidget(button);
    }
    return row;
}

}  // namespace

StopForm::StopForm(StopwatchWindowParts parts, QWidget* parent)
    : QDialog(parent),
      m_parts(std::move(parts)),
      m_export(m_parts.clock, m_parts.handlers, *this),
      m_printing(m_parts.printer, m_parts.boxes, m_parts.handlers, this,
                 [this](const PrintJob& job) { KeepAsPdf(job); }),
      m_startButton(controls::MakeButton(u"Command1"_s, QString(), this, m_parts.handlers,
                                         [this] { Command1_Click(); })),
      m_lapButton(controls::MakeButton(u"Command2"_s, QString(), this, m_parts.handlers,
                                       [this] { Command2_Click(); })),
      m_printButton(controls::MakeButton(u"Command3"_s, u"印刷"_s, this, m_parts.handlers,
                                         [this] { Command3_Click(); })),
      m_helpButton(controls::MakeButton(u"Command4"_s, u"ヘルプ"_s, this, m_parts.handlers,
                                        [this] { Command4_Click(); })),
      m_copyButton(controls::MakeButton(u"Command5"_s, u"コピー"_s, this, m_parts.handlers,
                                        [this] { Command5_Click(); })),
      m_saveButton(controls::MakeButton(u"Command6"_s, u"保存..."_s, this, m_parts.handlers,
                                        [this] { Command6_Click(); })),
      m_lapList(controls::Named(new QPlainTextEdit(this), u"Text1"_s, u"ラップ/経歴一覧表"_s)),
      m_announcer(new controls::Announcer(this)) {
    setObjectName(u"StopForm"_s);
    setWindowTitle(u"ストップウォッチ"_s);
    m_lapList->setReadOnly(true);
    m_lapList->setUndoRedoEnabled(false);
    m_lapList->setTabChangesFocus(true);
    m_lapList->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_copyButton->setAccessibleDescription(u"ラップの一覧を、表としてクリップボードに入れます"_s);
    m_saveButton->setAccessibleDescription(u"ラップの一覧を、CSVファイルに保存します"_s);
    LayOut();
    ShowCaptions();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpStopwatch);
}

void StopForm::LayOut() {
    auto* above = new QHBoxLayout;
    above->addWidget(m_startButton, 1);
    above->addWidget(m_lapButton, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(above);
    all->addWidget(m_lapList, 1);
    all->addLayout(RowAtTheRight({m_printButton, m_helpButton}));
    all->addLayout(RowAtTheRight({m_copyButton, m_saveButton}));
    m_lapList->setMinimumSize(PlainWidth(*m_lapList), kListLines * m_lapList->fontMetrics().lineSpacing());
    setTabOrder(m_startButton, m_lapButton);
    setTabOrder(m_lapButton, m_lapList);
    setTabOrder(m_lapList, m_printButton);
    setTabOrder(m_printButton, m_helpButton);
    setTabOrder(m_helpButton, m_copyButton);
    setTabOrder(m_copyButton, m_saveButton);
    m_startButton->setDefault(true);
}

void StopForm::MakeRoom() {
    const bool hasIntervals =
        m_parts.further.corrections.lapIntervals || FindInterval(m_parts.panel.List()) >= 0;
    const int width = hasIntervals ? WidthOfIntervals(*m_lapList) : PlainWidth(*m_lapList);
    if (width == m_lapList->minimumWidth()) {
        return;
    }
    m_lapList->setMinimumWidth(width);
    layout()->activate();  // widens the window at once
    const QRect room = screen()->availableGeometry();
    const int beyond = frameGeometry().right() - room.right();
    if (isVisible() && beyond > 0) {
        move(std::max(room.left(), frameGeometry().left() - beyond), frameGeometry().top());
    }
}

void StopForm::BringUp() {
    if (!isVisible()) {
        Form_Load();
    }
    controls::BringForward(*this);
}

void StopForm::Refresh() {
    if (isVisible()) {
        ShowState();
    }
}

void StopForm::Form_Load() {
    m_parts.handlers.Run(m_parts.enterFolder);
    m_parts.panel.Load();
    ShowState();
    m_startButton->setFocus();
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
    const qsizetype before = m_parts.panel.List().size();
    const auto shown = qScopeGuard([this] { ShowState(); });  // even a failed stop changes the state
    m_parts.panel.StartOrStop();
    if (m_parts.panel.List().size() > before) {
        AnnounceLastLine();
    }
}

void StopForm::Command2_Click() {
    m_parts.panel.LapOrReset();
    ShowState();
    AnnounceLastLine();
}

/// The focus is not on the list, so screen readers would not notice the new line.
void StopForm::AnnounceLastLine() {
    const QString& list = m_parts.panel.List();
    m_announcer->Announce(list.mid(list.lastIndexOf(u'\n') + 1));
}

/// Allows one question and then one print at a time; either may end after the window was closed.
void StopForm::Command3_Click() {
    const bool hadFocus = focusWidget() == m_printButton;
    m_printButton->setEnabled(false);  // this moves the focus away from it
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

/// Returns the focus to the button, unless the user has moved it in the meantime.
void StopForm::EnablePrinting() {
    m_printButton->setEnabled(true);
    if (m_focusInstead != nullptr && focusWidget() == m_focusInstead) {
        m_printButton->setFocus();
    }
}

void StopForm::Print() {
    m_printing.Print({.title = windowTitle(),
                      .lines = LapReport(m_parts.version, m_parts.clock.Now(), m_parts.panel.List())},
                     [this] { EnablePrinting(); });
}

void StopForm::Command4_Click() {
    m_parts.help.ShowTopic(kHelpStopwatch);
}

void StopForm::Command5_Click() {
    LapExport::Copy(m_parts.panel.List());
}

void StopForm::Command6_Click() {
    m_export.Save(m_parts.panel.List());
}

/// The report as it would have been printed.
void StopForm::KeepAsPdf(PrintJob job) {
    m_export.ChoosePdf([this, job = std::move(job)](const QString& path) mutable {
        if (m_printing.IsBusy()) {
            throw RunTimeError(u"印刷が終わってから、もう一度保存してください。"_s);
        }
        job.file = path;
        m_printButton->setEnabled(false);
        m_printing.Print(job, [this] { EnablePrinting(); });
    });
}

void StopForm::ShowState() {
    ShowCaptions();
    ShowList();
}

void StopForm::ShowCaptions() {
    const StopwatchCaptions captions = m_parts.panel.Captions();
    controls::SetCaption(*m_startButton, captions.startOrStop.toString());
    controls::SetCaption(*m_lapButton, captions.lapOrReset.toString());
}

/// Appends only new text: setting the complete text for each lap would take longer with every lap. The text
/// box is never read, because it does not preserve carriage returns.
void StopForm::ShowList() {
    if (m_parts.further.corrections.lapIntervals) {
        MakeRoom();
    }
    const QString& list = m_parts.panel.List();
    if (m_shownList != m_parts.panel.ListNumber()) {
        m_shownList = m_parts.panel.ListNumber();
        m_lapList->setPlainText(list);
    } else {
        QTextCursor end(m_lapList->document());
        end.movePosition(QTextCursor::End);
        end.insertText(list.mid(m_shownLength));
    }
    m_shownLength = list.size();
    EnableExport(!list.isEmpty());
    m_lapList->moveCursor(QTextCursor::End);
}

void StopForm::EnableExport(bool hasLaps) {
    for (QPushButton* button : {m_copyButton, m_saveButton}) {
        if (!hasLaps && focusWidget() == button) {
            m_lapButton->setFocus();  // the focus of a button that is disabled would go anywhere
        }
        button->setEnabled(hasLaps);
    }
}

}  // namespace tickwell::timing
