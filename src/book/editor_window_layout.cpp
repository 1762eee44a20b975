// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "book/editor_window.h"
#include "controls/control_making.h"

namespace tickwell {

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
    auto* label1 = Named(new QLabel(u"記念日の名前"_s), u"Label1"_s);
    m_Text1 = Named(new QLineEdit(this), u"Text1"_s, label1->text());
    label1->setBuddy(m_Text1);

    auto* frame1 = Named(new QGroupBox(u"日付"_s), u"Frame1"_s);
    frame1->setLayout(DateRow());

    auto* rows = new QVBoxLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(label1);
    rows->addWidget(m_Text1);
    rows->addWidget(frame1);
    for (std::size_t kind = 0; kind < m_Option2.size(); ++kind) {
        m_Option2.at(kind) =
            Named(new QRadioButton(kRepetitions.at(kind).toString(), this), u"Option2(%1)"_s.arg(kind));
        rows->addWidget(m_Option2.at(kind));
    }
    rows->addLayout(WeekRow());
    rows->addSpacing(fontMetrics().height() / 2);
    m_Command1 = Named(new QPushButton(u"追加/変更>>"_s), u"Command1"_s);
    m_Command1->setDefault(true);
    m_Command2 = Named(new QPushButton(u"ｷｬﾝｾﾙ"_s), u"Command2"_s);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_Command1);
    buttons->addWidget(m_Command2);
    rows->addLayout(buttons);
    m_work = new WorkBar(m_parts.timers, m_parts.handlers, u"更新しています"_s, this);
    rows->addWidget(m_work);
}

QLayout* Form6::DateRow() {
    m_UpDown1 = Named(new UpDown(u"Text2"_s, kFirstYear, kLastYear, this), u"UpDown1"_s, u"年"_s);
    m_UpDown2 = Named(new UpDown(u"Text3"_s, 1, kLastMonth, this), u"UpDown2"_s, u"月"_s);
    m_UpDown3 = Named(new UpDown(u"Text4"_s, 1, kLastDay, this), u"UpDown3"_s, u"日"_s);
    m_Label3 = Named(new QLabel(u"年"_s), u"Label3"_s);
    m_Label4 = Named(new QLabel(u"月"_s), u"Label4"_s);
    m_Label5 = Named(new QLabel(u"日"_s), u"Label5"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(m_UpDown1);
    row->addWidget(m_Label3);
    row->addWidget(m_UpDown2);
    row->addWidget(m_Label4);
    row->addWidget(m_UpDown3);
    row->addWidget(m_Label5);
    row->addStretch();
    return row;
}

/// The check box, and below it, indented, the week and the weekday.
QLayout* Form6::WeekRow() {
    m_Check2 = Named(new QCheckBox(u"第?週の?曜日という形で指定する"_s, this), u"Check2"_s);
    m_Combo2 =
        Named(MakeCombo({u"第1"_s, u"第2"_s, u"第3"_s, u"第4"_s, u"第5"_s}, 1, this), u"Combo2"_s, u"週"_s);
    m_Combo1 = Named(
        MakeCombo({u"日曜日"_s, u"月曜日"_s, u"火曜日"_s, u"水曜日"_s, u"木曜日"_s, u"金曜日"_s, u"土曜日"_s},
                  0, this),
        u"Combo1"_s, u"曜日"_s);
    auto* combos = new QHBoxLayout;
    combos->addSpacing(2 * fontMetrics().height());
    combos->addWidget(m_Combo2);
    combos->addWidget(m_Combo1);
    combos->addStretch();
    auto* rows = new QVBoxLayout;
    rows->addWidget(m_Check2);
    rows->addLayout(combos);
    return rows;
}

}  // namespace tickwell
