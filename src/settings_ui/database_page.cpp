// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/database_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <utility>

#include "controls/control_making.h"
#include "settings_ui/backup_frame.h"
#include "settings_ui/exchange_frame.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

DatabasePage::DatabasePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_parts(parts),
      m_compactButton(controls::MakeButton(u"Command4"_s, u"データベースの最適化＞＞"_s, this, parts.handlers,
                                           [this] { Command4_Click(); })),
      m_progress(controls::Named(new QLabel(u"最適化しています…"_s, this), u"Progress"_s)),
      m_syncFrame(new SyncFrame(parts, draft, this)) {
    setObjectName(u"Picture5"_s);
    auto* frame =
        controls::Named(new QGroupBox(u"記念日/スケジュール データベースの最適化"_s, this), u"Frame11"_s);
    m_compactButton->setAutoDefault(false);
    m_progress->hide();
    m_compactButton->setEnabled(parts.operations.compact != nullptr);
    auto* explanation = controls::Named(
        new QLabel(
            u"実行すると、データベースの容量を減らし、読み込み速度を向上することができます。大量に記念日やスケジュールの内容を変更したときは実行するようにしてください。"_s,
            this),
        u"Label5"_s);
    explanation->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(m_compactButton);
    row->addWidget(m_progress);
    row->addStretch();
    auto* inner = new QVBoxLayout(frame);
    inner->addWidget(explanation);
    inner->addLayout(row);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(frame);
    rows->addWidget(new ExchangeFrame(parts, this));
    rows->addWidget(new BackupFrame(parts, draft, this));
    rows->addWidget(m_syncFrame);
    rows->addStretch();
}

void DatabasePage::Command4_Click() {
    SetRunning(true);
    try {
        m_parts.operations.compact([page = QPointer(this)] {
            if (page) {  // the dialog may have been closed in the meantime
                page->SetRunning(false);
            }
        });
    } catch (...) {
        SetRunning(false);
        throw;
    }
}

void DatabasePage::SetRunning(bool isRunning) {
    m_progress->setVisible(isRunning);
    const bool hadFocus = m_compactButton->hasFocus();
    m_compactButton->setEnabled(!isRunning);
    if (isRunning && hadFocus) {
        m_takesFocusBack = true;
    } else if (!isRunning && std::exchange(m_takesFocusBack, false)) {
        m_compactButton->setFocus();
    }
}

}  // namespace tickwell::settings_ui
