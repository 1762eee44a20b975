// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that read anniversaries from files and write them to files.
#include <QAbstractButton>
#include <QLabel>
#include <QTableView>
#include <array>

#include "controls/work_bar.h"
#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

bool IsWorking(const QWidget& form) {
    const auto bars = form.findChildren<controls::WorkBar*>();
    return std::any_of(bars.begin(), bars.end(),
                       [](const controls::WorkBar* bar) { return bar->IsWorking(); });
}

/// The sums are counted from what the list shows.
void CheckImport(const QWidget& form, Complaints& complaints) {
    const QAbstractItemModel& list = *ChildOf<QTableView>(form, u"ListView1"_s).model();
    static const QStringList states{u"新しい"_s, u"すでにあります"_s, u"取り込めません"_s};
    std::array<int, 3> sums{};
    int ticked = 0;
    for (int row = 0; row < list.rowCount(); ++row) {
        const QString state = list.index(row, 3).data().toString().section(u'：', 0, 0);
        const qsizetype kind = states.indexOf(state);
        const bool isTicked = list.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
        complaints.Unless(kind >= 0, u"an entry of the state " + state);
        complaints.Unless(!isTicked || kind == 0, u"an entry is ticked and " + state);
        ++sums.at(static_cast<std::size_t>(std::max<qsizetype>(0, kind)));
        ticked += isTicked ? 1 : 0;
    }
    const bool isWorking = IsWorking(form);
    complaints.Met(isWorking ? u"Form12 at work"_s : ticked > 0 ? u"Form12 ticked"_s : u"Form12"_s);
    const QString shown = ChildOf<QLabel>(form, u"Label2"_s).text();
    const QString start =
        u"新しい %1件、すでにあります %2件、取り込めません %3件"_s.arg(sums[0]).arg(sums[1]).arg(sums[2]);
    complaints.Unless(shown.startsWith(start) && shown.endsWith(u"、選択 %1件"_s.arg(ticked)),
                      u"the entries' sums say %1 instead of %2, %3"_s.arg(shown, start).arg(ticked));
    CheckEnabled(form, {u"Command1"_s}, ticked > 0 && !isWorking, complaints);
    CheckEnabled(form, {u"Command2"_s, u"Command3"_s, u"Command4"_s, u"ListView1"_s}, !isWorking, complaints);
}

void CheckExport(const QWidget& form, Complaints& complaints) {
    const auto isOn = [&form](const QString& name) {
        return ChildOf<QAbstractButton>(form, name).isChecked();
    };
    const bool daysOff = isOn(u"Check2"_s);
    complaints.Met(daysOff ? u"Form13 with days off"_s : u"Form13"_s);
    complaints.Unless(isOn(u"Option1(0)"_s) != isOn(u"Option1(1)"_s), u"the export has no form, or two"_s);
    CheckEnabled(form, {u"Text1"_s, u"Text2"_s}, daysOff, complaints);
    CheckEnabled(form, {u"Command1"_s}, daysOff || isOn(u"Check1"_s) || isOn(u"Check3"_s), complaints);
    CheckEnabled(form, {u"Command2"_s}, true, complaints);
}

}  // namespace

void CheckExchange(const Scene& scene, Complaints& complaints) {
    if (const QWidget* form = scene.Window(u"Form12"_s)) {
        CheckImport(*form, complaints);
    }
    if (const QWidget* form = scene.Window(u"Form13"_s)) {
        CheckExport(*form, complaints);
    }
}

}  // namespace tickwell
