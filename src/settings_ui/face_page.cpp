// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/face_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/control_making.h"
#include "controls/wrapped_label.h"
#include "settings_ui/flag_boxes.h"
#include "settings_ui/flag_rows.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

// percent
constexpr int kLeast = 20;
constexpr int kMost = 100;
constexpr int kStep = 5;

constexpr auto kEllipsis = static_cast<qint32>(LongText::Ellipsis);
constexpr auto kScrollOnce = static_cast<qint32>(LongText::ScrollOnce);

/// Adds a column of frames, from top to bottom, as wide as the other columns.
void AddColumn(QHBoxLayout& columns, const QList<QWidget*>& frames) {
    auto* rows = new QVBoxLayout;
    for (QWidget* frame : frames) {
        rows->addWidget(frame);
    }
    rows->addStretch();
    columns.addLayout(rows, 1);
}

}  // namespace

FacePage::FacePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_parts(parts),
      m_draft(draft),
      m_opacity(controls::Named(new QSlider(Qt::Horizontal, this), u"Slider2"_s, u"不透明度"_s)),
      m_percent(controls::Named(new controls::NumberBox(u"UpDown2"_s, u"Text2"_s, this), u"UpDown2"_s,
                                u"不透明度（パーセント）"_s)),
      m_marksLongText(controls::Named(new QCheckBox(u"長い文字を省略記号で示す"_s, this), u"Check17"_s)),
      m_longTextOptions(u"Option11"_s, kLongTextOptions, this, parts.handlers,
                        [this](qint32 index) { Option11_Click(index); }) {
    setObjectName(u"Picture8"_s);
    m_parts.handlers.Connect(m_marksLongText, &QCheckBox::clicked, this, [this] { Check17_Click(); });
    MakeOpacity();
    QWidget* const look = MakeLookFrame();
    m_seeThrough = new SeeThroughFrame(parts, draft, this);  // created in Tab order
    QWidget* const place = MakePlaceFrame();
    m_zone = new ZoneFrame(parts, draft, this);
    QWidget* const keyboard = MakeKeyboardFrame();
    // Two columns: one would be higher than small screens at 200 %.
    auto* columns = new QHBoxLayout(this);
    AddColumn(*columns, {look, m_seeThrough});
    AddColumn(*columns, {place, m_zone, keyboard});
}

void FacePage::MakeOpacity() {
    m_opacity->setRange(kLeast, kMost);
    m_opacity->setPageStep(kStep);
    m_percent->setRange(kLeast, kMost);
    m_percent->setSingleStep(kStep);
    m_percent->setSuffix(u" %"_s);
    m_parts.handlers.Connect(m_opacity, &QSlider::valueChanged, this,
                             [this] { Slider2_Change(m_opacity->value()); });
    m_parts.handlers.Connect(m_percent, &QSpinBox::valueChanged, this,
                             [this] { UpDown2_Change(m_percent->value()); });
}

QWidget* FacePage::MakeLookFrame() {
    auto* frame = controls::Named(new QGroupBox(u"見た目"_s, this), u"Frame16"_s);
    auto* label = controls::MakeLabel(u"Label9"_s, u"不透明度"_s, this);
    label->setBuddy(m_opacity);
    auto* opacity = new QHBoxLayout;
    opacity->addWidget(label);
    opacity->addWidget(m_opacity, 1);
    opacity->addWidget(m_percent);
    auto* options = new QVBoxLayout;
    options->setContentsMargins(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                    style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing),
                                0, 0, 0);
    for (QAbstractButton* option : m_longTextOptions.Buttons()) {
        options->addWidget(option);
    }
    auto* rows = new QVBoxLayout(frame);
    rows->addLayout(opacity);
    if (m_parts.operations.isComposited && !m_parts.operations.isComposited()) {
        rows->addWidget(new controls::WrappedLabel(
            u"Label10"_s, u"このデスクトップでは、今は窓が透けません（コンポジターが動いていません）。"_s,
            this));
    }
    rows->addWidget(m_marksLongText);
    rows->addLayout(options);
    return frame;
}

QWidget* FacePage::MakePlaceFrame() {
    auto* frame = controls::Named(new QGroupBox(u"場所"_s, this), u"Frame17"_s);
    auto* rows = new QVBoxLayout(frame);
    m_placeChecks = MakeFlagBoxes(PlaceFlags(), m_draft, m_parts.handlers, this);
    for (QCheckBox* check : m_placeChecks) {
        rows->addWidget(check);
    }
    return frame;
}

QWidget* FacePage::MakeKeyboardFrame() {
    auto* frame = controls::Named(new QGroupBox(u"キーボード"_s, this), u"Frame40"_s);
    auto* rows = new QVBoxLayout(frame);
    m_keyboardChecks = MakeFlagBoxes(KeyboardFlags(), m_draft, m_parts.handlers, this);
    for (QCheckBox* check : m_keyboardChecks) {
        rows->addWidget(check);
    }
    return frame;
}

void FacePage::Form_Load() {
    const FaceSettings& face = m_draft.further.face;
    const int percent = std::clamp(face.opacity, kLeast, kMost);
    {
        const QSignalBlocker quietSlider(m_opacity);  // a clamped opacity must not reach the draft
        const QSignalBlocker quietBox(m_percent);
        m_opacity->setValue(percent);
        m_percent->setValue(percent);
    }
    const bool marks = face.longText == kEllipsis || face.longText == kScrollOnce;
    m_chosenLongText = marks ? face.longText : kEllipsis;
    m_marksLongText->setChecked(marks);
    m_longTextOptions.Select(m_chosenLongText);
    m_longTextOptions.SetEnabled(marks);
    m_seeThrough->Form_Load();
    ShowFlags(PlaceFlags(), m_placeChecks, m_draft);
    m_zone->Form_Load();
    ShowFlags(KeyboardFlags(), m_keyboardChecks, m_draft);
}

void FacePage::Slider2_Change(int percent) {
    m_draft.further.face.opacity = percent;
    const QSignalBlocker quiet(m_percent);
    m_percent->setValue(percent);
}

void FacePage::UpDown2_Change(int percent) {
    m_draft.further.face.opacity = percent;
    const QSignalBlocker quiet(m_opacity);
    m_opacity->setValue(percent);
}

void FacePage::Check17_Click() {
    const bool marks = m_marksLongText->isChecked();
    m_draft.further.face.longText = marks ? m_chosenLongText : static_cast<qint32>(LongText::CutOff);
    m_longTextOptions.SetEnabled(marks);
}

void FacePage::Option11_Click(qint32 index) {
    m_chosenLongText = index;
    m_draft.further.face.longText = index;
}

}  // namespace tickwell::settings_ui
