// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMenu>
#include <QTest>

#include "platform/time/virtual_time.h"
#include "shell/tray_storage.h"
#include "support/fake_message_boxes.h"
#include "support/fake_tray.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    FakeTray tray;
    QMenu menu;
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 0};
    QList<bool> told;
    QList<bool> icons;
    int clicks = 0;
    TrayStorage storage{tray, menu, handlers, time, [this](bool stored) { told.append(stored); }};

    Bench() {
        tray.WhenChanged([this] { storage.AreaChanged(); });
    }

    void Keep() {
        storage.KeepIcon(
            {.changed = [this] { icons.append(storage.HasIcon()); }, .clicked = [this] { ++clicks; }});
    }
};

}  // namespace

/// The main window in the notification area, and back.
class TstTrayStorage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WithoutAnAreaTheWindowStays();
    void TheIconHasTipAndMenu();
    void AClickTakesTheWindowBack();
    void StoringTwiceIsStoringOnce();
    void TheWindowReturnsIfTheAreaIsGone();
    void TheWindowStaysStoredIfTheAreaRestarts();
    void AnAreaThatHangsIsNoticed();
    void AStoredWindowHardlyTicks();
    void RemovingTheIconDoesNotShowTheWindow();
    void NothingTicksOutsideTheArea();
    void TheWindowGoesWhenTheIconHasCome();
    void WithoutAnIconTheWindowStays();
    void APendingStoreIsWithdrawn();
    void AKeptIconStaysWhenTheWindowReturns();
    void AKeptIconIsClickedForItself();
    void AKeptIconComesAsSoonAsThereIsAnArea();
    void AKeptIconReturnsWithTheArea();
    void TheIconOfAStoredWindowIsNotReleased();
    void AWindowIsStoredUnderAKeptIcon();
    void AReleasedIconIsNotWatched();
};

void TstTrayStorage::WithoutAnAreaTheWindowStays() {
    Bench bench;
    QVERIFY(!bench.storage.CanStore());
    bench.storage.Store();
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(!bench.tray.HasIcon());
    QCOMPARE(bench.told, QList<bool>());
}

void TstTrayStorage::TheIconHasTipAndMenu() {
    Bench bench;
    bench.tray.SetThere(true);
    QVERIFY(bench.storage.CanStore());
    bench.storage.Store();
    QVERIFY(bench.storage.IsStored());
    QCOMPARE(bench.tray.Tip(), u"Tickwell Ver.2"_s);
    QCOMPARE(bench.tray.Menu(), &bench.menu);
    QCOMPARE(bench.told, QList<bool>{true});
}

void TstTrayStorage::AClickTakesTheWindowBack() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    bench.tray.Click();
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(!bench.tray.HasIcon());
    QCOMPARE(bench.told, (QList<bool>{true, false}));
    bench.storage.TakeBack();
    QCOMPARE(bench.told.size(), 2);
}

void TstTrayStorage::StoringTwiceIsStoringOnce() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    bench.storage.Store();
    QCOMPARE(bench.told, QList<bool>{true});
}

void TstTrayStorage::TheWindowReturnsIfTheAreaIsGone() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    bench.time.Advance(60'000);
    QVERIFY(bench.storage.IsStored());
    bench.tray.SetThere(false);
    bench.time.Advance(2000);
    QVERIFY(bench.storage.IsStored());  // a single failed check may just be a restarting panel
    bench.time.Advance(2000);
    QVERIFY(!bench.storage.IsStored());
    QCOMPARE(bench.told, (QList<bool>{true, false}));
}

void TstTrayStorage::TheWindowStaysStoredIfTheAreaRestarts() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    for (int restart = 0; restart < 3; ++restart) {
        bench.tray.SetThere(false);
        bench.time.Advance(2000);
        bench.tray.SetThere(true);
        bench.time.Advance(2000);
    }
    QVERIFY(bench.storage.IsStored());
}

void TstTrayStorage::AnAreaThatHangsIsNoticed() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    bench.tray.WhenChanged(nullptr);
    bench.tray.SetThere(false);
    bench.time.Advance(15'000);
    QVERIFY(bench.storage.IsStored());
    bench.time.Advance(2000);
    QVERIFY(!bench.storage.IsStored());
}

void TstTrayStorage::AStoredWindowHardlyTicks() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    QCOMPARE(bench.time.UntilNext(), 15'000);
    bench.tray.SetThere(false);
    bench.time.Advance(1000);
    bench.tray.SetThere(true);
    bench.time.Advance(2000);
    QCOMPARE(bench.time.UntilNext(), 15'000);
    QVERIFY(bench.storage.IsStored());
}

void TstTrayStorage::RemovingTheIconDoesNotShowTheWindow() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    bench.storage.Remove();
    QVERIFY(!bench.tray.HasIcon());
    QCOMPARE(bench.told, QList<bool>{true});
}

void TstTrayStorage::NothingTicksOutsideTheArea() {
    Bench bench;
    bench.tray.SetThere(true);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.storage.Store();
    QVERIFY(bench.time.UntilNext().has_value());
    bench.storage.TakeBack();
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstTrayStorage::TheWindowGoesWhenTheIconHasCome() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.tray.isSlow = true;
    bench.storage.Store();
    bench.storage.Store();
    QVERIFY(!bench.storage.IsStored());
    QCOMPARE(bench.told, QList<bool>());
    QVERIFY(bench.tray.Answer(true));
    QVERIFY(bench.storage.IsStored());
    QCOMPARE(bench.told, QList<bool>{true});
}

void TstTrayStorage::WithoutAnIconTheWindowStays() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.tray.isSlow = true;
    bench.storage.Store();
    QVERIFY(bench.tray.Answer(false));
    QVERIFY(!bench.storage.IsStored());
    QCOMPARE(bench.told, QList<bool>());
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.tray.isSlow = false;
    bench.storage.Store();  // a later attempt can succeed
    QCOMPARE(bench.told, QList<bool>{true});
}

void TstTrayStorage::APendingStoreIsWithdrawn() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.tray.isSlow = true;
    bench.storage.Store();
    bench.storage.TakeBack();
    QVERIFY(!bench.tray.Answer(true));
    bench.storage.Store();
    bench.storage.Remove();
    QVERIFY(!bench.tray.Answer(true));
    QCOMPARE(bench.told, QList<bool>());
}

void TstTrayStorage::AKeptIconStaysWhenTheWindowReturns() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.storage.Store();
    bench.Keep();
    bench.storage.TakeBack();
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(bench.tray.HasIcon());
    bench.storage.ReleaseIcon();
    QVERIFY(!bench.tray.HasIcon());
    QCOMPARE(bench.told, (QList<bool>{true, false}));
}

void TstTrayStorage::AKeptIconIsClickedForItself() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.Keep();
    QCOMPARE(bench.icons, QList<bool>{true});
    bench.tray.Click();
    QCOMPARE(bench.clicks, 1);
    bench.storage.Store();
    bench.tray.Click();
    QCOMPARE(bench.clicks, 1);
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(bench.tray.HasIcon());
}

void TstTrayStorage::AKeptIconComesAsSoonAsThereIsAnArea() {
    Bench bench;
    bench.Keep();
    bench.time.Advance(60'000);
    QVERIFY(!bench.storage.HasIcon());
    bench.tray.SetThere(true);
    bench.time.Advance(2000);
    QVERIFY(bench.storage.HasIcon());
    QCOMPARE(bench.icons, QList<bool>{true});
}

void TstTrayStorage::AKeptIconReturnsWithTheArea() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.Keep();
    bench.tray.SetThere(false);
    bench.time.Advance(2000);
    QVERIFY(bench.storage.HasIcon());  // a single failed check may just be a restarting panel
    bench.time.Advance(2000);
    QVERIFY(!bench.storage.HasIcon());
    QVERIFY(!bench.tray.HasIcon());
    QCOMPARE(bench.time.UntilNext(), 15'000);
    bench.tray.SetThere(true);
    bench.time.Advance(2000);
    QVERIFY(bench.tray.HasIcon());
    QCOMPARE(bench.icons, (QList<bool>{true, false, true}));
    QCOMPARE(bench.told, QList<bool>());
}

void TstTrayStorage::TheIconOfAStoredWindowIsNotReleased() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.Keep();
    bench.storage.Store();
    bench.storage.ReleaseIcon();
    QVERIFY(bench.storage.IsStored());
    QVERIFY(bench.tray.HasIcon());
    bench.tray.Click();
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(!bench.tray.HasIcon());
}

void TstTrayStorage::AWindowIsStoredUnderAKeptIcon() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.tray.isSlow = true;
    bench.Keep();
    bench.storage.Store();  // the icon has already been requested
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(bench.tray.Answer(true));
    QVERIFY(bench.storage.IsStored());
    bench.tray.SetThere(false);
    bench.time.Advance(4000);
    QVERIFY(!bench.storage.IsStored());
    QVERIFY(!bench.storage.HasIcon());
    QCOMPARE(bench.told, (QList<bool>{true, false}));
}

void TstTrayStorage::AReleasedIconIsNotWatched() {
    Bench bench;
    bench.tray.SetThere(true);
    bench.Keep();
    QVERIFY(bench.time.UntilNext().has_value());
    bench.storage.ReleaseIcon();
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.Keep();
    bench.storage.Remove();
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    QVERIFY(!bench.tray.HasIcon());
}

QTEST_MAIN(TstTrayStorage)
#include "tst_tray_storage.moc"
