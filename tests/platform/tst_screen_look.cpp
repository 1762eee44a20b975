// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/desktop/screen_look.h"

using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// Whether there is anything to show windows on. No display is reachable here; with one it is tested with the
/// real program.
class TstScreenLook : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void APlatformNeedsItsPluginAndItsServer_data();
    void APlatformNeedsItsPluginAndItsServer();
};

void TstScreenLook::APlatformNeedsItsPluginAndItsServer_data() {
    QTest::addColumn<QByteArray>("platforms");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<bool>("canShow");
    QTest::newRow("without a server") << "offscreen"_ba
                                      << ""_ba << true;
    QTest::newRow("with parameters") << "offscreen:configfile=x"_ba
                                     << ""_ba << true;
    QTest::newRow("without a plugin") << "nosuch"_ba
                                      << ""_ba << false;
    QTest::newRow("the second one") << "nosuch;offscreen"_ba
                                    << ""_ba << true;
    QTest::newRow("X11 without a screen") << "xcb"_ba
                                          << ""_ba << false;
    QTest::newRow("X11 on a screen that is not there") << "xcb"_ba
                                                       << ":63999"_ba << false;
    QTest::newRow("X11 on a screen that has no such name") << "xcb"_ba
                                                           << "nonsense"_ba << false;
    QTest::newRow("Wayland without a compositor") << "wayland"_ba
                                                  << ""_ba << false;
    QTest::newRow("neither of them") << "xcb;wayland"_ba
                                     << ""_ba << false;
    QTest::newRow("something behind them") << "wayland;xcb;offscreen"_ba
                                           << ""_ba << true;
}

void TstScreenLook::APlatformNeedsItsPluginAndItsServer() {
    QFETCH(QByteArray, platforms);
    QFETCH(QByteArray, display);
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) {
        qunsetenv(variable);
    }
    QTEST(ScreenLook({platforms, display}).CanShowWindows(), "canShow");
}

QTEST_GUILESS_MAIN(TstScreenLook)
#include "tst_screen_look.moc"
