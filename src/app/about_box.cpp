// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/about_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QShowEvent>
#include <QStyle>
#include <QVBoxLayout>
#include <QVersionNumber>

#include "app/about_text.h"
#include "app/gradation.h"
#include "app/system_facts.h"
#include "controls/control_making.h"
#include "controls/help_key.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int kThanksInterval = 3500;  // ms

const QString& ProgramTitle() {
    static const QString title = u"Tickwell"_s;
    return title;
}

/// Makes a label large enough for every message, so that the box keeps its size while they rotate.
void MakeRoomForThanks(QLabel& label) {
    label.setMinimumSize(0, 0);
    QSize room;
    QString message = FirstThanks();
    do {
        label.setText(ThanksLines(message));
        room = room.expandedTo(label.sizeHint());
        message = NextThanks(message);
    } while (message != FirstThanks());
    label.setMinimumSize(room);
}

}  // namespace

frmAbout::frmAbout(const AboutBoxParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_title(controls::MakeLabel(u"lblTitle"_s, {}, this)),
      m_version(controls::MakeLabel(u"lblVersion"_s, {}, this)),
      m_thanks(controls::MakeLabel(u"Label3"_s, {}, this)),
      m_thanksTimer(parts.handlers.MakeTimer(parts.timers, kThanksInterval, [this] { Timer1_Timer(); })) {
    setObjectName(u"frmAbout"_s);
    auto* sysInfo = MakeButton(u"cmdSysInfo"_s, u"ｼｽﾃﾑ情報(&S)..."_s, &frmAbout::cmdSysInfo_Click);
    auto* contact = MakeButton(u"Command2"_s, u"連絡先"_s, &frmAbout::Command2_Click);
    m_copy = MakeButton(u"cmdCopy"_s, u"情報をコピー(&C)"_s, &frmAbout::cmdCopy_Click);
    auto* ok = new QPushButton(u"OK"_s, this);
    ok->setObjectName(u"cmdOK"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(sysInfo);
    buttons->addWidget(contact);
    buttons->addWidget(m_copy);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->setContentsMargins(style()->pixelMetric(QStyle::PM_LayoutLeftMargin), 0,
                                style()->pixelMetric(QStyle::PM_LayoutRightMargin),
                                style()->pixelMetric(QStyle::PM_LayoutBottomMargin));
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(style()->pixelMetric(QStyle::PM_LayoutTopMargin));
    whole->addWidget(MakeText());
    whole->addLayout(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    ok->setFocus();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpAbout);
    Form_Load();
}

QWidget* frmAbout::MakeText() {
    auto* background = new Gradation(this);
    background->setObjectName(u"Gradation1"_s);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    m_title->setFont(large);
    auto* icon = controls::MakeLabel(u"Image1"_s, {}, this);
    // Uses the application's icon: another QIcon would keep its own scaled copy of the picture.
    icon->setPixmap(
        QGuiApplication::windowIcon().pixmap(fontMetrics().height() * 4));  // scales with the text
    icon->setAccessibleName(u"Tickwell のアイコン"_s);

    auto* texts = new QVBoxLayout;
    texts->addWidget(m_title);
    texts->addWidget(m_version);
    texts->addSpacing(fontMetrics().height());
    texts->addWidget(m_thanks);
    auto* all = new QHBoxLayout(background);
    const int margin = fontMetrics().height() * 3 / 2;
    all->setContentsMargins(margin, margin, margin, margin);
    all->setSpacing(margin);
    all->addWidget(icon, 0, Qt::AlignTop);
    all->addLayout(texts);
    all->addStretch();
    return background;
}

QPushButton* frmAbout::MakeButton(const QString& name, const QString& caption, void (frmAbout::*clicked)()) {
    return controls::MakeButton(name, caption, this, m_parts.handlers,
                                [this, clicked] { (this->*clicked)(); });
}

void frmAbout::Form_Load() {
    setWindowTitle(ProgramTitle() + u"のﾊﾞｰｼﾞｮﾝ情報");
    const QVersionNumber version = QVersionNumber::fromString(QStringLiteral(TICKWELL_VERSION));
    m_title->setText(ProgramTitle());
    m_version->setText(VersionText(version.majorVersion(), version.minorVersion(), version.microVersion()));
    MakeRoomForThanks(*m_thanks);
}

void frmAbout::ShowThanks(const QString& message) {
    m_shown = message;
    m_thanks->setText(ThanksLines(message));
}

void frmAbout::Timer1_Timer() {
    ShowThanks(NextThanks(m_shown));
}

void frmAbout::cmdSysInfo_Click() {
    if (!StartSystemInformation(m_parts.programs, m_parts.folder.Path())) {
        m_parts.boxes.Show(this, {MessageIcon::None, ProgramTitle(), u"現時点ではｼｽﾃﾑ情報を使用できません"_s},
                           [] {});
    }
}

void frmAbout::Command2_Click() {
    m_parts.help.ShowTopic(kHelpContact);
}

/// The button confirms the copy, because nothing else shows it.
void frmAbout::cmdCopy_Click() {
    QGuiApplication::clipboard()->setText(FactsText(FactsOfThisMachine()));
    m_copy->setText(u"コピーしました(&C)"_s);
}

void frmAbout::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        ShowThanks(FirstThanks());
        m_thanksTimer->Start();
    }
    QDialog::showEvent(event);
}

void frmAbout::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        m_thanksTimer->Stop();
    }
    QDialog::hideEvent(event);
}

}  // namespace tickwell::app
