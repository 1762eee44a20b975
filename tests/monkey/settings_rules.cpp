// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog: which controls each page enables for the chosen options.
#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <array>

#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

struct ArrayTable {
    QStringView page;
    QStringView name;
    int count;
};
constexpr std::array kArrays{
    ArrayTable{u"Picture1", u"Option2", 4}, ArrayTable{u"Picture2", u"Option1", 2},
    ArrayTable{u"Picture3", u"Option3", 3}, ArrayTable{u"Picture3", u"Option4", 2},
    ArrayTable{u"Picture3", u"Option5", 2}, ArrayTable{u"Picture3", u"Option6", 2},
    ArrayTable{u"Picture4", u"Option7", 3},
};

int ChosenOf(const QWidget& page, QStringView name, int count, Complaints& complaints) {
    QList<int> chosen;
    for (int index = 0; index < count; ++index) {
        if (ChildOf<QAbstractButton>(page, u"%1(%2)"_s.arg(name).arg(index)).isChecked()) {
            chosen.append(index);
        }
    }
    complaints.Unless(chosen.size() == 1, u"%1 of %2 are chosen"_s.arg(chosen.size()).arg(name));
    return chosen.value(0);
}

/// Old Japanese has no options for years, hours and styles.
void CheckClockPage(const QWidget& page, int language, Complaints& complaints) {
    const bool isModern = language != 2;
    complaints.Met(u"Form2 language %1"_s.arg(language));
    CheckEnabled(page,
                 {u"Frame6"_s, u"Frame7"_s, u"Frame8"_s, u"Option4(0)"_s, u"Option4(1)"_s, u"Option5(0)"_s,
                  u"Option5(1)"_s, u"Option6(0)"_s, u"Option6(1)"_s},
                 isModern, complaints);
    CheckEnabled(page, {u"Frame5"_s, u"Option3(0)"_s, u"Option3(1)"_s, u"Option3(2)"_s}, true, complaints);
    const QString frame = ChildOf<QGroupBox>(page, u"Frame6"_s).title();
    complaints.Unless(!isModern || frame == (language == 0 ? u"年号" : u"月名"),
                      u"the years' frame says " + frame);
}

void CheckRollPage(const QWidget& page, bool isUsed, Complaints& complaints) {
    CheckEnabled(page,
                 {u"Frame4"_s, u"Check1"_s, u"Check2"_s, u"Check3"_s, u"Check4"_s, u"UpDown1"_s, u"Text1"_s},
                 isUsed, complaints);
    const int seconds = ChildOf<QSpinBox>(page, u"UpDown1"_s).value();
    complaints.Unless(seconds >= 1 && seconds <= 3600, u"the roll's interval"_s);
}

void CheckChimePage(const QWidget& page, Complaints& complaints) {
    const QStringList sounds{u"鳩時計の音"_s, u"赤ちゃん"_s, u"機械時計[高い音]"_s, u"機械時計[低い音]"_s,
                             u"人の掛け声"_s};
    const QString sound = ChildOf<QComboBox>(page, u"Combo1"_s).currentText();
    complaints.Unless(sounds.contains(sound), u"the chime is " + sound);
    CheckEnabled(page, {u"Listen"_s, u"Combo1"_s}, true, complaints);
}

}  // namespace

void CheckSettingsWindow(const Scene& scene, Complaints& complaints) {
    const QWidget* form = scene.Window(u"Form2"_s);
    if (form == nullptr) {
        return;
    }
    QList<int> chosen;
    for (const ArrayTable& array : kArrays) {
        chosen.append(
            ChosenOf(ChildOf<QWidget>(*form, array.page.toString()), array.name, array.count, complaints));
    }
    const auto page = [form](const QString& name) -> QWidget& { return ChildOf<QWidget>(*form, name); };
    CheckRollPage(page(u"Picture2"_s), chosen.at(1) == 1, complaints);
    CheckClockPage(page(u"Picture3"_s), chosen.at(2), complaints);
    CheckChimePage(page(u"Picture4"_s), complaints);
    CheckEnabled(page(u"Picture5"_s), {u"Command4"_s}, true, complaints);
    const int speed = ChildOf<QSlider>(*form, u"Slider1"_s).value();
    complaints.Unless(speed >= 1 && speed <= 34, u"the speed"_s);
    CheckEnabled(*form,
                 {u"Command1"_s, u"Command2"_s, u"Command3"_s, u"Command8"_s, u"Command5"_s, u"Command6"_s,
                  u"Command7"_s},
                 true, complaints);
    const int tab = ChildOf<QTabWidget>(*form, u"TabStrip1"_s).currentIndex();
    complaints.Met(u"Form2 tab %1"_s.arg(tab));
    const std::array order{u"Picture1"_s, u"Picture3"_s, u"Picture2"_s, u"Picture4"_s,
                           u"Picture5"_s, u"Picture6"_s, u"Picture7"_s};  // in tab order
    for (const QString& each : order) {
        complaints.Unless(page(each).isVisible() == (order.at(static_cast<std::size_t>(tab)) == each),
                          u"page " + each + u" under tab " + QString::number(tab));
    }
}

}  // namespace tickwell
