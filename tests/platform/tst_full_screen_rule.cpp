// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/desktop/full_screen_rule.h"

using namespace tickwell::platform;

Q_DECLARE_METATYPE(QList<DesktopWindow>)

namespace {

constexpr quint32 kNone = 0;
const QRect kLeft(0, 0, 1920, 1080);
const QRect kRight(1920, 0, 1280, 1024);
const QRect kClock(100, 100, 167, 40);

DesktopWindow Window(quint32 id, const QRect& area) {
    return {.id = id, .area = area};
}
DesktopWindow FullScreen(quint32 id, const QRect& area = kLeft) {
    return {.id = id, .area = area, .isFullScreen = true};
}
DesktopWindow NotShown(DesktopWindow window) {
    window.isShown = false;
    return window;
}
DesktopWindow Ours(DesktopWindow window) {
    window.isOurs = true;
    return window;
}

}  // namespace

/// Which full-screen windows count. Each row lists the windows from the lowest to the topmost.
class TstFullScreenRule : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OnlyOneThatIsSeenCounts_data();
    void OnlyOneThatIsSeenCounts();
};

void TstFullScreenRule::OnlyOneThatIsSeenCounts_data() {
    QTest::addColumn<QList<DesktopWindow>>("stack");
    QTest::addColumn<quint32>("active");
    QTest::addColumn<bool>("counts");
    const auto row = [](const char* name, const QList<DesktopWindow>& stack, quint32 active, bool counts) {
        QTest::newRow(name) << stack << active << counts;
    };
    const DesktopWindow clock = Ours(Window(9, kClock));
    const DesktopWindow small = Window(2, QRect(1000, 800, 300, 200));
    const DesktopWindow large = Window(3, QRect(0, 24, 1920, 1056));
    row("no windows", {}, kNone, false);
    row("only this program", {clock}, 9, false);
    row("none is full-screen", {large, small, clock}, 3, false);
    row("as large as the screen, but not full-screen", {Window(1, kLeft), clock}, 1, false);
    row("active", {FullScreen(1), clock}, 1, true);
    row("above the clock", {clock, FullScreen(1)}, 1, true);
    row("not active, but seen", {FullScreen(1), clock}, kNone, true);
    row("the active window is elsewhere on the screen", {FullScreen(1), small, clock}, 2, true);
    row("behind the active window", {FullScreen(1), large, clock}, 3, false);
    row("active behind a window that stays above", {FullScreen(1), large, clock}, 1, true);
    row("above another window", {large, FullScreen(1), clock}, 3, true);
    row("one of two is behind", {FullScreen(1), large, FullScreen(4), clock}, 4, true);
    row("iconified or elsewhere", {NotShown(FullScreen(1)), clock}, kNone, false);
    row("active but not shown", {NotShown(FullScreen(1)), clock}, 1, false);
    row("behind a window that is not shown", {FullScreen(1), NotShown(large), clock}, kNone, true);
    row("on the other screen", {FullScreen(1, kRight), clock}, 1, false);
    row("this program's own", {Ours(FullScreen(1)), clock}, 1, false);
    row("behind this program's dialog", {FullScreen(1), Ours(large), clock}, 3, true);
    row("gone meanwhile", {FullScreen(1, QRect()), clock}, 1, false);
}

void TstFullScreenRule::OnlyOneThatIsSeenCounts() {
    QFETCH(const QList<DesktopWindow>, stack);
    QFETCH(const quint32, active);
    QTEST(IsUnderFullScreen(stack, active, kClock), "counts");
}

QTEST_GUILESS_MAIN(TstFullScreenRule)
#include "tst_full_screen_rule.moc"
