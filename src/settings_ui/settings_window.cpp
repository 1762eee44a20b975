// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/settings_window.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QShowEvent>
#include <QTabBar>
#include <QVBoxLayout>
#include <map>

#include "controls/control_making.h"
#include "controls/help_key.h"
#include "controls/tab_order.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

Form2::Form2(const SettingsParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_draft{parts.settings, parts.further},
      m_pages(controls::Named(new QTabWidget(this), u"TabStrip1"_s)),
      m_textPage(new TextPage(m_parts, m_draft, this)),
      m_clockPage(new ClockPage(m_parts, m_draft, this)),
      m_rollPage(new RollPage(m_parts, m_draft, this)),
      m_chimePage(new ChimePage(m_parts, m_draft, this)),
      m_correctionsPage(new CorrectionsPage(m_parts, m_draft, this)),
      m_calendarPage(new CalendarPage(
          m_parts, m_draft, [this] { ShowTodaysCalendar(); }, this)),
      m_facePage(new FacePage(m_parts, m_draft, this)),
      m_remotePage(new RemotePage(m_parts, m_draft, this)),
      m_noticesPage(new NoticesPage(m_parts, m_draft, this)),
      m_databasePage(new DatabasePage(m_parts, m_draft, this)) {
    setObjectName(u"Form2"_s);
    setWindowTitle(u"環境設定"_s);
    setWindowModality(Qt::ApplicationModal);
    m_pages->addTab(m_textPage, u"文字表示"_s);
    m_pages->addTab(m_clockPage, u"時計"_s);
    m_pages->addTab(m_rollPage, u"ロール"_s);
    m_pages->addTab(m_chimePage, u"時報"_s);
    m_pages->addTab(m_databasePage, u"データベース"_s);
    m_pages->addTab(m_calendarPage, u"暦"_s);
    m_pages->addTab(m_correctionsPage, u"動作"_s);
    m_pages->addTab(m_facePage, u"窓"_s);
    m_pages->addTab(m_remotePage, u"連携"_s);
    m_pages->addTab(m_noticesPage, u"お知らせ"_s);
    m_pages->setUsesScrollButtons(false);  // the dialog is wide enough for all tabs
    m_pages->setElideMode(Qt::ElideNone);

    for (int page = 0; page < m_pages->count(); ++page) {
        controls::TabInLayoutOrder(*m_pages->widget(page));
    }
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(m_pages);
    rows->addLayout(MakeButtons());
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, [this] { return HelpOfPage(); });
    Form_Load();
}

QLayout* Form2::MakeButtons() {
    Handlers& handlers = m_parts.handlers;
    auto* buttons = new QHBoxLayout;
    auto* ok = controls::MakeButton(u"Command1"_s, u"OK"_s, this, handlers, [this] { Command1_Click(); });
    ok->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(
        controls::MakeButton(u"Command2"_s, u"キャンセル"_s, this, handlers, [this] { reject(); }));
    buttons->addWidget(
        controls::MakeButton(u"Command3"_s, u"適用"_s, this, handlers, [this] { Command3_Click(); }));
    buttons->addWidget(
        controls::MakeButton(u"Command8"_s, u"ヘルプ"_s, this, handlers, [this] { Command8_Click(); }));
    return buttons;
}

void Form2::Form_Load() {
    m_textPage->Form_Load();
    m_clockPage->Form_Load();
    m_rollPage->Form_Load();
    m_chimePage->Form_Load();
    ShowTodaysCalendar();
    m_facePage->Form_Load();
    m_remotePage->Form_Load();
    m_noticesPage->Form_Load();
    m_databasePage->Form_Load();
    m_pages->tabBar()->setFocus();
}

void Form2::ShowTodaysCalendar() {
    m_calendarPage->Form_Load();
    m_correctionsPage->Form_Load();
}

void Form2::Command1_Click() {
    if (Apply()) {
        m_parts.operations.refresh(true);
        accept();
    }
}

void Form2::Command3_Click() {
    Apply();
}

/// Returns false, having applied nothing, if an entry is invalid.
bool Form2::Apply() {
    const QString refusal = m_facePage->Zone().Refusal();
    if (!refusal.isEmpty()) {
        m_pages->setCurrentWidget(m_facePage);
        m_parts.boxes.Show(this, {MessageIcon::Exclamation, windowTitle(), refusal},
                           [page = QPointer(m_facePage)] {
                               if (page) {
                                   page->Zone().FocusZone();
                               }
                           });
        return false;
    }
    m_draft.ApplyTo(m_parts.settings, m_parts.further);
    m_parts.operations.apply();
    ApplyAutostart();
    return true;
}

/// Called last, so that everything else has been applied even if this file cannot be written.
void Form2::ApplyAutostart() {
    if (m_draft.startsAtLogin && *m_draft.startsAtLogin != m_parts.autostart.IsOn()) {
        m_parts.autostart.Set(*m_draft.startsAtLogin);
    }
    m_draft.startsAtLogin.reset();
}

void Form2::Command8_Click() {
    m_parts.help.ShowTopic(kHelpSettings);
}

/// The help topic of the current page.
int Form2::HelpOfPage() const {
    static const std::map<QString, int> topics{
        {u"Picture1"_s, kHelpTextPage},        {u"Picture3"_s, kHelpClockPage},
        {u"Picture2"_s, kHelpRollPage},        {u"Picture4"_s, kHelpChimePage},
        {u"Picture5"_s, kHelpDatabasePage},    {u"Picture6"_s, kHelpCalendarPage},
        {u"Picture7"_s, kHelpCorrectionsPage}, {u"Picture8"_s, kHelpFacePage},
        {u"Picture9"_s, kHelpRemotePage},      {u"Picture10"_s, kHelpNoticesPage}};
    const auto topic = topics.find(m_pages->currentWidget()->objectName());
    return topic == topics.end() ? kHelpSettings : topic->second;
}

void Form2::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        m_parts.operations.holdKeepTop(true);
    }
    QDialog::showEvent(event);
}

void Form2::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        m_parts.operations.holdKeepTop(false);
    }
    QDialog::hideEvent(event);
}

}  // namespace tickwell::settings_ui
