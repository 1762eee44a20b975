// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include "app/running_bench.h"
#include "media/cd_window.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSettled = 2;            // ms until changes are announced
constexpr qint64 kSecond = 1'000'000;  // µs
constexpr qint64 kLook = 10'000;       // ms between two checks of the drive

/// The program with media keys enabled.
struct Bench : RunningBench {
    explicit Bench(bool isOn = true) : RunningBench(u"0"_s) { state.started.further.remote.mediaKeys = isOn; }
    static void Choose(const char* item) {
        ChildOf<QAction>(Window("Form1"), QLatin1StringView(item)).trigger();
    }
    void Settle() { time.Advance(kSettled); }

    /// Makes the main window's lines show the CD player.
    void ShowPlayer() {
        Choose("Menu9");
        Settle();
        mediaKeys.TakeChanges();
    }
    void Call(const char* member, const QVariantList& arguments = {}) {
        mediaKeys.Call(member, arguments);
        Settle();
    }
    QString Status() { return mediaKeys.Get("PlaybackStatus").toString(); }
    int Track() { return Metadata().value(u"xesam:trackNumber"_s).toInt(); }
    QVariantMap Metadata() { return mediaKeys.Get("Metadata").toMap(); }
    qint64 Position() { return mediaKeys.Get("Position").toLongLong(); }
    QVariant TrackId() { return Metadata().value(u"mpris:trackid"_s); }

    /// The property names of the only change announced since the last call.
    QStringList TakeChange() {
        const QVariantList changes = mediaKeys.TakeChanges();
        return changes.size() == 1 ? changes.constFirst().toMap().keys()
                                   : QStringList{u"%1 changes"_s.arg(changes.size())};
    }
    void PassPlaying(int ms) {
        for (int left = ms; left > 0; left -= 50) {
            drive.Pass(50);
            time.Advance(50);
        }
    }
};

}  // namespace

/// The CD player of the running program, operated by media keys.
class TstMediaKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultNobodyFindsIt();
    void TheSettingsSwitchItOnAndOff();
    void ItIsFoundOnceThePlayerWasOpened();
    void WithoutADiscItIsNotFound();
    void ADiscTakenOutIsNoticedWithoutAWindow();
    void TheEndOfTheProgramWithdrawsIt();
    void KeysActLikeTheWindowsButtons();
    void WhileItIsPausedItOnlyPlaysOn();
    void ChangesAreTold();
    void ATrackThatBeginsByItselfIsTold();
    void JumpsAreTold();
    void APositionIsSought();
    void TheWindowIsOpened();
    void AFloodHarmsNothing();
};

void TstMediaKeys::ByDefaultNobodyFindsIt() {
    Bench bench(false);
    bench.ShowPlayer();
    bench.drive.looks = 0;
    bench.time.Advance(10 * kLook);
    QCOMPARE(bench.mediaKeys.offers, 0);
    QCOMPARE(bench.drive.looks, 0);
}

void TstMediaKeys::TheSettingsSwitchItOnAndOff() {
    Bench bench(false);
    bench.ShowPlayer();
    Bench::Choose("Menu17");
    auto& box = ChildOf<QCheckBox>(bench.Window("Form2"), u"Check31"_s);
    QVERIFY(!box.isChecked());
    box.click();
    QVERIFY(!bench.mediaKeys.IsOffered());
    bench.Press("Form2", "Command3");
    QVERIFY(bench.mediaKeys.IsOffered());
    bench.Press("Form2", "Command3");
    QCOMPARE(bench.mediaKeys.offers, 1);
    box.click();
    bench.Press("Form2", "Command1");
    QVERIFY(!bench.mediaKeys.IsOffered());
    bench.drive.looks = 0;
    bench.time.Advance(10 * kLook);
    QCOMPARE(bench.drive.looks, 0);
}

void TstMediaKeys::ItIsFoundOnceThePlayerWasOpened() {
    Bench bench;
    bench.time.Advance(60'000);
    QVERIFY(!bench.mediaKeys.IsOffered());
    bench.ShowPlayer();
    QVERIFY(bench.mediaKeys.IsOffered());
    Bench::Choose("Menu3");
    bench.time.Advance(60'000);
    QVERIFY(bench.mediaKeys.IsOffered());
    QCOMPARE(bench.mediaKeys.offers, 1);
}

void TstMediaKeys::WithoutADiscItIsNotFound() {
    Bench bench;
    bench.drive.TakeOut();
    bench.ShowPlayer();
    QVERIFY(!bench.mediaKeys.IsOffered());
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    bench.Settle();
    QVERIFY(bench.mediaKeys.IsOffered());
    bench.Call("Play");
    bench.drive.TakeOut();
    bench.drive.Tell();
    bench.Settle();
    QVERIFY(!bench.mediaKeys.IsOffered());
    bench.drive.PutIn(DataDisc());
    bench.drive.Tell();
    bench.Settle();
    QVERIFY(!bench.mediaKeys.IsOffered());
}

void TstMediaKeys::ADiscTakenOutIsNoticedWithoutAWindow() {
    Bench bench;
    bench.ShowPlayer();
    Bench::Choose("Menu3");  // the clock
    bench.drive.looks = 0;
    bench.time.Advance(3 * kLook);
    QCOMPARE(bench.drive.looks, 3);
    bench.drive.TakeOut();
    bench.drive.Tell();
    bench.Settle();
    QVERIFY(!bench.mediaKeys.IsOffered());
    bench.drive.PutIn(ThreeTracks());
    bench.time.Advance(2 * kLook);
    QVERIFY(bench.mediaKeys.IsOffered());
    bench.Call("Play");
    bench.drive.looks = 0;
    bench.time.Advance(3 * kLook);  // no checks while a disc is playing
    QCOMPARE(bench.drive.looks, 0);
}

void TstMediaKeys::TheEndOfTheProgramWithdrawsIt() {
    Bench bench;
    bench.ShowPlayer();
    QVERIFY(bench.Window("Form1").close());
    QVERIFY(!bench.mediaKeys.IsOffered());
}

void TstMediaKeys::KeysActLikeTheWindowsButtons() {
    Bench bench;
    bench.ShowPlayer();
    QCOMPARE(bench.Status(), u"Stopped"_s);
    QCOMPARE(bench.Track(), 0);
    bench.Call("Next");
    bench.Call("Next");
    QCOMPARE(bench.Track(), 2);
    QCOMPARE(bench.Metadata().value(u"mpris:length"_s).toLongLong(), 120 * kSecond);
    QCOMPARE(bench.Metadata().value(u"xesam:title"_s).toString(), u"トラック 2"_s);
    bench.Call("PlayPause");
    QCOMPARE(bench.Status(), u"Playing"_s);
    QCOMPARE(bench.program->Player().State().CdTrack, 2);
    bench.PassPlaying(5000);
    QCOMPARE(bench.Position(), 5 * kSecond);
    bench.Call("Previous");  // restarts the track
    QCOMPARE(bench.Track(), 2);
    QCOMPARE(bench.Position(), 0);
    bench.Call("Previous");  // within its first second: goes to the previous track
    QCOMPARE(bench.Track(), 1);
    bench.Call("Stop");
    QCOMPARE(bench.Status(), u"Stopped"_s);
    QCOMPARE(bench.Track(), 0);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstMediaKeys::WhileItIsPausedItOnlyPlaysOn() {
    Bench bench;
    bench.ShowPlayer();
    bench.Call("Play");
    bench.PassPlaying(3000);
    bench.Call("Pause");
    QCOMPARE(bench.Status(), u"Paused"_s);
    bench.drive.TakeRecord();
    bench.Call("Next");
    bench.Call("Previous");
    bench.Call("Pause");
    bench.Call("Seek", {10 * kSecond});
    QVERIFY_THROWS_EXCEPTION(remote::RefusedCall, bench.mediaKeys.Call("Stop"));
    QCOMPARE(bench.drive.TakeRecord(), QStringList());
    for (const char* can : {"CanGoNext", "CanGoPrevious", "CanSeek"}) {
        QVERIFY2(!bench.mediaKeys.Get(can).toBool(), can);
    }
    bench.Call("Play");
    QCOMPARE(bench.Status(), u"Playing"_s);
    QCOMPARE(bench.Position(), 3 * kSecond);
}

void TstMediaKeys::ChangesAreTold() {
    Bench bench;
    bench.ShowPlayer();
    bench.Call("Next");
    QCOMPARE(bench.TakeChange(), QStringList{u"Metadata"_s});
    bench.Call("Play");
    QCOMPARE(bench.TakeChange(), (QStringList{u"CanSeek"_s, u"PlaybackStatus"_s}));
    bench.PassPlaying(2000);
    QCOMPARE(bench.mediaKeys.TakeChanges(), QVariantList());  // changes of position are not announced
    Bench::Choose("Menu0");                                   // opens the window
    bench.Press("CDForm", "Command1(3)");
    bench.Settle();
    QCOMPARE(bench.TakeChange(),
             (QStringList{u"CanGoNext"_s, u"CanGoPrevious"_s, u"CanSeek"_s, u"PlaybackStatus"_s}));
    QCOMPARE(bench.mediaKeys.jumps, QList<qint64>());
}

void TstMediaKeys::ATrackThatBeginsByItselfIsTold() {
    Bench bench;
    bench.ShowPlayer();
    bench.Call("Play");
    bench.mediaKeys.TakeChanges();
    bench.PassPlaying(99'000);
    QCOMPARE(bench.mediaKeys.TakeChanges(), QVariantList());
    bench.PassPlaying(2000);
    QCOMPARE(bench.TakeChange(), QStringList{u"Metadata"_s});
    QCOMPARE(bench.Track(), 2);
    bench.PassPlaying(220'000);  // to the end of the disc
    QCOMPARE(bench.Status(), u"Stopped"_s);
    QCOMPARE(bench.mediaKeys.jumps, QList<qint64>());
}

void TstMediaKeys::JumpsAreTold() {
    Bench bench;
    bench.ShowPlayer();
    bench.Call("Play");
    bench.PassPlaying(10'000);
    bench.Call("Seek", {5 * kSecond});
    QCOMPARE(bench.mediaKeys.jumps, QList<qint64>{15 * kSecond});
    bench.Call("Seek", {-20 * kSecond});
    QCOMPARE(bench.mediaKeys.jumps.takeLast(), 0);
    bench.PassPlaying(2000);
    bench.mediaKeys.jumps.clear();
    bench.Call("Previous");
    QCOMPARE(bench.mediaKeys.jumps, QList<qint64>{0});
}

void TstMediaKeys::APositionIsSought() {
    Bench bench;
    bench.ShowPlayer();
    bench.Call("Next");
    bench.Call("Next");
    bench.Call("Play");
    bench.Call("SetPosition", {bench.TrackId(), 100 * kSecond});
    QCOMPARE(bench.Track(), 2);
    QCOMPARE(bench.Position(), 100 * kSecond);
    bench.Call("SetPosition", {bench.TrackId(), 121 * kSecond});
    QCOMPARE(bench.Position(), 100 * kSecond);
    bench.Call("Seek", {30 * kSecond});
    QCOMPARE(bench.Track(), 3);
    QCOMPARE(bench.Position(), 0);
}

void TstMediaKeys::TheWindowIsOpened() {
    Bench bench;
    bench.ShowPlayer();
    bench.Call("Raise");
    QVERIFY(bench.Window("CDForm").isVisible());
}

void TstMediaKeys::AFloodHarmsNothing() {
    Bench bench;
    bench.ShowPlayer();
    int refused = 0;
    for (int call = 0; call < 1000; ++call) {
        try {
            bench.mediaKeys.Call(call % 3 == 0 ? "PlayPause" : call % 3 == 1 ? "Next" : "Stop");
        } catch (const remote::RefusedCall&) {
            ++refused;
        }
    }
    QVERIFY(refused >= 900);
    bench.time.Advance(1000);
    bench.mediaKeys.Get("PlaybackStatus");
    QVERIFY(bench.mediaKeys.TakeChanges().size() <= 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

QTEST_MAIN(TstMediaKeys)
#include "tst_media_keys.moc"
