// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/exchange_frame.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "controls/wrapped_label.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

using Open = std::function<void(QWidget* owner)>;

QPushButton* MakeOpener(const QString& name, const QString& caption, const QString& spoken, const Open& open,
                        Handlers& handlers, QWidget* parent) {
    auto* button =
        controls::MakeButton(name, caption, parent, handlers, [open, parent] { open(parent->window()); });
    button->setAutoDefault(false);
    button->setAccessibleName(spoken);
    button->setEnabled(open != nullptr);
    return button;
}

}  // namespace

ExchangeFrame::ExchangeFrame(const SettingsParts& parts, QWidget* parent)
    : QGroupBox(u"記念日の受け渡し"_s, parent) {
    setObjectName(u"Frame70"_s);
    const ExchangeOperations& open = parts.operations.exchange;
    auto* explanation = new controls::WrappedLabel(
        u"Label21"_s,
        u"ほかのカレンダーの予定（.ics）、連絡先の誕生日（.vcf）、表（.csv）を記念日に取り込みます。記念日や休日を書き出します。"_s,
        this);
    auto* row = new QHBoxLayout;
    row->addWidget(
        MakeOpener(u"Command21"_s, u"読み込む..."_s, u"記念日を読み込む"_s, open.read, parts.handlers, this));
    row->addWidget(MakeOpener(u"Command22"_s, u"書き出す..."_s, u"記念日を書き出す"_s, open.write,
                              parts.handlers, this));
    row->addStretch();
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(explanation);
    rows->addLayout(row);
}

}  // namespace tickwell::settings_ui
