// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/deletion_window.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QVBoxLayout>
#include <algorithm>

#include "book/anniversary_deletion.h"
#include "controls/control_making.h"
#include "days/day_list_model.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLines = 12;    // minimum height of the list
constexpr int kLetters = 24;  // its minimum width

}  // namespace

Form10::Form10(const BookParts& parts, QWidget* parent)
    : BookWindow(parts, parent), m_rows(parts.list.Rows()) {
    setObjectName(u"Form10"_s);
    setWindowTitle(u"記念日の削除"_s);
    MakeControls();
    Form_Load();
    Connect();
}

void Form10::MakeControls() {
    auto* listLabel = controls::Named(new QLabel(u"記念日を削除します"_s), u"Label1"_s);
    m_anniversaries = controls::Named(new TickList, u"List1"_s, listLabel->text());
    m_anniversaries->setMinimumSize(kLetters * fontMetrics().horizontalAdvance(u'記'),
                                    kLines * fontMetrics().height());
    listLabel->setBuddy(m_anniversaries);
    m_tickedCount = controls::MakeLabel(u"Label2"_s);
    m_tickAllButton = controls::Named(new QPushButton(u"全選"_s), u"Command3"_s, u"全選択"_s);
    m_untickAllButton = controls::Named(new QPushButton(u"全解"_s), u"Command4"_s, u"全解除"_s);

    auto* ticking = new QHBoxLayout;
    ticking->addWidget(m_tickAllButton);
    ticking->addWidget(m_untickAllButton);
    ticking->addStretch();
    ticking->addWidget(m_tickedCount);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(listLabel);
    rows->addWidget(m_anniversaries);
    rows->addLayout(ticking);
    rows->addSpacing(fontMetrics().height() / 2);
    AddButtons(*rows, u"削除"_s, u"削除しています"_s, [this] { Command1_Click(); });
}

void Form10::Form_Load() {
    auto* model = new days::DayListModel(QVariant(), days::DayListModel::Columns::Name, m_anniversaries);
    model->SetRows(m_rows);
    m_anniversaries->setModel(model);
    m_isTicked.assign(static_cast<std::size_t>(m_rows.Count()), false);
    ShowCount();
    m_anniversaries->setFocus();
}

void Form10::Connect() {
    Handlers& handlers = Parts().handlers;
    handlers.Connect(m_anniversaries->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                     [this] { List1_Click(); });
    handlers.Connect(m_tickAllButton, &QPushButton::clicked, this, [this] { Command3_Click(); });
    handlers.Connect(m_untickAllButton, &QPushButton::clicked, this, [this] { Command4_Click(); });
}

/// Handles selection by mouse and keyboard: copies the selection to the ticks and updates the count.
void Form10::List1_Click() {
    std::fill(m_isTicked.begin(), m_isTicked.end(), false);
    for (const QItemSelectionRange& range : m_anniversaries->selectionModel()->selection()) {
        std::fill(m_isTicked.begin() + range.top(), m_isTicked.begin() + range.bottom() + 1, true);
    }
    ShowCount();
}

void Form10::Command3_Click() {
    m_anniversaries->selectAll();
}

void Form10::Command4_Click() {
    m_anniversaries->clearSelection();
}

void Form10::ShowCount() {
    const auto ticked = std::count(m_isTicked.begin(), m_isTicked.end(), true);
    m_tickedCount->setText(TickedText(ticked));
    StartButton().setEnabled(ticked > 0);
}

void Form10::Command1_Click() {
    auto deletion = DeletionOf(Parts().dayDatabase, m_rows, m_isTicked, Parts().further.corrections);
    Work().Start(std::move(deletion), [this](const controls::WorkEnd& end) {
        Parts().changes.RaiseRefresh();  // some may be deleted even after an error
        if (end.error) {
            std::rethrow_exception(end.error);
        }
        if (!end.isStopped) {
            accept();
        }
    });
}

}  // namespace tickwell::book
