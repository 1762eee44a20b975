// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/text_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "controls/access_keys.h"
#include "controls/control_making.h"
#include "controls/help_key.h"
#include "settings_ui/colour_picking.h"
#include "settings_ui/style_picker.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

// At the fastest speed, the frames of a wipe are 2 ms apart.
constexpr int kSlowest = 1;
constexpr int kFastest = 34;
constexpr int kSpeedPage = 5;

}  // namespace

TextPage::TextPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_parts(parts),
      m_draft(draft),
      m_wipeOptions(u"Option2"_s, kWipeOptions, this, parts.handlers,
                    [this](qint32 index) { Option2_Click(index); }),
      m_speed(controls::Named(new QSlider(Qt::Horizontal, this), u"Slider1"_s, u"ｽｸﾛｰﾙ速度"_s)),
      m_sample(
          controls::Named(new SampleFrame(parts.clock, parts.timers, parts.handlers, this), u"Frame2"_s)) {
    setObjectName(u"Picture1"_s);
    QLayout* buttons = MakeButtons();
    auto* grid = new QGridLayout(this);
    grid->addWidget(MakeWipeFrame(), 0, 0);
    grid->addWidget(m_sample, 0, 1);
    grid->addWidget(MakeSpeedFrame(), 1, 0, 1, 2);
    grid->addLayout(buttons, 2, 0, 1, 2);
    m_autostart = MakeAutostart();  // created after the buttons because of the Tab order
    grid->addWidget(m_autostart, 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(4, 1);
}

QCheckBox* TextPage::MakeAutostart() {
    auto* box = controls::Named(new QCheckBox(u"ログイン時に起動する"_s, this), u"Autostart"_s);
    m_parts.handlers.Connect(box, &QCheckBox::clicked, this,
                             [this, box] { m_draft.startsAtLogin = box->isChecked(); });
    return box;
}

QWidget* TextPage::MakeWipeFrame() {
    auto* frame = controls::Named(new QGroupBox(u"ワイプ形式"_s, this), u"Frame1"_s);
    auto* rows = new QVBoxLayout(frame);
    for (QAbstractButton* option : m_wipeOptions.Buttons()) {
        rows->addWidget(option);
    }
    rows->addStretch();
    return frame;
}

QWidget* TextPage::MakeSpeedFrame() {
    auto* frame = controls::Named(new QGroupBox(u"ｽｸﾛｰﾙ速度"_s, this), u"Frame3"_s);
    m_speed->setRange(kSlowest, kFastest);
    m_speed->setPageStep(kSpeedPage);
    m_parts.handlers.Connect(m_speed, &QSlider::valueChanged, this, [this] { Slider1_Change(); });
    auto* row = new QHBoxLayout(frame);
    row->addWidget(new QLabel(u"遅い"_s, this));
    row->addWidget(m_speed);
    row->addWidget(new QLabel(u"速い"_s, this));
    return frame;
}

QLayout* TextPage::MakeButtons() {
    Handlers& handlers = m_parts.handlers;
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {controls::MakeButton(u"Command6"_s, u"上段文字＞＞"_s, this, handlers,
                                                     [this] { Command6_Click(); }),
                                controls::MakeButton(u"Command7"_s, u"下段文字＞＞"_s, this, handlers,
                                                     [this] { Command7_Click(); }),
                                controls::MakeButton(u"Command5"_s, u"背景色＞＞"_s, this, handlers,
                                                     [this] { Command5_Click(); })}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    return buttons;
}

void TextPage::Form_Load() {
    const QSignalBlocker quiet(m_speed);  // a clamped speed must not reach the draft
    m_speed->setValue(m_draft.settings.wipeSpeed);
    m_wipeOptions.Select(m_draft.settings.wipeKind);
    m_autostart->setChecked(m_parts.autostart.IsOn());
    RefreshSample();
}

void TextPage::Option2_Click(qint32 index) {
    m_draft.settings.wipeKind = index;
    RefreshSample();
}

void TextPage::Slider1_Change() {
    m_draft.settings.wipeSpeed = m_speed->value();
    RefreshSample();
}

void TextPage::Command5_Click() {
    OpenColourPicker(m_parts.handlers, u"背景色"_s, m_draft.settings.backColor, this, [this](qint32 color) {
        m_draft.settings.backColor = color;
        RefreshSample();
    });
}

void TextPage::Command6_Click() {
    PickStyle(u"上段文字"_s, m_draft.settings.upper);
}

void TextPage::Command7_Click() {
    PickStyle(u"下段文字"_s, m_draft.settings.lower);
}

void TextPage::PickStyle(const QString& title, LineStyle& style) {
    auto* picker = new StylePicker(m_parts.handlers, title, style, m_draft.settings.backColor, this);
    picker->setAttribute(Qt::WA_DeleteOnClose);
    controls::OpenHelpByKey(*picker, m_parts.handlers, m_parts.help, kHelpTextPage);
    controls::ShowAccessKeys(*picker, m_parts.further.keyboard.showsAccessKeys);
    m_parts.handlers.Connect(picker, &QDialog::accepted, this, [this, picker, &style] {
        style = picker->Picked();
        RefreshSample();
    });
    picker->open();
}

}  // namespace tickwell::settings_ui
