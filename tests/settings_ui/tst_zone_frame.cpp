// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

const QString kNone = u"地域を一覧から選んでください。"_s;
const QString kUnknown = u"この地域は一覧にありません。"_s;

/// The settings dialog at page 窓.
struct ZoneBench : SettingsBench {
    void OpenPage() {
        Open();
        auto& tabs = Child<QTabWidget>(u"TabStrip1"_s);
        tabs.setCurrentWidget(&Child<QWidget>(u"Picture8"_s));
    }
    QComboBox& Zone() const { return Child<QComboBox>(u"Combo2"_s); }
    QLineEdit& Name() const { return Child<QLineEdit>(u"Text20"_s); }
    QString Hint() const { return Child<QLabel>(u"Label18"_s).text(); }
    void Type(const QString& zone) const {
        Zone().setFocus();
        Zone().lineEdit()->selectAll();
        QTest::keyClicks(Zone().lineEdit(), zone);
        QVERIFY(Zone().currentText() == zone);
    }
    const FaceSettings& Applied() const { return main.further.face; }
};

}  // namespace

/// The settings of the time in another zone.
class TstZoneFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void AtFirstItIsOff();
    void AZoneIsChosenAndNamed();
    void TheStoredZoneIsShown();
    void AZoneIsTypedInAnyCase();
    void ARefusedZoneIsNotApplied_data();
    void ARefusedZoneIsNotApplied();
    void ARefusedZoneCanBeCorrected();
    void OffNothingIsRefused();
    void AnUnknownStoredZoneStaysUntilItIsTouched();
    void AnotherNameOfAStoredZoneIsKept();
    void CompletionFindsCities();
};

void TstZoneFrame::AtFirstItIsOff() {
    ZoneBench bench;
    bench.OpenPage();
    QVERIFY(!bench.Button(u"Check25"_s).isChecked());
    QCOMPARE(bench.Button(u"Check25"_s).text(), u"別の地域の時刻を上段に出す"_s);
    QVERIFY(!bench.Zone().isEnabled());
    QVERIFY(!bench.Name().isEnabled());
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
    QVERIFY(bench.main.boxes.Shown().isEmpty());
}

void TstZoneFrame::AZoneIsChosenAndNamed() {
    ZoneBench bench;
    bench.OpenPage();
    bench.Click(u"Check25"_s);
    bench.Zone().setCurrentIndex(bench.Zone().findText(u"Asia/Kathmandu"_s));
    QTest::keyClicks(&bench.Name(), u"KTM"_s);
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.face.showsZone = true;
    expected.face.zone = u"Asia/Kathmandu"_s;
    expected.face.zoneName = u"KTM"_s;
    QCOMPARE(bench.main.further, expected);
}

void TstZoneFrame::TheStoredZoneIsShown() {
    ZoneBench bench;
    bench.main.store.Put(u"Face"_s, u"ShowsZone"_s, u"True"_s);
    bench.main.store.Put(u"Face"_s, u"Zone"_s, u"Europe/London"_s);
    bench.main.store.Put(u"Face"_s, u"ZoneName"_s, u"ロンドン"_s);
    bench.OpenPage();
    bench.main.time.SetNow(QDateTime(QDate(2026, 11, 23), QTime(12, 5)));
    bench.Open();
    QVERIFY(bench.Button(u"Check25"_s).isChecked());
    QCOMPARE(bench.Zone().currentText(), u"Europe/London"_s);
    QCOMPARE(bench.Name().text(), u"ロンドン"_s);
    QCOMPARE(bench.Hint(), u"例：ロンドン 3:05"_s);
    bench.Name().clear();
    QTest::keyClicks(&bench.Name(), u"x"_s);
    QCOMPARE(bench.Hint(), u"例：x 3:05"_s);
    QTest::keyClick(&bench.Name(), Qt::Key_Backspace);
    QCOMPARE(bench.Hint(), u"例：London 3:05"_s);
}

void TstZoneFrame::AZoneIsTypedInAnyCase() {
    ZoneBench bench;
    bench.OpenPage();
    bench.Click(u"Check25"_s);
    bench.Type(u"america/new york"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.Applied().zone, u"America/New_York"_s);
}

void TstZoneFrame::ARefusedZoneIsNotApplied_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("reason");
    QTest::newRow("OK, none") << u"Command1"_s << u""_s << kNone;
    QTest::newRow("OK, unknown") << u"Command1"_s << u"Europe/Lodnon"_s << kUnknown;
    QTest::newRow("apply, none") << u"Command3"_s << u" "_s << kNone;
    QTest::newRow("apply, unknown") << u"Command3"_s << u"London"_s << kUnknown;
}

void TstZoneFrame::ARefusedZoneIsNotApplied() {
    QFETCH(const QString, button);
    QFETCH(const QString, typed);
    QFETCH(const QString, reason);
    ZoneBench bench;
    bench.OpenPage();
    bench.Click(u"Check25"_s);
    bench.Type(typed);
    QCOMPARE(bench.Hint(), reason);
    bench.Child<QTabWidget>(u"TabStrip1"_s).setCurrentIndex(0);
    bench.Click(button);
    QCOMPARE(bench.main.boxes.Shown(), QList<Message>({{MessageIcon::Exclamation, u"環境設定"_s, reason}}));
    QCOMPARE(bench.main.further, FurtherSettings());
    QVERIFY(!bench.asked.contains(u"apply"_s));
    QVERIFY(bench.form->isVisible());
    QVERIFY(bench.Zone().isVisible());
}

void TstZoneFrame::ARefusedZoneCanBeCorrected() {
    ZoneBench bench;
    bench.OpenPage();
    bench.Click(u"Check25"_s);
    bench.Type(u"Europe/Lodnon"_s);
    bench.Click(u"Command1"_s);
    bench.Type(u"Europe/London"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Applied().zone, u"Europe/London"_s);
    QVERIFY(!bench.form->isVisible());
}

void TstZoneFrame::OffNothingIsRefused() {
    ZoneBench bench;
    bench.OpenPage();
    bench.Click(u"Check25"_s);
    bench.Type(u"Europe/Lodnon"_s);
    bench.Click(u"Check25"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.boxes.Shown().isEmpty());
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstZoneFrame::AnUnknownStoredZoneStaysUntilItIsTouched() {
    ZoneBench bench;
    bench.main.store.Put(u"Face"_s, u"ShowsZone"_s, u"True"_s);
    bench.main.store.Put(u"Face"_s, u"Zone"_s, u"Europe/Lodnon"_s);
    bench.OpenPage();
    QCOMPARE(bench.Hint(), kUnknown);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.Applied().zone, u"Europe/Lodnon"_s);
    QVERIFY(bench.main.boxes.Shown().isEmpty());
    bench.Type(u"Europe/"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
}

void TstZoneFrame::AnotherNameOfAStoredZoneIsKept() {
    ZoneBench bench;
    bench.main.store.Put(u"Face"_s, u"Zone"_s, u"Asia/Calcutta"_s);
    bench.OpenPage();
    QCOMPARE(bench.Zone().currentText(), u"Asia/Calcutta"_s);
    bench.Click(u"Check25"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Applied().zone, u"Asia/Calcutta"_s);
    QVERIFY(bench.Applied().showsZone);
}

void TstZoneFrame::CompletionFindsCities() {
    ZoneBench bench;
    bench.OpenPage();
    bench.Click(u"Check25"_s);
    QCompleter& completer = *bench.Zone().completer();
    completer.setCompletionPrefix(u"kath"_s);
    QCOMPARE(completer.completionCount(), 1);
    QCOMPARE(completer.currentCompletion(), u"Asia/Kathmandu"_s);
}

QTEST_MAIN(TstZoneFrame)
#include "tst_zone_frame.moc"
