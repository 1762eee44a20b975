// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "book/editor_window.h"
#include "controls/control_making.h"
#include "days/day_rule.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> kRepetitions{
    u"毎年の記念日として指定する", u"毎月の記念日として指定する", u"この日だけの記念日として指定する"};

// The range of the arrows: the years of the calendar.
constexpr int kFirstYear = 1926;
constexpr int kLastYear = 2100;
constexpr int kLastMonth = 12;
constexpr int kLastDay = 31;

/// Makes a combo box that accepts any text, without completion.
QComboBox* MakeCombo(const QStringList& items, int firstData, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    for (const QString& item : items) {
        combo->addItem(item, firstData++);
    }
    return combo;
}

}  // namespace

void Form6::MakeControls() {
    auto* nameLabel = controls::Named(new QLabel(u"記念日の名前"_s), u"Label1"_s);
    m_name = controls::Named(new QLineEdit(this), u"Text1"_s, nameLabel->text());
    nameLabel->setBuddy(m_name);

    auto* dateFrame = controls::Named(new QGroupBox(u"日付"_s), u"Frame1"_s);
    dateFrame->setLayout(DateRow());

    auto* rows = new QVBoxLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(nameLabel);
    rows->addWidget(m_name);
    rows->addWidget(dateFrame);
    for (std::size_t kind = 0; kind < m_kindOptions.size(); ++kind) {
        m_kindOptions.at(kind) = controls::Named(new QRadioButton(kRepetitions.at(kind).toString(), this),
                                                 controls::Indexed(u"Option2"_s, static_cast<int>(kind)));
        rows->addWidget(m_kindOptions.at(kind));
    }
    rows->addLayout(WeekRow());
    rows->addSpacing(fontMetrics().height() / 2);
    AddButtons(*rows, u"追加/変更>>"_s, u"更新しています"_s, [this] { Command1_Click(); });
    FitOnScreen(*rows);
}

QLayout* Form6::DateRow() {
    m_year =
        controls::Named(new controls::UpDown(u"Text2"_s, kFirstYear, kLastYear, this), u"UpDown1"_s, u"年"_s);
    m_month = controls::Named(new controls::UpDown(u"Text3"_s, 1, kLastMonth, this), u"UpDown2"_s, u"月"_s);
    m_day = controls::Named(new controls::UpDown(u"Text4"_s, 1, kLastDay, this), u"UpDown3"_s, u"日"_s);
    m_yearLabel = controls::Named(new QLabel(u"年"_s), u"Label3"_s);
    m_monthLabel = controls::Named(new QLabel(u"月"_s), u"Label4"_s);
    m_dayLabel = controls::Named(new QLabel(u"日"_s), u"Label5"_s);
    m_yearLabel->setBuddy(m_year);
    m_monthLabel->setBuddy(m_month);
    m_dayLabel->setBuddy(m_day);
    auto* row = new QHBoxLayout;
    row->addWidget(m_year);
    row->addWidget(m_yearLabel);
    row->addWidget(m_month);
    row->addWidget(m_monthLabel);
    row->addWidget(m_day);
    row->addWidget(m_dayLabel);
    row->addStretch();
    return row;
}

/// The check box, and below it, indented, the week and the weekday.
QLayout* Form6::WeekRow() {
    m_byWeek = controls::Named(new QCheckBox(u"第?週の?曜日という形で指定する"_s, this), u"Check2"_s);
    m_ordinal = controls::Named(MakeCombo({u"第1"_s, u"第2"_s, u"第3"_s, u"第4"_s, u"第5"_s}, 1, this),
                                u"Combo2"_s, u"週"_s);
    QStringList weekdays;
    for (int weekday = 1; weekday <= days::kDaysInWeek; ++weekday) {
        weekdays.append(days::WeekdayText(weekday));
    }
    m_weekday = controls::Named(MakeCombo(weekdays, 0, this), u"Combo1"_s, u"曜日"_s);
    controls::LabelForReaders(*m_ordinal, u"週"_s);
    controls::LabelForReaders(*m_weekday, u"曜日"_s);
    auto* combos = new QHBoxLayout;
    combos->addSpacing(2 * fontMetrics().height());
    combos->addWidget(m_ordinal);
    combos->addWidget(m_weekday);
    combos->addStretch();
    auto* rows = new QVBoxLayout;
    rows->addWidget(m_byWeek);
    rows->addLayout(combos);
    return rows;
}

}  // namespace tickwell::book
