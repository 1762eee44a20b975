// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/database_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/control_making.h"

namespace tickwell {

using namespace Qt::StringLiterals;

DatabasePage::DatabasePage(const SettingsParts& parts, QWidget* parent) : QWidget(parent) {
    setObjectName(u"Picture5"_s);
    auto* frame = Named(new QGroupBox(u"記念日/スケジュール データベースの最適化"_s, this), u"Frame11"_s);
    auto* compact = Named(new QPushButton(u"データベースの最適化＞＞"_s, this), u"Command4"_s);
    compact->setAutoDefault(false);
    compact->setEnabled(parts.operations.compact != nullptr);
    parts.handlers.Connect(compact, &QPushButton::clicked, this, parts.operations.compact);
    auto* explanation = Named(
        new QLabel(
            u"実行すると、データベースの容量を減らし、読み込み速度を向上することができます。大量に記念日やスケジュールの内容を変更したときは実行するようにしてください。"_s,
            this),
        u"Label5"_s);
    explanation->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(compact);
    row->addStretch();
    auto* inner = new QVBoxLayout(frame);
    inner->addWidget(explanation);
    inner->addLayout(row);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(frame);
    rows->addStretch();
}

}  // namespace tickwell
