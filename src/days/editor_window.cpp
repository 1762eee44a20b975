// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/editor_window.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "days/anniversary_statements.h"
#include "days/control_making.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> kKindCaptions{
    u"毎年の記念日として指定する", u"毎月の記念日として指定する", u"この日だけの記念日として指定する"};

// What the arrows reach: the years of the calendar.
constexpr int kFirstYear = 1926;
constexpr int kLastYear = 2100;
constexpr int kLastMonth = 12;
constexpr int kLastDay = 31;

/// A list to choose from, in which anything can be typed and nothing is completed.
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

void ShowText(QComboBox* combo, const QString& text) {
    combo->setCurrentIndex(combo->findText(text));
    combo->setEditText(text);
}

}  // namespace

Form6::Form6(const BookParts& parts, QDate date, QWidget* parent) : QDialog(parent), m_parts(parts) {
    setObjectName(u"Form6"_s);
    MakeControls();
    Form_Load(date);
    Connect();
}

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
            Named(new QRadioButton(kKindCaptions.at(kind).toString(), this), u"Option2(%1)"_s.arg(kind));
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

/// The box, and below it, set in, which week and which weekday.
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

void Form6::Connect() {
    Handlers& handlers = m_parts.handlers;
    for (std::size_t kind = 0; kind < m_Option2.size(); ++kind) {
        handlers.Connect(m_Option2.at(kind), &QRadioButton::clicked, this,
                         [this, kind] { Option2_Click(static_cast<AnniversaryKind>(kind)); });
    }
    handlers.Connect(m_Check2, &QCheckBox::clicked, this, [this] { Check2_Click(); });
    handlers.Connect(m_Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    handlers.Connect(m_Command2, &QPushButton::clicked, this, [this] { reject(); });
}

void Form6::Form_Load(QDate date) {
    const std::optional<DayListRow> chosen = m_parts.list.ChosenRow();
    if (chosen) {
        m_old = AnniversaryOf(*chosen);
    }
    setWindowTitle(m_old ? u"記念日の編集"_s : u"記念日の追加"_s);
    m_Command1->setText(m_old ? u"更新>>"_s : u"追加>>"_s);
    ShowFields(m_old ? FieldsToEdit(*m_old, date) : FieldsToAdd(date));
    m_Text1->setFocus();
    m_Text1->selectAll();
}

void Form6::ShowFields(const EditorFields& fields) {
    m_Text1->setText(fields.name);
    m_Option2.at(static_cast<std::size_t>(fields.kind))->setChecked(true);
    m_Check2->setChecked(fields.byWeek);
    m_UpDown1->SetText(fields.year);
    m_UpDown2->SetText(fields.month);
    m_UpDown3->SetText(fields.day);
    ShowText(m_Combo2, fields.ordinal);
    ShowText(m_Combo1, fields.weekday);
    Enable();
}

AnniversaryKind Form6::Kind() const {
    for (std::size_t kind = 0; kind < m_Option2.size(); ++kind) {
        if (m_Option2.at(kind)->isChecked()) {
            return static_cast<AnniversaryKind>(kind);
        }
    }
    return AnniversaryKind::EveryYear;
}

EditorFields Form6::Fields() const {
    return {m_Text1->text(),         Kind(),
            m_Check2->isChecked(),   m_UpDown1->text(),
            m_UpDown2->text(),       m_UpDown3->text(),
            m_Combo2->currentText(), m_Combo1->currentText()};
}

void Form6::Enable() {
    const EditorEnabling can = EnablingOf(Kind(), m_Check2->isChecked());
    m_UpDown1->setEnabled(can.year);
    m_Label3->setEnabled(can.year);
    m_UpDown2->setEnabled(can.month);
    m_Label4->setEnabled(can.month);
    m_UpDown3->setEnabled(can.day);
    m_Label5->setEnabled(can.day);
    m_Check2->setEnabled(can.weekBox);
    m_Combo1->setEnabled(can.week);
    m_Combo2->setEnabled(can.week);
}

void Form6::Option2_Click(AnniversaryKind kind) {
    EditorFields fields = Fields();
    ChooseKind(fields, kind);
    m_Check2->setChecked(fields.byWeek);
    Enable();
}

void Form6::Check2_Click() {
    Enable();
}

void Form6::Command1_Click() {
    try {
        const Anniversary entered = AnniversaryOf(Fields());
        Opened(m_parts.dayDatabase)
            .Execute(m_old ? UpdateStatement(*m_old, entered) : InsertStatement(entered));
    } catch (const RunTimeError&) {
        m_parts.boxes.Show({MessageIcon::Exclamation, u"データベース書込みエラー"_s,
                            u"無効なデータが含まれているか、予期しないエラーが発生しました。"_s},
                           [] {});
        return;
    }
    m_parts.changes.RaiseRefresh();
    accept();
}

}  // namespace tickwell
