// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/remote_page.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "settings_ui/flag_boxes.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

/// Fills a frame with check boxes and an explanatory note below them.
QGroupBox* MakeFrame(QGroupBox* frame, const std::vector<QCheckBox*>& checks, QLabel* note) {
    auto* rows = new QVBoxLayout(frame);
    for (QCheckBox* check : checks) {
        rows->addWidget(check);
    }
    note->setWordWrap(true);
    rows->addWidget(note);
    return frame;
}

}  // namespace

RemotePage::RemotePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_draft(draft),
      m_checks(MakeFlagBoxes(RemoteFlags(), draft, parts.handlers, this)),
      m_cdChecks(MakeFlagBoxes(CdFlags(), draft, parts.handlers, this)) {
    setObjectName(u"Picture9"_s);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(MakeCommandsFrame());
    rows->addWidget(MakeCdFrame());
    rows->addStretch();
}

QWidget* RemotePage::MakeCommandsFrame() {
    auto* frame = controls::Named(new QGroupBox(u"ほかのプログラム"_s, this), u"Frame20"_s);
    auto* note = controls::MakeLabel(u"Label30"_s,
                                     u"コマンド tickwell --show、--stopwatch、--timer と、セッションバスの "
                                     u"local.tickwell.tickwell で、この時計を操作できるようになります。"_s,
                                     frame);
    return MakeFrame(frame, m_checks, note);
}

QWidget* RemotePage::MakeCdFrame() {
    auto* frame = controls::Named(new QGroupBox(u"CDプレーヤー"_s, this), u"Frame21"_s);
    auto* note =
        controls::MakeLabel(u"Label31"_s,
                            u"キーボードなどのメディアキーとデスクトップの再生ボタンは、CDが入っていて、"
                            u"CDプレーヤーを一度開いた後に届きます。"_s,
                            frame);
    return MakeFrame(frame, m_cdChecks, note);
}

void RemotePage::Form_Load() {
    ShowFlags(RemoteFlags(), m_checks, m_draft);
    ShowFlags(CdFlags(), m_cdChecks, m_draft);
}

}  // namespace tickwell::settings_ui
