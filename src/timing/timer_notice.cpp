// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_notice.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

#include "controls/bring_forward.h"
#include "controls/control_making.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidestName = 30;  // ems; a longer name ends in an ellipsis

}  // namespace

Form8::Form8(TimerNoticeParts parts, QWidget* parent)
    : QDialog(parent),
      m_parts(std::move(parts)),
      m_name(controls::MakeLabel(u"Label2"_s, QString(), this)),
      m_firstKeys(m_parts.timers, m_parts.ignoresFirstKeys) {
    setObjectName(u"Form8"_s);
    setWindowTitle(u"タイマー"_s);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setWindowModality(Qt::ApplicationModal);
    LayOut();
}

void Form8::LayOut() {
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    auto* icon = controls::Named(new QLabel(this), u"Image1"_s);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(size));
    auto* label = controls::MakeLabel(u"Label1"_s, u"指定の時間が経過しました"_s, this);
    auto* confirm =
        controls::MakeButton(u"Command1"_s, u"確認"_s, this, m_parts.handlers, [this] { close(); });
    confirm->setDefault(true);
    m_firstKeys.Watch(*confirm);
    m_firstKeys.Watch(*this);

    m_name->setTextFormat(Qt::PlainText);  // another program may have chosen it
    auto* texts = new QVBoxLayout;
    texts->addWidget(m_name);
    texts->addWidget(label);
    auto* said = new QHBoxLayout;
    said->addWidget(icon);
    said->addLayout(texts, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(said);
    all->addWidget(confirm, 0, Qt::AlignHCenter);
    all->setSizeConstraint(QLayout::SetFixedSize);
}

bool Form8::BringUp() {
    if (isVisible()) {
        return false;
    }
    m_firstKeys.Begin();
    ShowName();
    controls::BringForward(*this);
    QApplication::alert(this);  // in case the desktop does not give the window the keyboard focus
    Form_Load();                // last, because this modal window would block an error box opened before it
    return true;
}

void Form8::ShowName() {
    const QString name = m_parts.name();
    const QFontMetrics font = m_name->fontMetrics();
    m_name->setText(font.elidedText(name, Qt::ElideRight, kWidestName * font.height()));
    m_name->setAccessibleName(name);
    m_name->setVisible(!name.isEmpty());
}

void Form8::Form_Load() {
    m_hasSound = !m_parts.isSilent();
    m_parts.handlers.Run([this] {
        m_parts.enterFolder();
        if (!m_hasSound) {
            return;
        }
        m_parts.sendCommand(u"open TKW00.wav alias Timer"_s);
        m_parts.sendCommand(u"play Timer"_s);
    });
}

void Form8::Form_Unload() {
    if (m_hasSound) {
        m_parts.handlers.Run([this] { m_parts.sendCommand(u"close Timer"_s); });
    }
}

void Form8::done(int result) {
    const bool wasOpen = isVisible();
    if (wasOpen) {
        Form_Unload();
    }
    QDialog::done(result);
    m_firstKeys.End();
    if (wasOpen) {
        m_parts.closed();
    }
}

}  // namespace tickwell::timing
