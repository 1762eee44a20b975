// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/about_text.h"
#include "support/fake_program_starter.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

const QString kFirst = u"ダウンロードしていただきまして、"_s + QChar(0x0d) + u"ありがとうございます。"_s;
const QString kSecond =
    u"ご意見、ご感想をお寄せください。"_s + QChar(0x0d) + u"今後の開発に生かしたいと思います。"_s;
const QString kThird =
    u"連絡先はヘルプに記載しています。"_s + QChar(0x0d) + u"詳しくは連絡先をご覧ください。"_s;

}  // namespace

/// The texts of the about box, without the box.
class TstAboutText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ThanksFollowEachOther_data();
    void ThanksFollowEachOther();
    void LinesAreBrokenOnlyForDrawing();
    void TheVersionHasNoBlankAndNoZeros_data();
    void TheVersionHasNoBlankAndNoZeros();
    void FactsArePlainLines();
    void TheFirstProgramThatIsThereIsStarted_data();
    void TheFirstProgramThatIsThereIsStarted();
    void AProgramThatDoesNotStartIsSkipped();
};

void TstAboutText::ThanksFollowEachOther_data() {
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("next");
    QTest::newRow("first") << kFirst << kSecond;
    QTest::newRow("second") << kSecond << kThird;
    QTest::newRow("third") << kThird << kFirst;
    QTest::newRow("nothing") << QString() << kFirst;
    QTest::newRow("something else") << u"Tickwell"_s << kFirst;
    QTest::newRow("joined by a line feed is something else")
        << QString(kFirst).replace(u'\r', u'\n') << kFirst;
    QTest::newRow("joined by both is something else") << QString(kFirst).replace(u'\r', u"\r\n"_s) << kFirst;
}

void TstAboutText::ThanksFollowEachOther() {
    QFETCH(QString, shown);
    QFETCH(QString, next);
    QCOMPARE(NextThanks(shown), next);
    QCOMPARE(FirstThanks(), kFirst);
}

void TstAboutText::LinesAreBrokenOnlyForDrawing() {
    QCOMPARE(ThanksLines(kFirst), u"ダウンロードしていただきまして、\nありがとうございます。"_s);
}

void TstAboutText::TheVersionHasNoBlankAndNoZeros_data() {
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<QString>("text");
    QTest::newRow("this one") << QList<int>{2, 0, 0} << u"Ver.2.0.0"_s;
    QTest::newRow("large numbers") << QList<int>{10, 12, 345} << u"Ver.10.12.345"_s;
}

void TstAboutText::TheVersionHasNoBlankAndNoZeros() {
    QFETCH(QList<int>, numbers);
    QFETCH(QString, text);
    QCOMPARE(VersionText(numbers[0], numbers[1], numbers[2]), text);
}

void TstAboutText::FactsArePlainLines() {
    SystemFacts facts;
    facts.programVersion = u"2.0.0"_s;
    facts.qtVersion = u"6.4.2"_s;
    facts.system = u"Debian GNU/Linux 12 (bookworm)"_s;
    facts.kernel = u"linux 6.1.0 x86_64"_s;
    facts.desktop = u"XFCE x11"_s;
    facts.platform = u"xcb"_s;
    facts.screens = QStringList{u"1920x1080, 96 dpi, x1"_s, u"3840x2160, 192 dpi, x2"_s};
    facts.style = u"fusion"_s;
    facts.locale = u"ja_JP"_s;
    QCOMPARE(FactsText(facts),
             u"Tickwell: 2.0.0\n"
             u"Qt: 6.4.2\n"
             u"OS: Debian GNU/Linux 12 (bookworm)\n"
             u"カーネル: linux 6.1.0 x86_64\n"
             u"デスクトップ: XFCE x11\n"
             u"プラットフォーム: xcb\n"
             u"画面1: 1920x1080, 96 dpi, x1\n"
             u"画面2: 3840x2160, 192 dpi, x2\n"
             u"スタイル: fusion\n"
             u"フォント: 不明\n"
             u"ロケール: ja_JP\n"_s);
}

void TstAboutText::TheFirstProgramThatIsThereIsStarted_data() {
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<QString>("started");
    QTest::addColumn<QStringList>("arguments");
    const QStringList none;
    QTest::newRow("none") << none << QString() << none;
    QTest::newRow("any desktop") << QStringList{u"hardinfo"_s} << u"hardinfo"_s << none;
    QTest::newRow("KDE") << QStringList{u"kinfocenter"_s, u"plasma-systemmonitor"_s} << u"kinfocenter"_s
                         << none;
    QTest::newRow("Cinnamon") << QStringList{u"gnome-system-monitor"_s, u"cinnamon-settings"_s}
                              << u"cinnamon-settings"_s << QStringList{u"info"_s};
    QTest::newRow("MATE") << QStringList{u"mate-system-monitor"_s} << u"mate-system-monitor"_s
                          << QStringList{u"--show-system-tab"_s};
    QTest::newRow("Xfce") << QStringList{u"xfce4-about"_s} << u"xfce4-about"_s << none;
    QTest::newRow("GNOME") << QStringList{u"gnome-system-monitor"_s} << u"gnome-system-monitor"_s << none;
    QTest::newRow("programs made for system information go first")
        << QStringList{u"gnome-system-monitor"_s, u"kinfocenter"_s, u"hardinfo"_s} << u"hardinfo"_s << none;
    QTest::newRow("programs of another kind are left alone") << QStringList{u"xterm"_s} << QString() << none;
}

void TstAboutText::TheFirstProgramThatIsThereIsStarted() {
    QFETCH(QStringList, installed);
    QFETCH(QString, started);
    QFETCH(QStringList, arguments);
    FakeProgramStarter programs;
    for (const QString& name : installed) {
        programs.found.insert(name, u"/usr/bin/"_s + name);
    }
    QCOMPARE(StartSystemInformation(programs, u"/folder"_s), !started.isEmpty());
    QCOMPARE(programs.started.size(), started.isEmpty() ? 0 : 1);
    if (!started.isEmpty()) {
        QVERIFY(programs.started[0] ==
                (FakeProgramStarter::Started{u"/usr/bin/"_s + started, arguments, u"/folder"_s}));
    }
}

void TstAboutText::AProgramThatDoesNotStartIsSkipped() {
    FakeProgramStarter programs;
    programs.found = {{u"hardinfo"_s, u"/usr/bin/hardinfo"_s}, {u"xfce4-about"_s, u"/usr/bin/xfce4-about"_s}};
    programs.starts = false;
    QVERIFY(!StartSystemInformation(programs, u"/folder"_s));
    QCOMPARE(programs.started.size(), 2);
    QCOMPARE(programs.started[0].file, u"/usr/bin/hardinfo"_s);
    QCOMPARE(programs.started[1].file, u"/usr/bin/xfce4-about"_s);
}

QTEST_GUILESS_MAIN(TstAboutText)
#include "tst_about_text.moc"
