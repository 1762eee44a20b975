// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/editor_window.h"

#include "book/anniversary_edit.h"
#include "book/anniversary_statements.h"
#include "book/log.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

void ShowText(QComboBox* combo, const QString& text) {
    combo->setCurrentIndex(combo->findText(text));
    combo->setEditText(text);
}

}  // namespace

Form6::Form6(const BookParts& parts, QDate date, QWidget* parent) : BookWindow(parts, parent) {
    setObjectName(u"Form6"_s);
    MakeControls();
    Form_Load(date);
    Connect();
}

void Form6::Connect() {
    Handlers& handlers = Parts().handlers;
    for (std::size_t kind = 0; kind < m_kindOptions.size(); ++kind) {
        handlers.Connect(m_kindOptions.at(kind), &QRadioButton::clicked, this,
                         [this, kind] { Option2_Click(static_cast<AnniversaryKind>(kind)); });
    }
    handlers.Connect(m_byWeek, &QCheckBox::clicked, this, [this] { Check2_Click(); });
}

void Form6::Form_Load(QDate date) {
    m_chosen = Parts().list.ChosenRow();
    setWindowTitle(m_chosen ? u"記念日の編集"_s : u"記念日の追加"_s);
    StartButton().setText(m_chosen ? u"更新>>"_s : u"追加>>"_s);
    ShowFields(m_chosen ? FieldsToEdit(*m_chosen, date, Parts().further.corrections) : FieldsToAdd(date));
    m_shownName = m_name->text();
    m_name->setFocus();
    m_name->selectAll();
}

void Form6::ShowFields(const EditorFields& fields) {
    m_name->setText(fields.name);
    m_kindOptions.at(static_cast<std::size_t>(fields.kind))->setChecked(true);
    m_byWeek->setChecked(fields.byWeek);
    m_year->SetText(fields.year);
    m_month->SetText(fields.month);
    m_day->SetText(fields.day);
    ShowText(m_ordinal, fields.ordinal);
    ShowText(m_weekday, fields.weekday);
    Enable();
}

AnniversaryKind Form6::Kind() const {
    for (std::size_t kind = 0; kind < m_kindOptions.size(); ++kind) {
        if (m_kindOptions.at(kind)->isChecked()) {
            return static_cast<AnniversaryKind>(kind);
        }
    }
    return AnniversaryKind::EveryYear;
}

EditorFields Form6::Fields() const {
    return {.name = m_name->text(),
            .kind = Kind(),
            .byWeek = m_byWeek->isChecked(),
            .year = m_year->text(),
            .month = m_month->text(),
            .day = m_day->text(),
            .ordinal = m_ordinal->currentText(),
            .weekday = m_weekday->currentText()};
}

void Form6::Enable() {
    const EditorEnabling can = EnablingOf(Kind(), m_byWeek->isChecked());
    m_year->setEnabled(can.year);
    m_yearLabel->setEnabled(can.year);
    m_month->setEnabled(can.month);
    m_monthLabel->setEnabled(can.month);
    m_day->setEnabled(can.day);
    m_dayLabel->setEnabled(can.day);
    m_byWeek->setEnabled(can.weekBox);
    m_weekday->setEnabled(can.week);
    m_ordinal->setEnabled(can.week);
}

void Form6::Option2_Click(AnniversaryKind kind) {
    EditorFields fields = Fields();
    ChooseKind(fields, kind);
    m_byWeek->setChecked(fields.byWeek);
    Enable();
}

void Form6::Check2_Click() {
    Enable();
}

void Form6::Command1_Click() {
    if (IsTelling()) {
        return;
    }
    try {
        const days::Anniversary entered = AnniversaryOf(Fields());
        m_chosen ? Change(entered) : Add(entered);
    } catch (const RunTimeError& error) {
        qCWarning(BookLog).noquote() << "the anniversary was not stored:" << error.Detail();
        TellFailed();
    }
}

void Form6::Add(const days::Anniversary& entered) {
    Parts().dayDatabase.Execute(InsertSql(entered));
    Finish();
}

void Form6::Change(const days::Anniversary& entered) {
    auto edit =
        EditOf(Parts().dayDatabase, *m_chosen, {.entered = entered, .isRenamed = entered.name != m_shownName},
               Parts().further.corrections);
    Work().Start(std::move(edit), [this](const controls::WorkEnd& end) {
        if (end.error) {
            TellFailed();
        } else if (!end.isStopped) {
            Finish();
        }
    });
}

void Form6::TellFailed() {
    Tell(u"データベース書込みエラー"_s, u"無効なデータが含まれているか、予期しないエラーが発生しました。"_s);
}

void Form6::Finish() {
    Parts().changes.RaiseRefresh();
    accept();
}

}  // namespace tickwell::book
