// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/see_through_frame.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QStyle>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "controls/wrapped_label.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kWithoutIcon =
    u"このデスクトップには、今は通知領域（タスクトレイ）がありません。\r\n"
    u"クリックを下の窓に通すと、Tickwellをマウスで動かしたり、メニューを開いたりできなくなります。\r\n"
    u"元に戻すには、端末などで「tickwell "
    u"--menu」を実行してメニューを開き、「クリックを受ける」を選びます。\r\n"
    u"クリックを下の窓に通しますか？";

}  // namespace

SeeThroughFrame::SeeThroughFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"透過"_s, parent),
      m_parts(parts),
      m_draft(draft),
      m_transparent(
          controls::Named(new QCheckBox(u"背景を透明にし、文字だけを見せる"_s, this), u"Check19"_s)),
      m_outlineLabel(controls::MakeLabel(u"Label11"_s, u"文字の縁取り"_s, this)),
      m_outlines(u"Option12"_s, kOutlineOptions, this, parts.handlers,
                 [this](qint32 index) { m_draft.further.face.outline = index; }) {
    setObjectName(u"Frame19"_s);
    m_parts.handlers.Connect(m_transparent, &QCheckBox::clicked, this, [this] { Check19_Click(); });
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(m_transparent);
    rows->addLayout(MakeOutline());
    m_passesClicks = controls::Named(new QCheckBox(u"クリックを下の窓に通す"_s, this), u"Check20"_s);
    m_parts.handlers.Connect(m_passesClicks, &QCheckBox::clicked, this, [this] { Check20_Click(); });
    rows->addWidget(m_passesClicks);
}

/// The outline options, indented to show that they belong to the check box above.
QLayout* SeeThroughFrame::MakeOutline() {
    const int indent = style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                       style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    auto* options = new QHBoxLayout;
    options->addWidget(m_outlineLabel);
    for (QAbstractButton* option : m_outlines.Buttons()) {
        option->setAccessibleName(m_outlineLabel->text() + u" "_s + option->text());
        options->addWidget(option);
    }
    options->addStretch();
    auto* rows = new QVBoxLayout;
    rows->setContentsMargins(indent, 0, 0, 0);
    rows->addLayout(options);
    rows->addWidget(new controls::WrappedLabel(
        u"Label12"_s, u"次に起動したときから透明になります。縁取りは背景色で描きます。"_s, this));
    return rows;
}

void SeeThroughFrame::Form_Load() {
    const FaceSettings& face = m_draft.further.face;
    m_transparent->setChecked(face.transparent);
    m_outlines.Select(face.outline);
    m_outlines.SetEnabled(face.transparent);
    m_outlineLabel->setEnabled(face.transparent);
    m_passesClicks->setChecked(face.clickThrough);
}

void SeeThroughFrame::Check19_Click() {
    const bool isOn = m_transparent->isChecked();
    m_draft.further.face.transparent = isOn;
    m_outlines.SetEnabled(isOn);
    m_outlineLabel->setEnabled(isOn);
}

/// Without a tray icon the option could not be turned off with the mouse, so the user has to confirm it.
void SeeThroughFrame::Check20_Click() {
    const bool passes = m_passesClicks->isChecked();
    if (passes && !m_parts.operations.hasTray()) {
        AskForClickThrough();
    } else {
        ChooseClickThrough(passes, false);
    }
}

void SeeThroughFrame::AskForClickThrough() {
    m_passesClicks->setChecked(false);  // until the user has agreed
    const QPointer<SeeThroughFrame> self(this);
    m_parts.boxes.Ask(this, {MessageIcon::Question, m_passesClicks->text(), kWithoutIcon.toString()},
                      [self](bool agrees) {
                          if (self != nullptr && agrees) {
                              self->ChooseClickThrough(true, true);
                          }
                      });
}

void SeeThroughFrame::ChooseClickThrough(bool passes, bool withoutIcon) {
    m_passesClicks->setChecked(passes);
    m_draft.further.face.clickThrough = passes;
    m_draft.further.face.clickThroughWithoutIcon = withoutIcon;
}

}  // namespace tickwell::settings_ui
