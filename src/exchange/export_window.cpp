// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/export_window.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/control_making.h"
#include "controls/tab_order.h"
#include "core/errors.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

// The years of the calendar.
constexpr int kFirstCalendarYear = 1926;
constexpr int kLastCalendarYear = 2100;

}  // namespace

Form13::Form13(const ExchangeParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_work(new controls::WorkBar(parts.timers, parts.handlers, u"書き出しています"_s, this)) {
    setObjectName(u"Form13"_s);
    setWindowTitle(u"記念日の書出"_s);
    auto* rows = new QVBoxLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(MakeForms());
    rows->addWidget(MakeContents());
    rows->addLayout(MakeButtons());
    rows->addWidget(m_work);
    controls::TabInLayoutOrder(*this);
    Enable();
}

QGroupBox* Form13::MakeForms() {
    auto* frame = controls::Named(new QGroupBox(u"形式"_s, this), u"Frame1"_s);
    auto* row = new QHBoxLayout(frame);
    const std::array captions{u"iCalendar（.ics）"_s, u"CSV（.csv）"_s};
    for (std::size_t i = 0; i < m_forms.size(); ++i) {
        m_forms.at(i) = controls::Named(new QRadioButton(captions.at(i), this),
                                        controls::Indexed(u"Option1"_s, static_cast<int>(i)));
        row->addWidget(m_forms.at(i));
    }
    row->addStretch();
    m_forms[0]->setChecked(true);
    return frame;
}

QGroupBox* Form13::MakeContents() {
    auto* frame = controls::Named(new QGroupBox(u"書き出すもの"_s, this), u"Frame2"_s);
    m_anniversaries = controls::Named(new QCheckBox(u"記念日"_s, this), u"Check1"_s);
    m_daysOff = controls::Named(new QCheckBox(u"祝日と振替休日"_s, this), u"Check2"_s);
    m_marks = controls::Named(new QCheckBox(u"カレンダーの印（休日、半日、平日）"_s, this), u"Check3"_s);
    m_anniversaries->setChecked(true);
    auto* years = new QHBoxLayout;
    years->addWidget(m_daysOff);
    const std::array after{u"年から"_s, u"年まで"_s};
    const std::array spoken{u"祝日の最初の年"_s, u"祝日の最後の年"_s};
    for (std::size_t i = 0; i < m_years.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        auto* year = new controls::NumberBox(u"UpDown%1"_s.arg(number), u"Text%1"_s.arg(number), this);
        year->setRange(kFirstCalendarYear, kLastCalendarYear);
        year->setValue(m_parts.clock.Now().date().year() + static_cast<int>(i));
        year->setAccessibleName(spoken.at(i));
        auto* label = controls::MakeLabel(u"Label%1"_s.arg(number), after.at(i), this);
        label->setBuddy(year);
        years->addWidget(year);
        years->addWidget(label);
        m_years.at(i) = year;
    }
    years->addStretch();
    auto* rows = new QVBoxLayout(frame);
    rows->addWidget(m_anniversaries);
    rows->addLayout(years);
    rows->addWidget(m_marks);
    for (QCheckBox* box : {m_anniversaries, m_daysOff, m_marks}) {
        m_parts.handlers.Connect(box, &QCheckBox::clicked, this, [this] { Enable(); });
    }
    return frame;
}

QLayout* Form13::MakeButtons() {
    m_write = controls::MakeButton(u"Command1"_s, u"書き出す..."_s, this, m_parts.handlers,
                                   [this] { Command1_Click(); });
    auto* cancel =
        controls::MakeButton(u"Command2"_s, u"ｷｬﾝｾﾙ"_s, this, m_parts.handlers, [this] { reject(); });
    m_write->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_write);
    row->addWidget(cancel);
    return row;
}

void Form13::Enable() {
    for (controls::NumberBox* year : m_years) {
        year->setEnabled(m_daysOff->isChecked());
    }
    m_write->setEnabled(m_anniversaries->isChecked() || m_daysOff->isChecked() || m_marks->isChecked());
}

ExportChoice Form13::Choice() const {
    const auto [first, last] = std::minmax({m_years[0]->value(), m_years[1]->value()});
    return {.asTable = m_forms[1]->isChecked(),
            .anniversaries = m_anniversaries->isChecked(),
            .daysOff = m_daysOff->isChecked(),
            .firstYear = first,
            .lastYear = last,
            .marks = m_marks->isChecked()};
}

void Form13::Command1_Click() {
    const bool asTable = m_forms[1]->isChecked();
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    auto* dialog = new QFileDialog(
        this, u"記念日の書き出し先"_s,
        QFileInfo(folder).isDir() ? folder : QStandardPaths::writableLocation(QStandardPaths::HomeLocation),
        asTable ? u"CSV (*.csv)"_s : u"iCalendar (*.ics)"_s);
    dialog->setObjectName(u"ExportDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(asTable ? u"csv"_s : u"ics"_s);
    dialog->selectFile(asTable ? u"記念日.csv"_s : u"記念日.ics"_s);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { m_parts.handlers.Run([this, path] { Write(path); }, this); });
    dialog->open();
}

void Form13::Write(const QString& path) {
    auto work = std::make_unique<FileExport>(
        ExportParts{
            .dayDatabase = m_parts.dayDatabase, .holidays = &m_parts.holidays, .now = m_parts.clock.Now()},
        Choice(), path);
    const FileExport& writing = *work;
    m_work->Start(std::move(work), [this, &writing](const controls::WorkEnd& end) {
        if (end.error) {
            std::rethrow_exception(end.error);
        }
        if (!end.isStopped) {
            accept();
            m_parts.boxes.Show(parentWidget(),
                               {MessageIcon::Information, windowTitle(), ExportText(writing.Sums())}, [] {});
        }
    });
}

void Form13::reject() {
    if (m_work->IsWorking()) {
        m_work->Stop();
    } else {
        QDialog::reject();
    }
}

}  // namespace tickwell::exchange
