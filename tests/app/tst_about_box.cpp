// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QTest>

#include "app/about_box.h"
#include "app/program_icon.h"
#include "platform/time/virtual_time.h"
#include "support/child.h"
#include "support/fake_help_viewer.h"
#include "support/fake_message_boxes.h"
#include "support/fake_program_starter.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakeHelpViewer help;
    FakeProgramStarter programs;
    frmAbout box{{.timers = time,
                  .handlers = handlers,
                  .boxes = boxes,
                  .help = help,
                  .programs = programs,
                  .folder = ProgramFolder(u"/a folder"_s)}};

    QString Text(const QString& label) const { return ChildOf<QLabel>(box, label).text(); }
    QPushButton& Button(const QString& name) const { return ChildOf<QPushButton>(box, name); }
    QString FirstLine() const { return Text(u"Label3"_s).section(u'\n', 0, 0); }
};

const QString kFirst = u"ダウンロードしていただきまして、"_s;
const QString kSecond = u"ご意見、ご感想をお寄せください。"_s;
const QString kThird = u"連絡先はヘルプに記載しています。"_s;

}  // namespace

/// The complete about box.
class TstAboutBox : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItSaysWhatItIs();
    void TheMessagesRotateEveryThreeAndAHalfSeconds();
    void EachOpeningBeginsWithTheFirstMessage();
    void TheBoxKeepsItsSizeWhileTheyRotate();
    void SystemInformationIsStartedInTheFolder();
    void WithoutAProgramOneBoxSaysSo();
    void TheContactIsTopicSix();
    void TheFactsAreCopiedAsText();
    void KeysCloseIt_data();
    void KeysCloseIt();
    void TheFocusIsOnOk();
    void EveryButtonCanBeReachedByTab();
    void TheIconIsThereInEverySize_data();
    void TheIconIsThereInEverySize();
};

void TstAboutBox::ItSaysWhatItIs() {
    Bench bench;
    bench.box.show();
    QCOMPARE(bench.box.objectName(), u"frmAbout"_s);
    QCOMPARE(bench.box.windowTitle(), u"Tickwellのﾊﾞｰｼﾞｮﾝ情報"_s);
    QCOMPARE(bench.Text(u"lblTitle"_s), u"Tickwell"_s);
    QCOMPARE(bench.Text(u"lblVersion"_s), u"Ver.2.0.0"_s);
    QCOMPARE(bench.Text(u"Label3"_s), u"ダウンロードしていただきまして、\nありがとうございます。"_s);
    QCOMPARE(bench.Button(u"cmdSysInfo"_s).text(), u"ｼｽﾃﾑ情報(&S)..."_s);
    QCOMPARE(bench.Button(u"Command2"_s).text(), u"連絡先"_s);
    QCOMPARE(bench.Button(u"cmdOK"_s).text(), u"OK"_s);
    QVERIFY(ChildOf<QWidget>(bench.box, u"Gradation1"_s).isVisible());
    QVERIFY(!bench.box.isModal());
}

void TstAboutBox::TheMessagesRotateEveryThreeAndAHalfSeconds() {
    Bench bench;
    bench.box.show();
    bench.time.Advance(3499);
    QCOMPARE(bench.FirstLine(), kFirst);
    bench.time.Advance(1);
    QCOMPARE(bench.FirstLine(), kSecond);
    bench.time.Advance(3500);
    QCOMPARE(bench.FirstLine(), kThird);
    bench.time.Advance(3500);
    QCOMPARE(bench.FirstLine(), kFirst);
}

void TstAboutBox::EachOpeningBeginsWithTheFirstMessage() {
    Bench bench;
    QVERIFY(!bench.time.UntilNext());
    bench.box.show();
    bench.time.Advance(5000);
    QCOMPARE(bench.FirstLine(), kSecond);
    bench.box.close();
    QVERIFY(!bench.time.UntilNext());
    bench.box.show();
    QCOMPARE(bench.FirstLine(), kFirst);
    QCOMPARE(bench.time.UntilNext(), 3500);
}

void TstAboutBox::TheBoxKeepsItsSizeWhileTheyRotate() {
    Bench bench;
    bench.box.show();
    const QSize size = bench.box.size();
    for (int i = 0; i < 3; ++i) {
        bench.time.Advance(3500);
        QCoreApplication::processEvents();
        QCOMPARE(bench.box.size(), size);
    }
}

void TstAboutBox::SystemInformationIsStartedInTheFolder() {
    Bench bench;
    bench.programs.found.insert(u"hardinfo"_s, u"/usr/bin/hardinfo"_s);
    bench.box.show();
    bench.Button(u"cmdSysInfo"_s).click();
    QCOMPARE(bench.programs.started.size(), 1);
    QCOMPARE(bench.programs.started[0].file, u"/usr/bin/hardinfo"_s);
    QCOMPARE(bench.programs.started[0].folder, u"/a folder"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QVERIFY(bench.box.isVisible());
}

void TstAboutBox::WithoutAProgramOneBoxSaysSo() {
    Bench bench;
    bench.box.show();
    bench.Button(u"cmdSysInfo"_s).click();
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Shown()[0] ==
            (Message{MessageIcon::None, u"Tickwell"_s, u"現時点ではｼｽﾃﾑ情報を使用できません"_s}));
}

void TstAboutBox::TheContactIsTopicSix() {
    Bench bench;
    bench.box.show();
    bench.Button(u"Command2"_s).click();
    QCOMPARE(bench.help.topics, QList<int>{6});
}

void TstAboutBox::TheFactsAreCopiedAsText() {
    Bench bench;
    bench.box.show();
    bench.Button(u"cmdCopy"_s).click();
    const QString text = QGuiApplication::clipboard()->text();
    QVERIFY(text.startsWith(u"Tickwell: 2.0.0\nQt: "_s + QString::fromLatin1(qVersion()) + u'\n'));
    QVERIFY(text.contains(u"\nプラットフォーム: offscreen\n"));
    QVERIFY(text.contains(u"\n画面1: "));
    QVERIFY(!text.contains(QDir::homePath()));
    QCOMPARE(bench.Button(u"cmdCopy"_s).text(), u"コピーしました(&C)"_s);
}

void TstAboutBox::KeysCloseIt_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Esc") << Qt::Key_Escape;
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Enter of the number pad") << Qt::Key_Enter;
    QTest::newRow("Space, on OK") << Qt::Key_Space;
}

void TstAboutBox::KeysCloseIt() {
    QFETCH(Qt::Key, key);
    Bench bench;
    bench.box.show();
    QVERIFY(QTest::qWaitForWindowActive(&bench.box));
    QTest::keyClick(bench.box.focusWidget(), key);
    QVERIFY(!bench.box.isVisible());
    QVERIFY(bench.programs.started.isEmpty());
}

void TstAboutBox::TheFocusIsOnOk() {
    Bench bench;
    bench.box.show();
    QVERIFY(QTest::qWaitForWindowActive(&bench.box));
    QCOMPARE(bench.box.focusWidget(), &bench.Button(u"cmdOK"_s));
    QVERIFY(bench.Button(u"cmdOK"_s).isDefault());
}

void TstAboutBox::EveryButtonCanBeReachedByTab() {
    Bench bench;
    bench.box.show();
    QVERIFY(QTest::qWaitForWindowActive(&bench.box));
    QStringList reached;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(bench.box.focusWidget(), Qt::Key_Tab);
        reached.append(bench.box.focusWidget()->objectName());
    }
    QCOMPARE(reached, (QStringList{u"cmdSysInfo"_s, u"Command2"_s, u"cmdCopy"_s, u"cmdOK"_s}));
}

void TstAboutBox::TheIconIsThereInEverySize_data() {
    QTest::addColumn<int>("size");
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QTest::addRow("%d", size) << size;
    }
}

void TstAboutBox::TheIconIsThereInEverySize() {
    QFETCH(int, size);
    const QImage drawn(u":/icons/tickwell-%1.png"_s.arg(size));
    QCOMPARE(drawn.size(), QSize(size, size));
    QVERIFY(drawn.hasAlphaChannel());
    QCOMPARE(qAlpha(drawn.pixel(0, 0)), 0);
    QVERIFY(ProgramIcon().availableSizes().contains(QSize(size, size)));
}

QTEST_MAIN(TstAboutBox)
#include "tst_about_box.moc"
