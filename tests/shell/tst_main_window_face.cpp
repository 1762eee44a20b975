// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "lines/line_look.h"
#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

const QString kFace = u"Face"_s;

constexpr auto kScreens = R"({"screens": [
    {"name": "DP-1", "x": 0, "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "DP-2", "x": 800, "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}
]})";

/// The bottom right pixel of a line, which no text covers.
QRgb Corner(lines::MovingWord& line) {
    QImage picture(line.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    line.render(&picture);
    return picture.pixel(picture.width() - 1, picture.height() - 1);
}

}  // namespace

/// Opacity, long texts and the position on the screens, as set by the user.
class TstMainWindowFace : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void OpacityIsClamped_data();
    void OpacityIsClamped();
    void OpacityIsAppliedAtOnce();
    void LongTextsAreAppliedToBothLines();
    void ByDefaultItStaysOffTheScreen();
    void ItIsBroughtOntoTheScreenAtTheStart();
    void ItIsBroughtOntoTheScreenWhenThatIsChosen();
    void ItReturnsToItsPlaceOnItsScreen();
    void ThePlaceIsStoredOnlyIfChosen();
    void OnlyTheTextsAreShown_data();
    void OnlyTheTextsAreShown();
    void TheBackgroundReturnsWithoutACompositor();
    void TransparencyBeginsWithTheNextStart();
};

void TstMainWindowFace::OpacityIsClamped_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<double>("opacity");
    QTest::newRow("50") << u"50"_s << 0.5;
    QTest::newRow("0") << u"0"_s << 0.2;
    QTest::newRow("-7") << u"-7"_s << 0.2;
    QTest::newRow("1000") << u"1000"_s << 1.0;
}

void TstMainWindowFace::OpacityIsClamped() {
    QFETCH(const QString, stored);
    QFETCH(const double, opacity);
    MainWindowBench bench;
    bench.store.Put(kFace, u"Opacity"_s, stored);
    bench.Start();
    QVERIFY(qAbs(bench.form->windowOpacity() - opacity) < 0.01);  // Qt stores the opacity in 8 bits
}

void TstMainWindowFace::OpacityIsAppliedAtOnce() {
    MainWindowBench bench;
    bench.Start();
    QCOMPARE(bench.form->windowOpacity(), 1.0);
    bench.further.face.opacity = 40;
    bench.form->ApplySettings();
    QVERIFY(qAbs(bench.form->windowOpacity() - 0.4) < 0.01);
}

void TstMainWindowFace::LongTextsAreAppliedToBothLines() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    bench.form->resize(60, bench.form->height());
    const QString text = u"平成10年11月15日(日曜日)"_s;
    for (lines::MovingWord* line : {&bench.Upper(), &bench.Lower()}) {
        bench.further.face.longText = 0;
        bench.form->ApplySettings();
        line->SetText(text);
        const QImage cut = line->grab().toImage();
        bench.further.face.longText = 1;
        bench.form->ApplySettings();
        line->SetText(text);
        QVERIFY(line->grab().toImage() != cut);
        QVERIFY(bench.form->testAttribute(Qt::WA_AlwaysShowToolTips));
    }
}

void TstMainWindowFace::ByDefaultItStaysOffTheScreen() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Win_Left"_s, u"-45000"_s);
    bench.Start();
    bench.time.Advance(kStartUp);
    QCOMPARE(bench.form->x(), -3000);
}

void TstMainWindowFace::ItIsBroughtOntoTheScreenAtTheStart() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Win_Left"_s, u"-45000"_s);
    bench.store.Put(u"SetUp"_s, u"Win_Top"_s, u"1500"_s);
    bench.store.Put(kFace, u"StaysOnScreen"_s, u"True"_s);
    bench.Start();
    QCOMPARE(bench.form->pos(), QPoint(0, 100));
    bench.form->SaveAll();
    QCOMPARE(bench.store.Get(u"SetUp"_s, u"Win_Left"_s).value_or(QString()), u"0"_s);
}

void TstMainWindowFace::ItIsBroughtOntoTheScreenWhenThatIsChosen() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    bench.form->move(1590, 50);
    bench.further.face.staysOnScreen = true;
    bench.form->ApplySettings();
    QCOMPARE(bench.form->frameGeometry().right(), 1599);
    QCOMPARE(bench.form->y(), 50);
}

void TstMainWindowFace::ItReturnsToItsPlaceOnItsScreen() {
    MainWindowBench bench;
    bench.store.Put(kFace, u"StaysOnScreen"_s, u"True"_s);
    bench.store.Put(kFace, u"Screen"_s, u"DP-2"_s);
    bench.store.Put(kFace, u"ScreenLeft"_s, u"120"_s);
    bench.store.Put(kFace, u"ScreenTop"_s, u"70"_s);
    bench.Start();
    QCOMPARE(bench.form->pos(), QPoint(920, 70));
}

void TstMainWindowFace::ThePlaceIsStoredOnlyIfChosen() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    bench.form->move(33, 44);
    bench.form->SaveAll();
    QVERIFY(!bench.store.Get(kFace, u"Screen"_s).has_value());
    bench.further.face.staysOnScreen = true;
    bench.form->ApplySettings();
    bench.form->move(855, 66);
    QTRY_COMPARE(bench.form->pos(), QPoint(855, 66));  // told later if it came to another screen
    bench.form->SaveAll();
    QCOMPARE(bench.store.Get(kFace, u"Screen"_s).value_or(QString()), u"DP-2"_s);
    QCOMPARE(bench.store.Get(kFace, u"ScreenLeft"_s).value_or(QString()), u"55"_s);
    QCOMPARE(bench.store.Get(kFace, u"ScreenTop"_s).value_or(QString()), u"66"_s);
}

void TstMainWindowFace::OnlyTheTextsAreShown_data() {
    QTest::addColumn<QString>("transparent");
    QTest::addColumn<bool>("isComposited");
    QTest::addColumn<QRgb>("corner");
    QTest::newRow("as before") << u"False"_s << true << qRgb(255, 0, 0);
    QTest::newRow("transparent") << u"True"_s << true << qRgba(0, 0, 0, 0);
    QTest::newRow("without a compositor") << u"True"_s << false << qRgb(255, 0, 0);
}

void TstMainWindowFace::OnlyTheTextsAreShown() {
    QFETCH(const QString, transparent);
    QFETCH(const bool, isComposited);
    QFETCH(const QRgb, corner);
    MainWindowBench bench;
    bench.isComposited = isComposited;
    bench.store.Put(u"SetUp"_s, u"BackColor"_s, u"255"_s);
    bench.store.Put(kFace, u"Transparent"_s, transparent);
    bench.Start();
    for (lines::MovingWord* line : {&bench.Upper(), &bench.Lower()}) {
        QCOMPARE(Corner(*line), corner);
    }
}

void TstMainWindowFace::TheBackgroundReturnsWithoutACompositor() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"BackColor"_s, u"255"_s);
    bench.store.Put(kFace, u"Transparent"_s, u"True"_s);
    bench.Start();
    bench.time.Advance(kStartUp);
    bench.isComposited = false;
    bench.time.Advance(2000);
    QCOMPARE(Corner(bench.Upper()), qRgb(255, 0, 0));
    bench.isComposited = true;
    bench.time.Advance(2000);
    QCOMPARE(Corner(bench.Upper()), qRgba(0, 0, 0, 0));
}

void TstMainWindowFace::TransparencyBeginsWithTheNextStart() {
    MainWindowBench bench;
    bench.Start();
    bench.further.face.transparent = true;
    bench.form->ApplySettings();
    QCOMPARE(Corner(bench.Upper()), qRgb(0, 0, 0));
    QVERIFY(!bench.form->testAttribute(Qt::WA_TranslucentBackground));
}

/// Runs with two named screens side by side.
int main(int argc, char** argv) {
    const QTemporaryDir folder;
    QFile screens(folder.filePath(u"screens.json"_s));
    if (!screens.open(QIODevice::WriteOnly) || screens.write(kScreens) < 0 || !screens.flush()) {
        return 1;
    }
    const QByteArray platform = "offscreen:configfile=" + screens.fileName().toUtf8();
    qputenv("QT_QPA_PLATFORM", platform);
    const QApplication application(argc, argv);
    TstMainWindowFace test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_main_window_face.moc"
