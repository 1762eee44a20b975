// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/qt_arguments.h"

using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// Separating the arguments that Qt would consume from those of the program.
class TstQtArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void QtsAreTakenOut_data();
    void QtsAreTakenOut();
    void ScreenAndPlatformAreKept_data();
    void ScreenAndPlatformAreKept();
};

void TstQtArguments::QtsAreTakenOut_data() {
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QStringList>("own");
    QTest::newRow("none") << QByteArrayList{} << QStringList{};
    QTest::newRow("only the program's")
        << QByteArrayList{"--folder", "/a", "--menu"} << QStringList{u"--folder"_s, u"/a"_s, u"--menu"_s};
    QTest::newRow("with a value") << QByteArrayList{"-platform", "offscreen", "--menu"}
                                  << QStringList{u"--menu"_s};
    QTest::newRow("with two hyphens")
        << QByteArrayList{"--menu", "--style", "fusion"} << QStringList{u"--menu"_s};
    QTest::newRow("with an equals sign")
        << QByteArrayList{"-style=fusion", "--menu"} << QStringList{u"--menu"_s};
    QTest::newRow("without a value") << QByteArrayList{"-reverse", "--menu"} << QStringList{u"--menu"_s};
    QTest::newRow("a value that is missing") << QByteArrayList{"-platform"} << QStringList{u"-platform"_s};
    QTest::newRow("the program's value after an equals sign")
        << QByteArrayList{"--folder=-style"} << QStringList{u"--folder=-style"_s};
    QTest::newRow("a mistake") << QByteArrayList{"--loud"} << QStringList{u"--loud"_s};
    QTest::newRow("a word of that name") << QByteArrayList{"style", "x"} << QStringList{u"style"_s, u"x"_s};
}

void TstQtArguments::QtsAreTakenOut() {
    QFETCH(QByteArrayList, arguments);
    QFETCH(QStringList, own);
    QCOMPARE(Divided(QByteArrayList{"-style"} + arguments).own, QStringList{u"-style"_s} + own);
}

void TstQtArguments::ScreenAndPlatformAreKept_data() {
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QByteArray>("platforms");
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("none") << QByteArrayList{"--menu"} << ""_ba
                          << ""_ba;
    QTest::newRow("a platform") << QByteArrayList{"-platform", "offscreen"} << "offscreen"_ba
                                << ""_ba;
    QTest::newRow("the last platform") << QByteArrayList{"-platform", "xcb", "--platform", "vnc"} << "vnc"_ba
                                       << ""_ba;
    QTest::newRow("a screen") << QByteArrayList{"-display", ":7"} << ""_ba
                              << ":7"_ba;
}

void TstQtArguments::ScreenAndPlatformAreKept() {
    QFETCH(QByteArrayList, arguments);
    const DividedArguments divided = Divided(QByteArrayList{"tickwell"} + arguments);
    QTEST(divided.platforms, "platforms");
    QTEST(divided.display, "display");
}

QTEST_GUILESS_MAIN(TstQtArguments)
#include "tst_qt_arguments.moc"
