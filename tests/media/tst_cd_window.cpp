// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>
#include <QTest>

#include "media/cd_bench.h"
#include "media/cd_window.h"
#include "media/transport_icons.h"
#include "support/child.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

struct WindowBench : CdBench {
    std::unique_ptr<CDForm> window;

    explicit WindowBench(const CdContents& contents = ThreeTracks()) {
        Start(contents);
        Open();
        TakeAll();
    }
    void Open() {
        window = std::make_unique<CDForm>(player, handlers, nullptr);
        window->show();
    }
    QPushButton& Button(int index) const {
        return ChildOf<QPushButton>(*window, u"Command1(%1)"_s.arg(index));
    }
    QAction& Item(const QString& name) const { return ChildOf<QAction>(*window, name); }
    QMenu& Menu(const QString& name) const { return ChildOf<QMenu>(*window, name); }
    QString Caption() const { return ChildOf<QLabel>(*window, u"Label1"_s).text(); }
    QString Enabled() const {
        QString enabled;
        for (int index = 0; index < 7; ++index) {
            enabled += Button(index).isEnabled() ? QString::number(index) : QString();
        }
        return enabled;
    }
    QString CheckedFormat() const {
        QStringList checked;
        for (const QAction* action : Menu(u"cdtm"_s).actions()) {
            if (action->isChecked()) {
                checked.append(action->text());
            }
        }
        return checked.join(u' ');
    }
};

}  // namespace

/// The window of the CD player.
class TstCdWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItSaysWhatItIs();
    void MenusHoldTheirItems();
    void ButtonsHaveAccessibleNames();
    void OpeningItFindsTheDisc();
    void TheStateIsShown();
    void WithoutADiscNothingCanBePressed();
    void OneFormatIsCheckedAtATime();
    void TheFormatOutlivesTheWindow();
    void RepeatItemsDoNothingOnPurpose();
    void HoldingAButtonRewinds();
    void HoldingByKeyRewinds();
    void ClosingReleasesAHeldButton();
    void ThePlayerPlaysOnWithoutItsWindow();
    void EscapeClosesIt();
    void TheFocusStaysOnAnEnabledButton();
    void ButtonsFollowEachOtherByTab();
    void SymbolsAreDrawnInTheTextColour();
};

void TstCdWindow::ItSaysWhatItIs() {
    const WindowBench bench;
    QCOMPARE(bench.window->objectName(), u"CDForm"_s);
    QCOMPARE(bench.window->windowTitle(), u"CDプレーヤー"_s);
    QCOMPARE(bench.Caption(), u"停止"_s);
}

void TstCdWindow::MenusHoldTheirItems() {
    const WindowBench bench;
    const auto items = [&](const QString& menu) {
        QStringList all{bench.Menu(menu).title()};
        for (const QAction* action : bench.Menu(menu).actions()) {
            all.append(action->objectName() + u' ' + action->text());
        }
        return all;
    };
    QCOMPARE(items(u"cdtm"_s), (QStringList{u"表示形式"_s, u"cdm(1) 標準"_s, u"cdm(2) 一曲分の残り時間"_s,
                                            u"cdm(3) 全曲の残り時間"_s}));
    QCOMPARE(items(u"cdtm1"_s), (QStringList{u"リピート"_s, u"cdr(1) しない"_s, u"cdr(2) 一曲リピート"_s,
                                             u"cdr(3) 全曲リピート"_s}));
}

void TstCdWindow::ButtonsHaveAccessibleNames() {
    const WindowBench bench;
    const QStringList names{u"前の曲に戻る"_s, u"巻戻し"_s, u"再生"_s,        u"一時停止"_s,
                            u"停止"_s,         u"早送り"_s, u"次の曲に進む"_s};
    for (int index = 0; index < 7; ++index) {
        QCOMPARE(bench.Button(index).accessibleName(), names[index]);
        QCOMPARE(bench.Button(index).toolTip(), names[index]);
        QVERIFY(!bench.Button(index).icon().isNull());
    }
}

void TstCdWindow::OpeningItFindsTheDisc() {
    const WindowBench bench;
    QCOMPARE(bench.player.State().CdTrackCount, 3);
    QCOMPARE(bench.Enabled(), u"026"_s);
    QVERIFY(bench.Menu(u"cdtm"_s).isEnabled());
}

void TstCdWindow::TheStateIsShown() {
    WindowBench bench;
    bench.Button(kCdPlay).click();
    QCOMPARE(bench.Caption(), u"再生"_s);
    QCOMPARE(bench.Enabled(), u"013456"_s);
    bench.Button(kCdPause).click();
    QCOMPARE(bench.Caption(), u"一時停止"_s);
    QCOMPARE(bench.Enabled(), u"3"_s);
    bench.Button(kCdPause).click();
    QCOMPARE(bench.Caption(), u"再生"_s);
    bench.Button(kCdStop).click();
    QCOMPARE(bench.Caption(), u"停止"_s);
    QCOMPARE(bench.Done(), (QStringList{PlayFrom(0), u"pause"_s, u"go on 22500"_s, u"stop"_s}));
}

void TstCdWindow::WithoutADiscNothingCanBePressed() {
    WindowBench bench;
    bench.drive.TakeOut();
    bench.drive.Tell();
    QCOMPARE(bench.Enabled(), u""_s);
    QCOMPARE(bench.Caption(), u"再生不可"_s);
    QVERIFY(!bench.Menu(u"cdtm"_s).isEnabled());
    QVERIFY(!bench.Menu(u"cdtm1"_s).isEnabled());
}

void TstCdWindow::OneFormatIsCheckedAtATime() {
    const WindowBench bench;
    QCOMPARE(bench.CheckedFormat(), u"標準"_s);
    bench.Item(u"cdm(3)"_s).trigger();
    QCOMPARE(bench.CheckedFormat(), u"全曲の残り時間"_s);
    QCOMPARE(bench.player.State().CdDisplayFormat, 2);
    bench.Item(u"cdm(3)"_s).trigger();
    QCOMPARE(bench.CheckedFormat(), u"全曲の残り時間"_s);
    bench.Item(u"cdm(2)"_s).trigger();
    QCOMPARE(bench.CheckedFormat(), u"一曲分の残り時間"_s);
    QCOMPARE(bench.player.State().CdDisplayFormat, 1);
}

void TstCdWindow::TheFormatOutlivesTheWindow() {
    WindowBench bench;
    bench.Item(u"cdm(2)"_s).trigger();
    bench.window.reset();
    bench.Open();
    QCOMPARE(bench.CheckedFormat(), u"一曲分の残り時間"_s);
}

void TstCdWindow::RepeatItemsDoNothingOnPurpose() {
    WindowBench bench;
    bench.Button(kCdPlay).click();
    bench.TakeAll();
    for (const QString& name : {u"cdr(1)"_s, u"cdr(2)"_s, u"cdr(3)"_s}) {
        bench.Item(name).trigger();
        QVERIFY(!bench.Item(name).isCheckable());
    }
    QVERIFY(bench.Done().isEmpty());
    bench.Pass(301'000);
    QCOMPARE(bench.State(), kCdStopped);
}

void TstCdWindow::HoldingAButtonRewinds() {
    WindowBench bench;
    bench.Button(kCdPlay).click();
    bench.drive.SetMilliseconds(60'000);
    bench.TakeAll();
    QTest::mousePress(&bench.Button(kCdRewind), Qt::LeftButton);
    bench.time.Advance(250);
    QTest::mouseRelease(&bench.Button(kCdRewind), Qt::LeftButton);
    bench.time.Advance(2000);
    QCOMPARE(bench.Done(), (QStringList{PlayFrom(57), PlayFrom(54)}));
    QCOMPARE(bench.State(), kCdPlaying);
}

void TstCdWindow::HoldingByKeyRewinds() {
    WindowBench bench;
    bench.Button(kCdPlay).click();
    bench.drive.SetMilliseconds(60'000);
    bench.TakeAll();
    QTest::keyPress(&bench.Button(kCdForward), Qt::Key_Space);
    QTest::keyRelease(&bench.Button(kCdForward), Qt::Key_Space);
    bench.time.Advance(2000);
    QCOMPARE(bench.Done(), QStringList{PlayFrom(63)});
}

void TstCdWindow::ClosingReleasesAHeldButton() {
    WindowBench bench;
    bench.Button(kCdPlay).click();
    QTest::mousePress(&bench.Button(kCdRewind), Qt::LeftButton);
    bench.TakeAll();
    bench.window->close();
    bench.time.Advance(2000);
    QVERIFY(bench.Done().isEmpty());
}

void TstCdWindow::ThePlayerPlaysOnWithoutItsWindow() {
    WindowBench bench;
    bench.Button(kCdPlay).click();
    bench.TakeAll();
    bench.window.reset();
    bench.Pass(101'000);
    QCOMPARE(bench.State(), kCdPlaying);
    QCOMPARE(bench.Track(), 2);
    QVERIFY(bench.Done().isEmpty());
    bench.Open();
    QCOMPARE(bench.Caption(), u"再生"_s);
    QCOMPARE(bench.Enabled(), u"013456"_s);
}

void TstCdWindow::EscapeClosesIt() {
    WindowBench bench;
    QTest::keyClick(bench.window.get(), Qt::Key_Escape);
    QVERIFY(bench.window->isHidden());
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstCdWindow::TheFocusStaysOnAnEnabledButton() {
    WindowBench bench;
    bench.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(bench.window.get()));
    QCOMPARE(bench.window->focusWidget(), &bench.Button(kCdPlay));
    bench.Button(kCdPlay).click();
    QCOMPARE(bench.window->focusWidget(), &bench.Button(kCdPause));
    bench.Button(kCdPause).click();
    QCOMPARE(bench.window->focusWidget(), &bench.Button(kCdPause));
    bench.Button(kCdPause).click();
    bench.Button(kCdNext).setFocus();
    bench.Button(kCdNext).click();
    QCOMPARE(bench.window->focusWidget(), &bench.Button(kCdNext));
    bench.Button(kCdStop).setFocus();
    bench.Button(kCdStop).click();
    QCOMPARE(bench.window->focusWidget(), &bench.Button(kCdPlay));
    bench.drive.TakeOut();
    bench.drive.Tell();
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QCOMPARE(bench.window->focusWidget(), &bench.Button(kCdPlay));
}

void TstCdWindow::ButtonsFollowEachOtherByTab() {
    const WindowBench bench;
    for (int index = 0; index < 6; ++index) {
        QCOMPARE(bench.Button(index).nextInFocusChain(), &bench.Button(index + 1));
    }
}

void TstCdWindow::SymbolsAreDrawnInTheTextColour() {
    const QPalette before = QGuiApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Active, QPalette::ButtonText, Qt::yellow);
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::gray);
    QGuiApplication::setPalette(dark);
    const auto middle = [](QIcon::Mode mode) {
        return TransportIcon(kCdStop).pixmap(QSize(32, 32), mode).toImage().pixelColor(16, 16);
    };
    const QColor active = middle(QIcon::Normal);
    const QColor disabled = middle(QIcon::Disabled);
    const QColor corner = TransportIcon(kCdStop).pixmap(QSize(32, 32)).toImage().pixelColor(0, 0);
    QGuiApplication::setPalette(before);
    QCOMPARE(active, QColor(Qt::yellow));
    QCOMPARE(disabled, QColor(Qt::gray));
    QCOMPARE(corner.alpha(), 0);
}

QTEST_MAIN(TstCdWindow)
#include "tst_cd_window.moc"
