// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_window.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/control_making.h"
#include "controls/plain_tool_tip.h"
#include "media/transport_icons.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 7> kButtonNames{u"前の曲に戻る", u"巻戻し", u"再生",        u"一時停止",
                                                  u"停止",         u"早送り", u"次の曲に進む"};
constexpr std::array<QStringView, 3> kFormats{u"標準", u"一曲分の残り時間", u"全曲の残り時間"};
constexpr std::array<QStringView, 3> kRepeats{u"しない", u"一曲リピート", u"全曲リピート"};

}  // namespace

CDForm::CDForm(CdPlayer& player, Handlers& handlers, QWidget* parent)
    : QDialog(parent),
      m_player(player),
      m_handlers(handlers),
      m_menuBar(new QMenuBar(this)),
      m_formatMenu(m_menuBar->addMenu(u"表示形式"_s)),
      m_repeatMenu(m_menuBar->addMenu(u"リピート"_s)),
      m_formats(new QActionGroup(this)),
      m_caption(controls::MakeLabel(u"Label1"_s, QString(), this)),
      m_title(controls::MakeLabel(u"Label2"_s, QString(), this)) {
    setObjectName(u"CDForm"_s);
    setWindowTitle(u"CDプレーヤー"_s);
    m_caption->setAlignment(Qt::AlignCenter);
    m_caption->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // the buttons decide on the width
    MakeMenus();
    for (int index = kCdPrevious; index <= kCdNext; ++index) {
        m_buttons[static_cast<std::size_t>(index)] = MakePlayerButton(index);
    }
    LayOut();
    m_player.SetWindow([this] { ShowPlayer(); });
    ShowPlayer();
}

CDForm::~CDForm() {
    m_player.SetWindow({});
    m_player.Command1_Release();
    m_player.ShowWindow(false);
}

void CDForm::MakeMenus() {
    m_menuBar->setNativeMenuBar(false);  // a global menu bar would leave the window without its menu
    m_formatMenu->setObjectName(u"cdtm"_s);
    m_repeatMenu->setObjectName(u"cdtm1"_s);
    m_formats->setExclusive(true);
    for (int index = 1; index <= 3; ++index) {  // their indexes start at 1
        const auto row = static_cast<std::size_t>(index - 1);
        QAction* format = m_formatMenu->addAction(kFormats[row].toString());
        format->setObjectName(controls::Indexed(u"cdm"_s, index));
        format->setCheckable(true);
        m_formats->addAction(format);
        m_handlers.Connect(format, &QAction::triggered, this, [this, index] { m_player.cdm_Click(index); });
        QAction* repeat = m_repeatMenu->addAction(kRepeats[row].toString());
        repeat->setObjectName(controls::Indexed(u"cdr"_s, index));  // has no effect: nothing is ever repeated
    }
}

QPushButton* CDForm::MakePlayerButton(int index) {
    const QString name = kButtonNames[static_cast<std::size_t>(index)].toString();
    auto* button = controls::MakeButton(controls::Indexed(u"Command1"_s, index), QString(), this, m_handlers,
                                        [this, index] { m_player.Command1_Click(index); });
    button->setIcon(TransportIcon(index));
    button->setToolTip(name);
    button->setAccessibleName(name);
    m_handlers.Connect(button, &QPushButton::pressed, this,
                       [this, index] { m_player.Command1_Press(index); });
    m_handlers.Connect(button, &QPushButton::released, this, [this] { m_player.Command1_Release(); });
    return button;
}

void CDForm::LayOut() {
    QFont large = m_caption->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    m_caption->setFont(large);
    m_caption->setMargin(fontMetrics().height() / 2);
    const int side = fontMetrics().height() * 3 / 2;
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : m_buttons) {
        button->setIconSize({side, side});
        buttons->addWidget(button);
    }
    auto* whole = new QVBoxLayout(this);
    whole->setMenuBar(m_menuBar);
    whole->addWidget(m_caption);
    whole->addWidget(m_title);
    whole->addLayout(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    m_buttons[kCdPlay]->setFocus();
}

void CDForm::ShowPlayer() {
    const CdControls& controls = m_player.Controls();
    EnableButtons(controls.buttons);
    m_formatMenu->setEnabled(controls.menus);
    m_repeatMenu->setEnabled(controls.menus);
    m_caption->setText(controls.caption);
    ShowTitle();
    m_formats->actions().at(m_player.State().CdDisplayFormat)->setChecked(true);
}

/// Shows the title of the disc while no track is chosen. A title that does not fit is complete in the tool
/// tip and for screen readers.
void CDForm::ShowTitle() {
    const CdTexts& texts = m_player.Texts();
    const QString title = texts.Title(m_player.State().CdTrack);
    m_title->setVisible(texts.HasTitles());
    m_title->setText(m_title->fontMetrics().elidedText(title, Qt::ElideRight, m_title->width()));
    m_title->setToolTip(controls::PlainToolTip(m_title->text() == title ? QString() : title));
    m_title->setAccessibleName(title);
}

/// A focused button that becomes disabled would lose the keyboard focus, so the focus moves to the button
/// that is probably needed next.
void CDForm::EnableButtons(const CdButtons& enabled) {
    for (std::size_t index = 0; index < enabled.size(); ++index) {
        if (enabled[index]) {
            m_buttons[index]->setEnabled(true);
        }
    }
    const auto* focused = std::find(m_buttons.begin(), m_buttons.end(), focusWidget());
    if (focusWidget() == nullptr ||
        (focused != m_buttons.end() && !enabled[static_cast<std::size_t>(focused - m_buttons.begin())])) {
        m_buttons[enabled[kCdPlay] ? kCdPlay : kCdPause]->setFocus();
    }
    for (std::size_t index = 0; index < enabled.size(); ++index) {
        m_buttons[index]->setEnabled(enabled[index]);
    }
}

void CDForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) {
        m_handlers.Run([this] { m_player.ShowWindow(true); });
    }
}

/// The layout has changed the width available to the title.
void CDForm::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    ShowTitle();
}

void CDForm::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous()) {
        m_player.Command1_Release();
        m_player.ShowWindow(false);
    }
}

}  // namespace tickwell::media
