// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

struct Bench : MainWindowBench {
    void StartPassing() {
        store.Put(u"Face"_s, u"ClickThrough"_s, u"True"_s);
        Start();
    }

    QStringList TrayItems() const {
        QStringList items;
        for (const QAction* item : tray.Menu()->actions()) {
            if (!item->isSeparator() && item->isVisible()) {
                items.append(item->isEnabled() ? item->text() : u"("_s + item->text() + u")"_s);
            }
        }
        return items;
    }

    bool OffersToAccept() const { return form->findChild<QAction*>(u"Menu95"_s) != nullptr; }
};

}  // namespace

/// Clicks that pass through the main window, and how the user ends that.
class TstMainWindowClicks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void AtFirstItTakesItsClicks();
    void ClicksGoThroughUnderTheIcon();
    void TheIconsMenuEndsIt();
    void TheMainMenuEndsItToo();
    void AClickOnTheIconOpensTheMenu();
    void WithoutAnIconClicksAreTaken();
    void WithoutAnIconTheyGoThroughIfTheUserAgreed();
    void TheWindowCanBeStoredMeanwhile();
    void AWiderWindowTakesItsClicksEverywhere();
    void TheEndIsSavedAtOnceIfThatIsChosen();
};

void TstMainWindowClicks::AtFirstItTakesItsClicks() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.time.Advance(kStartUp);
    QVERIFY(bench.passing.isEmpty());
    QVERIFY(!bench.tray.HasIcon());
    QVERIFY(!bench.OffersToAccept());
}

void TstMainWindowClicks::ClicksGoThroughUnderTheIcon() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.tray.isSlow = true;
    bench.StartPassing();
    QVERIFY(bench.passing.isEmpty());
    QVERIFY(bench.tray.Answer(true));
    QCOMPARE(bench.passing, QList<bool>{true});
    QVERIFY(bench.form->isVisible());
    QCOMPARE(bench.TrayItems(),
             (QStringList{u"クリックを受ける"_s, u"(ﾀｽｸﾄﾚｲから取り出す)"_s, u"(ﾍﾙﾌﾟ)"_s, u"終了"_s}));
}

void TstMainWindowClicks::TheIconsMenuEndsIt() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.StartPassing();
    bench.Item("Menu95").trigger();
    QCOMPARE(bench.passing, (QList<bool>{true, false}));
    QVERIFY(!bench.further.face.clickThrough);
    QVERIFY(!bench.tray.HasIcon());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!bench.OffersToAccept());
}

void TstMainWindowClicks::TheMainMenuEndsItToo() {
    Bench bench;
    bench.StartPassing();
    bench.form->ComeForwardWithMenu();
    auto& menu = ChildOf<QMenu>(*bench.form, u"Menu"_s);
    QVERIFY(menu.isVisible());
    QCOMPARE(menu.activeAction(), &bench.Item("Menu95"));
    QTest::keyClick(&menu, Qt::Key_Return);
    QVERIFY(!bench.further.face.clickThrough);
    QVERIFY(!menu.isVisible());
}

void TstMainWindowClicks::AClickOnTheIconOpensTheMenu() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.StartPassing();
    bench.tray.Click();
    QVERIFY(ChildOf<QMenu>(*bench.form, u"Menu"_s).isVisible());
    QVERIFY(bench.further.face.clickThrough);
}

void TstMainWindowClicks::WithoutAnIconClicksAreTaken() {
    Bench bench;
    bench.StartPassing();
    bench.time.Advance(kStartUp);
    QVERIFY(bench.passing.isEmpty());
    bench.tray.SetThere(true);
    bench.time.Advance(2000);
    QCOMPARE(bench.passing, QList<bool>{true});
    bench.tray.SetThere(false);
    bench.time.Advance(4000);
    QCOMPARE(bench.passing, (QList<bool>{true, false}));
    QVERIFY(bench.further.face.clickThrough);
}

void TstMainWindowClicks::WithoutAnIconTheyGoThroughIfTheUserAgreed() {
    Bench bench;
    bench.store.Put(u"Face"_s, u"ClickThroughWithoutIcon"_s, u"True"_s);
    bench.StartPassing();
    QCOMPARE(bench.passing, QList<bool>{true});
    bench.Item("Menu95").trigger();
    QCOMPARE(bench.passing, (QList<bool>{true, false}));
    QVERIFY(!bench.further.face.clickThroughWithoutIcon);
}

void TstMainWindowClicks::TheWindowCanBeStoredMeanwhile() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.StartPassing();
    bench.Item("Menu19").trigger();
    QVERIFY(!bench.form->isVisible());
    QCOMPARE(bench.TrayItems().at(1), u"ﾀｽｸﾄﾚｲから取り出す"_s);
    bench.Item("Menu91").trigger();
    QVERIFY(bench.form->isVisible());
    QVERIFY(bench.tray.HasIcon());
    QCOMPARE(bench.TrayItems().at(1), u"(ﾀｽｸﾄﾚｲから取り出す)"_s);
    bench.Item("Menu19").trigger();
    bench.Item("Menu95").trigger();
    QVERIFY(!bench.form->isVisible());
    QVERIFY(bench.tray.HasIcon());
    QVERIFY(bench.Item("Menu91").isEnabled());
    QCOMPARE(bench.passing, (QList<bool>{true, false}));
}

void TstMainWindowClicks::AWiderWindowTakesItsClicksEverywhere() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.form->resize(300, bench.form->height());
    QVERIFY(bench.passing.isEmpty());
    bench.further.face.clickThrough = true;
    bench.form->ApplySettings();
    bench.Item("Menu95").trigger();
    QCOMPARE(bench.passing, (QList<bool>{true, false}));
    bench.form->resize(320, bench.form->height());
    QCOMPARE(bench.passing.constLast(), false);  // requested again
    QVERIFY(bench.passing.size() > 2);
}

void TstMainWindowClicks::TheEndIsSavedAtOnceIfThatIsChosen() {
    Bench bench;
    bench.store.Put(u"Corrections"_s, u"SavesImmediately"_s, u"True"_s);
    bench.StartPassing();
    bench.Item("Menu95").trigger();
    QCOMPARE(bench.store.Get(u"Face"_s, u"ClickThrough"_s).value_or(QString()), u"False"_s);
}

QTEST_MAIN(TstMainWindowClicks)
#include "tst_main_window_clicks.moc"
