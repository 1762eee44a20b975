// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_window.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "media/transport_icons.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 7> kButtonNames{u"前の曲に戻る", u"巻戻し", u"再生",        u"一時停止",
                                                  u"停止",         u"早送り", u"次の曲に進む"};
constexpr std::array<QStringView, 3> kFormats{u"標準", u"一曲分の残り時間", u"全曲の残り時間"};
constexpr std::array<QStringView, 3> kRepeats{u"しない", u"一曲リピート", u"全曲リピート"};

QString Indexed(const QString& name, int index) {
    return u"%1(%2)"_s.arg(name).arg(index);
}

}  // namespace

CDForm::CDForm(CdPlayer& player, Handlers& handlers, QWidget* parent)
    : QDialog(parent),
      m_player(player),
      m_handlers(handlers),
      m_menuBar(new QMenuBar(this)),
      m_cdtm(m_menuBar->addMenu(u"表示形式"_s)),
      m_cdtm1(m_menuBar->addMenu(u"リピート"_s)),
      m_cdm(new QActionGroup(this)),
      m_Label1(new QLabel(this)) {
    setObjectName(u"CDForm"_s);
    setWindowTitle(u"CDプレーヤー"_s);
    m_Label1->setObjectName(u"Label1"_s);
    m_Label1->setTextFormat(Qt::PlainText);
    m_Label1->setAlignment(Qt::AlignCenter);
    m_Label1->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    MakeMenus();
    for (int index = kCdPrevious; index <= kCdNext; ++index) {
        m_Command1[static_cast<std::size_t>(index)] = MakeButton(index);
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
    m_cdtm->setObjectName(u"cdtm"_s);
    m_cdtm1->setObjectName(u"cdtm1"_s);
    m_cdm->setExclusive(true);
    for (int index = 1; index <= 3; ++index) {  // their indexes start at 1
        const auto row = static_cast<std::size_t>(index - 1);
        QAction* format = m_cdtm->addAction(kFormats[row].toString());
        format->setObjectName(Indexed(u"cdm"_s, index));
        format->setCheckable(true);
        m_cdm->addAction(format);
        m_handlers.Connect(format, &QAction::triggered, this, [this, index] { m_player.cdm_Click(index); });
        QAction* repeat = m_cdtm1->addAction(kRepeats[row].toString());
        repeat->setObjectName(Indexed(u"cdr"_s, index));  // has no effect: nothing is ever repeated
    }
}

QPushButton* CDForm::MakeButton(int index) {
    const QString name = kButtonNames[static_cast<std::size_t>(index)].toString();
    auto* button = new QPushButton(this);
    button->setObjectName(Indexed(u"Command1"_s, index));
    button->setIcon(TransportIcon(index));
    button->setToolTip(name);
    button->setAccessibleName(name);
    m_handlers.Connect(button, &QPushButton::clicked, this,
                       [this, index] { m_player.Command1_Click(index); });
    m_handlers.Connect(button, &QPushButton::pressed, this,
                       [this, index] { m_player.Command1_Press(index); });
    m_handlers.Connect(button, &QPushButton::released, this, [this] { m_player.Command1_Release(); });
    return button;
}

void CDForm::LayOut() {
    QFont large = m_Label1->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    m_Label1->setFont(large);
    m_Label1->setMargin(fontMetrics().height() / 2);
    const int side = fontMetrics().height() * 3 / 2;
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : m_Command1) {
        button->setIconSize({side, side});
        buttons->addWidget(button);
    }
    auto* whole = new QVBoxLayout(this);
    whole->setMenuBar(m_menuBar);
    whole->addWidget(m_Label1);
    whole->addLayout(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    m_Command1[kCdPlay]->setFocus();
}

void CDForm::ShowPlayer() {
    const CdControls& controls = m_player.Controls();
    EnableButtons(controls.buttons);
    m_cdtm->setEnabled(controls.menus);
    m_cdtm1->setEnabled(controls.menus);
    m_Label1->setText(controls.caption);
    m_cdm->actions().at(m_player.State().CdDisplayFormat)->setChecked(true);
}

/// A focused button that becomes disabled would lose the keyboard focus: the focus moves to the button that
/// is probably needed next.
void CDForm::EnableButtons(const CdButtons& enabled) {
    for (std::size_t index = 0; index < enabled.size(); ++index) {
        if (enabled[index]) {
            m_Command1[index]->setEnabled(true);
        }
    }
    const auto* focused = std::find(m_Command1.begin(), m_Command1.end(), focusWidget());
    if (focusWidget() == nullptr ||
        (focused != m_Command1.end() && !enabled[static_cast<std::size_t>(focused - m_Command1.begin())])) {
        m_Command1[enabled[kCdPlay] ? kCdPlay : kCdPause]->setFocus();
    }
    for (std::size_t index = 0; index < enabled.size(); ++index) {
        m_Command1[index]->setEnabled(enabled[index]);
    }
}

void CDForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) {
        m_handlers.Run([this] { m_player.ShowWindow(true); });
    }
}

void CDForm::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous()) {
        m_player.Command1_Release();
        m_player.ShowWindow(false);
    }
}

}  // namespace tickwell
