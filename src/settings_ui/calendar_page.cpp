// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/calendar_page.h"

#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "controls/wrapped_label.h"
#include "settings_ui/flag_boxes.h"
#include "settings_ui/flag_rows.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kNote =
    u"内閣府のホームページで配布されている syukujitsu.csv "
    u"を保存して、読み込んでください。このプログラムは通信をしません。";

/// Rows with less spacing than usual: this page is the tallest, and must fit on small screens at 200 %.
QVBoxLayout* CloseRows(QWidget* frame) {
    auto* rows = new QVBoxLayout(frame);
    rows->setSpacing(rows->spacing() / 2);
    QMargins margins = rows->contentsMargins();
    margins.setTop(margins.top() / 2);
    margins.setBottom(margins.bottom() / 2);
    rows->setContentsMargins(margins);
    return rows;
}

void AddAll(QLayout& layout, const OptionArray& options) {
    for (QAbstractButton* option : options.Buttons()) {
        layout.addWidget(option);
    }
}

}  // namespace

CalendarPage::CalendarPage(const SettingsParts& parts, SettingsDraft& draft, std::function<void()> chosen,
                           QWidget* parent)
    : QWidget(parent),
      m_parts(parts),
      m_draft(draft),
      m_chosen(std::move(chosen)),
      m_holidayOptions(u"Option8"_s, kHolidayOptions, this, parts.handlers,
                       [this](qint32 index) { m_draft.further.calendar.holidaysByLaw = index == 1; }),
      m_eraOptions(u"Option9"_s, kEraOptions, this, parts.handlers,
                   [this](qint32 index) { m_draft.further.calendar.eras.byDate = index == 1; }),
      m_underOptions(u"Option10"_s, kUnderOptions, this, parts.handlers,
                     [this](qint32 index) { m_draft.further.calendar.underDays = index; }),
      m_listStatus(controls::MakeLabel(u"Label6"_s, {}, this)),
      m_replaceList(controls::MakeButton(u"Command9"_s, u"読み込む..."_s, this, parts.handlers,
                                         [this] { Command9_Click(); })),
      m_removeList(controls::MakeButton(u"Command10"_s, u"取り除く"_s, this, parts.handlers,
                                        [this] { Command10_Click(); })) {
    setObjectName(u"Picture6"_s);
    auto* all = controls::MakeButton(u"Command11"_s, u"まとめて今の暦に合わせる"_s, this, parts.handlers,
                                     [this] { Command11_Click(); });
    all->setAutoDefault(false);
    auto* top = new QHBoxLayout;
    top->addWidget(all);
    top->addStretch();
    QVBoxLayout* rows = CloseRows(this);
    rows->addLayout(top);
    rows->addWidget(MakeHolidayFrame());
    rows->addWidget(MakeEraFrame());
    rows->addWidget(MakeOldCalendarFrame());
    rows->addStretch();
}

QWidget* CalendarPage::MakeHolidayFrame() {
    auto* frame = controls::Named(new QGroupBox(u"祝日"_s, this), u"Frame12"_s);
    auto* note = new controls::WrappedLabel(u"Label7"_s, QString::fromUtf16(kNote), this);
    auto* list = new QHBoxLayout;
    list->addWidget(m_listStatus, 1);
    for (QPushButton* button : {m_replaceList, m_removeList}) {
        button->setAutoDefault(false);
        list->addWidget(button);
    }
    m_replaceList->setAccessibleName(u"祝日データを読み込む"_s);
    m_removeList->setAccessibleName(u"祝日データを取り除く"_s);
    auto* rows = CloseRows(frame);
    AddAll(*rows, m_holidayOptions);
    rows->addLayout(list);
    rows->addWidget(note);
    return frame;
}

QWidget* CalendarPage::MakeEraFrame() {
    auto* frame = controls::Named(new QGroupBox(u"元号"_s, this), u"Frame13"_s);
    auto* rows = CloseRows(frame);
    AddAll(*rows, m_eraOptions);
    return frame;
}

QWidget* CalendarPage::MakeOldCalendarFrame() {
    auto* frame = controls::Named(new QGroupBox(u"旧暦・六曜・二十四節気"_s, this), u"Frame14"_s);
    auto* rows = CloseRows(frame);
    m_checks = MakeFlagBoxes(OldCalendarFlags(), m_draft, m_parts.handlers, this);
    for (QCheckBox* check : m_checks) {
        rows->addWidget(check);
    }
    auto* under = new QHBoxLayout;
    under->addWidget(controls::MakeLabel(u"Label8"_s, u"カレンダーの日の下に書くもの"_s, this));
    AddAll(*under, m_underOptions);
    under->addStretch();
    rows->addLayout(under);
    return frame;
}

void CalendarPage::Form_Load() {
    const CalendarSettings& calendar = m_draft.further.calendar;
    m_holidayOptions.Select(calendar.holidaysByLaw ? 1 : 0);
    m_eraOptions.Select(calendar.eras.byDate ? 1 : 0);
    m_underOptions.Select(calendar.underDays);
    ShowFlags(OldCalendarFlags(), m_checks, m_draft);
    ShowListStatus();
}

void CalendarPage::ShowListStatus() {
    const HolidayListOperations& list = m_parts.operations.holidayList;
    m_listStatus->setText(list.status());
    m_removeList->setEnabled(list.isKept());
}

void CalendarPage::Command9_Click() {
    auto* dialog = new QFileDialog(this, u"祝日データの読み込み"_s, {}, u"内閣府の祝日データ (*.csv)"_s);
    dialog->setObjectName(u"HolidayListDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { m_parts.handlers.Run([this, path] { ReplaceList(path); }, this); });
    dialog->open();
}

void CalendarPage::ReplaceList(const QString& path) {
    const QString report = m_parts.operations.holidayList.replace(path);
    ShowListStatus();
    m_parts.boxes.Show(this, {MessageIcon::Information, u"祝日データの読み込み"_s, report}, [] {});
}

void CalendarPage::Command10_Click() {
    m_parts.operations.holidayList.remove();
    ShowListStatus();
    m_replaceList->setFocus();  // the button that had the focus has been disabled
}

void CalendarPage::Command11_Click() {
    ChooseTodaysJapan(m_draft.further);
    m_chosen();
    m_parts.boxes.Show(this, {MessageIcon::Information, u"まとめて今の暦に合わせる"_s, TodaysJapanText()},
                       [] {});
}

}  // namespace tickwell::settings_ui
