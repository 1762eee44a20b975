// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the anniversary book: which fields are enabled.
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

bool IsChecked(const QWidget& form, const QString& name) {
    return ChildOf<QAbstractButton>(form, name).isChecked();
}

/// The index of the checked one among the radio buttons `array`(0), `array`(1), …; at least `count` unless
/// exactly one is checked.
int ChosenOf(const QWidget& form, const QString& array, int count) {
    int chosen = count;
    for (int index = 0; index < count; ++index) {
        if (IsChecked(form, u"%1(%2)"_s.arg(array).arg(index))) {
            chosen = chosen == count ? index : count + 1;
        }
    }
    return chosen;
}

void CheckEditor(const QWidget& form, Complaints& complaints) {
    struct Row {
        bool year;
        bool month;
        bool week;
    };
    static constexpr std::array<Row, 3> kKinds{
        {{false, true, true}, {false, false, true}, {true, true, false}}};
    const int kind = ChosenOf(form, u"Option2"_s, 3);
    complaints.Unless(kind < 3, u"the editor has no kind, or two"_s);
    if (kind >= 3) {
        return;
    }
    const Row& row = kKinds.at(static_cast<std::size_t>(kind));
    const bool byWeek = IsChecked(form, u"Check2"_s);
    complaints.Met(u"Form6 kind %1"_s.arg(kind) + (byWeek ? u" by week" : u""));
    CheckEnabled(form, {u"UpDown1"_s, u"Label3"_s}, row.year, complaints);
    CheckEnabled(form, {u"UpDown2"_s, u"Label4"_s}, row.month, complaints);
    CheckEnabled(form, {u"Check2"_s}, row.week, complaints);
    CheckEnabled(form, {u"UpDown3"_s, u"Label5"_s}, !byWeek, complaints);
    CheckEnabled(form, {u"Combo1"_s, u"Combo2"_s}, byWeek, complaints);
    CheckEnabled(form, {u"Text1"_s, u"Command1"_s, u"Command2"_s}, true, complaints);
    const QString caption = ChildOf<QPushButton>(form, u"Command1"_s).text();
    complaints.Unless(caption == (form.windowTitle() == u"記念日の編集" ? u"更新>>" : u"追加>>"),
                      u"the editor's button says " + caption);
}

void CheckSearch(const QWidget& form, Complaints& complaints) {
    const int name = ChosenOf(form, u"Option1"_s, 2);
    const int date = ChosenOf(form, u"Option2"_s, 2);
    const int range = ChosenOf(form, u"Option3"_s, 3);
    complaints.Met(u"Form9 name %1 date %2 range %3"_s.arg(name).arg(date).arg(range));
    complaints.Unless(name < 2 && date < 2 && range < 3, u"the search has an array without a choice"_s);
    CheckEnabled(form, {u"Text1"_s, u"Label1"_s}, name == 0, complaints);
    CheckEnabled(form, {u"Frame5"_s, u"Option3(0)"_s, u"Option3(1)"_s, u"Option3(2)"_s}, date == 0,
                 complaints);
    CheckEnabled(form,
                 {u"Frame3"_s, u"Text2"_s, u"Text3"_s, u"Text4"_s, u"UpDown1"_s, u"UpDown2"_s, u"UpDown3"_s},
                 date == 0 && range != 2, complaints);
    CheckEnabled(form,
                 {u"Frame4"_s, u"Text5"_s, u"Text6"_s, u"Text7"_s, u"UpDown4"_s, u"UpDown5"_s, u"UpDown6"_s},
                 date == 0 && range != 1, complaints);
    CheckEnabled(form, {u"Check1"_s, u"Check2"_s, u"Check3"_s, u"Command1"_s, u"Command2"_s}, true,
                 complaints);
}

void CheckDeletion(const QWidget& form, Complaints& complaints) {
    const auto ticked = ChildOf<QListView>(form, u"List1"_s).selectionModel()->selectedRows().size();
    const QString count = ChildOf<QLabel>(form, u"Label2"_s).text();
    complaints.Met(ticked > 0 ? u"Form10 ticked"_s : u"Form10"_s);
    complaints.Unless(count == u"現在 %1項目"_s.arg(ticked),
                      u"%1 are ticked, it says %2"_s.arg(ticked).arg(count));
    CheckEnabled(form, {u"Command1"_s}, ticked > 0, complaints);
    CheckEnabled(form, {u"Command2"_s, u"Command3"_s, u"Command4"_s}, true, complaints);
}

}  // namespace

void CheckBook(const Scene& scene, Complaints& complaints) {
    if (const QWidget* editor = scene.Window(u"Form6"_s)) {
        CheckEditor(*editor, complaints);
    }
    if (const QWidget* search = scene.Window(u"Form9"_s)) {
        CheckSearch(*search, complaints);
    }
    if (const QWidget* deletion = scene.Window(u"Form10"_s)) {
        CheckDeletion(*deletion, complaints);
    }
}

}  // namespace tickwell
