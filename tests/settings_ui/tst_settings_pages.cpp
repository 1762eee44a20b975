// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/option_array.h"
#include "settings_ui/settings_bench.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

/// The pages of the settings while the user works with them; the live sample has its own test,
/// tst_settings_sample.
class TstSettingsPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void AChosenOptionTurnsTheOthersOff();
    void TheRollIsOffAtFirst();
    void TheRollsControlsFillTheCopy();
    void ChoosingASoundChangesNothingElse();
    void ASoundIsListenedTo();
    void OnlySoundsCanBeListenedTo();
    void TheNoticesBoxIsShownOnlyIfItIsOff();
    void WithoutItsOperationAButtonIsDisabled();
    void TheAutostartBoxShowsTheCurrentState();
    void OnlyOkAndApplyChangeTheAutostart_data();
    void OnlyOkAndApplyChangeTheAutostart();
    void AnUnchangedAutostartIsNotWritten();
    void AFailedAutostartChangeIsReportedAndTheRestIsApplied();
    void NoTwoControlsHaveTheSameName();
};

void TstSettingsPages::initTestCase() {
    lines::InstallFontSubstitutes();
}

void TstSettingsPages::AChosenOptionTurnsTheOthersOff() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    QWidget page;
    QList<qint32> chosen;
    OptionArray options(u"Option"_s, kWipeOptions, &page, handlers,
                        [&](qint32 index) { chosen.append(index); });
    options.Select(lines::kWipeLeftToRight);
    for (QAbstractButton* button : options.Buttons()) {
        button->click();
        for (const QAbstractButton* each : options.Buttons()) {
            QCOMPARE(each->isChecked(), each == button);
        }
    }
    QCOMPARE(chosen.size(), options.Buttons().size());
}

void TstSettingsPages::TheRollIsOffAtFirst() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Selected(u"Option1"_s), 0);
    for (const char* name : {"Check1", "Check2", "Check3", "Check4", "UpDown1", "Text1"}) {
        QVERIFY2(!bench.Child<QWidget>(QLatin1StringView(name)).isEnabled(), name);
    }
    for (const char* name : {"Check1", "Check2", "Check3", "Check4"}) {
        QVERIFY2(bench.Button(QLatin1StringView(name)).isChecked(), name);
    }
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown1"_s).value(), 10);
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown1"_s).minimum(), 1);
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown1"_s).maximum(), 3600);
}

void TstSettingsPages::TheRollsControlsFillTheCopy() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option1(1)"_s);
    QVERIFY(bench.Button(u"Check1"_s).isEnabled());
    bench.Click(u"Check1"_s);  // clock
    bench.Click(u"Check4"_s);  // memory
    bench.Child<QSpinBox>(u"UpDown1"_s).stepUp();
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.roll, (RollSettings{.use = true, .kinds = {1, 4}, .interval = 11}));
    bench.Click(u"Option1(0)"_s);
    bench.Click(u"Check1"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.roll,
             (RollSettings{.use = false, .kinds = {1, 4}, .interval = 11}));  // a disabled box ignores clicks
    QCOMPARE(bench.main.settings.rollInterval, 10);
}

void TstSettingsPages::ChoosingASoundChangesNothingElse() {
    SettingsBench bench;
    bench.Open();
    auto& sounds = bench.Child<QComboBox>(u"Combo1"_s);
    QStringList names;
    for (int i = 0; i < sounds.count(); ++i) {
        names.append(sounds.itemText(i));
    }
    QCOMPARE(names, (QStringList{u"鳩時計の音"_s, u"赤ちゃん"_s, u"機械時計[高い音]"_s, u"機械時計[低い音]"_s,
                                 u"人の掛け声"_s}));
    AppSettings expected = bench.main.settings;
    QTest::keyClick(&sounds, Qt::Key_Down);
    QCOMPARE(bench.asked, QStringList{u"hold 1"_s});
    bench.Click(u"Command3"_s);
    expected.chimeSound = u"赤ちゃん"_s;
    QCOMPARE(bench.main.settings, expected);
}

void TstSettingsPages::ASoundIsListenedTo() {
    SettingsBench bench;
    bench.Open();
    QTest::keyClick(&bench.Child<QComboBox>(u"Combo1"_s), Qt::Key_End);
    bench.Click(u"Listen"_s);
    QCOMPARE(bench.asked.constLast(), u"listen 人の掛け声 at 100"_s);
    QCOMPARE(bench.main.settings.chimeSound, u"鳩時計の音"_s);
}

void TstSettingsPages::OnlySoundsCanBeListenedTo() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Clock_File"_s, u"鳩時計の音 "_s);
    bench.Open();
    QVERIFY(!bench.Button(u"Listen"_s).isEnabled());
    QTest::keyClick(&bench.Child<QComboBox>(u"Combo1"_s), Qt::Key_Home);
    QVERIFY(bench.Button(u"Listen"_s).isEnabled());
}

void TstSettingsPages::TheNoticesBoxIsShownOnlyIfItIsOff() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(bench.Button(u"NoCdDrive"_s).isHidden() ||
            bench.Button(u"NoCdDrive"_s).parentWidget()->isHidden());
    bench.form.reset();
    bench.main.further.tellsNoCdDrive = false;
    bench.Open();
    QVERIFY(!bench.Button(u"NoCdDrive"_s).parentWidget()->isHidden());
    QVERIFY(!bench.Button(u"NoCdDrive"_s).isChecked());
    bench.Click(u"NoCdDrive"_s);
    QVERIFY(!bench.main.further.tellsNoCdDrive);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.further.tellsNoCdDrive);
}

void TstSettingsPages::WithoutItsOperationAButtonIsDisabled() {
    SettingsBench bench;
    bench.operations.listen = nullptr;
    bench.operations.compact = nullptr;
    bench.Open();
    QVERIFY(!bench.Button(u"Listen"_s).isEnabled());
    QVERIFY(!bench.Button(u"Command4"_s).isEnabled());
}

void TstSettingsPages::TheAutostartBoxShowsTheCurrentState() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(!bench.Button(u"Autostart"_s).isChecked());
    bench.form.reset();
    bench.autostart.isOn = true;  // set in the desktop's own settings
    bench.Open();
    QVERIFY(bench.Button(u"Autostart"_s).isChecked());
    QVERIFY(bench.autostart.set.isEmpty());
}

void TstSettingsPages::OnlyOkAndApplyChangeTheAutostart_data() {
    QTest::addColumn<bool>("before");
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QList<bool>>("set");
    const QString box = u"Autostart"_s;
    const QString ok = u"Command1"_s;
    const QString cancel = u"Command2"_s;
    const QString apply = u"Command3"_s;
    QTest::newRow("ticked, OK") << false << QStringList{box, ok} << QList<bool>{true};
    QTest::newRow("cleared, OK") << true << QStringList{box, ok} << QList<bool>{false};
    QTest::newRow("ticked, applied, OK") << false << QStringList{box, apply, ok} << QList<bool>{true};
    QTest::newRow("ticked, applied, cleared, OK")
        << false << QStringList{box, apply, box, ok} << QList<bool>{true, false};
    QTest::newRow("ticked, cancelled") << false << QStringList{box, cancel} << QList<bool>{};
    QTest::newRow("ticked and cleared again, OK") << false << QStringList{box, box, ok} << QList<bool>{};
}

void TstSettingsPages::OnlyOkAndApplyChangeTheAutostart() {
    QFETCH(bool, before);
    QFETCH(QStringList, clicks);
    QFETCH(QList<bool>, set);
    SettingsBench bench;
    bench.autostart.isOn = before;
    bench.Open();
    for (const QString& click : clicks) {
        bench.Click(click);
    }
    QCOMPARE(bench.autostart.set, set);
}

void TstSettingsPages::AnUnchangedAutostartIsNotWritten() {
    SettingsBench bench;
    bench.Open();
    bench.autostart.isOn = true;  // changed elsewhere in the meantime
    bench.Click(u"Option2(1)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.autostart.set.isEmpty() && bench.autostart.isOn);
}

void TstSettingsPages::AFailedAutostartChangeIsReportedAndTheRestIsApplied() {
    SettingsBench bench;
    bench.autostart.refuses = true;
    bench.Open();
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Autostart"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
    QVERIFY(bench.main.boxes.Shown().constFirst().text.contains(u"書き込めません。"_s));
    QVERIFY(bench.form->isVisible());
    QCOMPARE(bench.main.settings.language, 1);
    QCOMPARE(bench.main.Upper().Text(), u"November 15,1998 Sunday"_s);
}

/// Qt's own parts of controls share names, all of which begin with "qt_".
void TstSettingsPages::NoTwoControlsHaveTheSameName() {
    SettingsBench bench;
    bench.Open();
    QStringList names;
    QStringList repeated;
    for (const QWidget* each : bench.form->findChildren<QWidget*>()) {
        const QString name = each->objectName();
        if (!name.isEmpty() && !name.startsWith(u"qt_"_s)) {
            (names.contains(name) ? repeated : names).append(name);
        }
    }
    QVERIFY(names.contains(u"Frame80"_s));
    QCOMPARE(repeated, QStringList());
}

QTEST_MAIN(TstSettingsPages)
#include "tst_settings_pages.moc"
