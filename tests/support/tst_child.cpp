// SPDX-License-Identifier: GPL-3.0-or-later
#include <QProcess>
#include <QTest>
#include <QTimer>

#include "support/window.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

/// Set in the child process that must abort because a child or window is missing.
constexpr const char* kLooksInVain = "TICKWELL_LOOKS_IN_VAIN";

/// A parent with a named child, which has a named and an unnamed one.
struct Family {
    QObject parent;
    QObject* child = new QObject(&parent);
    QTimer* grandchild = new QTimer(child);
    QObject* unnamed = new QObject(child);

    Family() {
        parent.setObjectName(u"Form5"_s);
        child->setObjectName(u"Frame1"_s);
        grandchild->setObjectName(u"Timer1"_s);
    }
};

}  // namespace

/// ChildOf and WindowNamed, and their messages if nothing is found.
class TstChild : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AChildIsFoundByTypeAndName();
    void AMissingChildNamesTheChildrenThereAre_data();
    void AMissingChildNamesTheChildrenThereAre();
    void AFailedLookupEndsTheTest_data();
    void AFailedLookupEndsTheTest();
    void AWindowIsFoundByName();
};

void TstChild::AChildIsFoundByTypeAndName() {
    const Family family;
    QCOMPARE(&ChildOf<QObject>(family.parent, u"Frame1"_s), family.child);
    QCOMPARE(&ChildOf<QTimer>(family.parent, u"Timer1"_s), family.grandchild);
    QCOMPARE(&ChildOf<QTimer>(family.parent), family.grandchild);
}

void TstChild::AMissingChildNamesTheChildrenThereAre_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const QString children = u"it has QObject, QObject \"Frame1\", QTimer \"Timer1\""_s;
    QTest::newRow("by name") << u"Timer2"_s
                             << u"QObject \"Form5\" has no child QTimer \"Timer2\"; "_s + children;
    QTest::newRow("any of a type") << QString() << u"QObject \"Form5\" has no child QTimer; "_s + children;
}

void TstChild::AMissingChildNamesTheChildrenThereAre() {
    QFETCH(QString, name);
    const Family family;
    QTEST(MissingChild(family.parent, "QTimer", name), "message");
    const QObject childless;
    QCOMPARE(MissingChild(childless, "QTimer", u"x"_s),
             u"QObject has no child QTimer \"x\"; it has no children"_s);
}

void TstChild::AFailedLookupEndsTheTest_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("name") << u"child"_s
                          << QByteArray(
                                 "has no child QTimer \"Timer2\"; it has QObject, QObject \"Frame1\", QTimer "
                                 "\"Timer1\"");
    QTest::newRow("type") << u"type"_s << QByteArray("has no child QWidget; it has QObject");
    QTest::newRow("window") << u"window"_s << QByteArray("no window \"Form2\"; there are: QWidget \"Form5\"");
}

/// Runs this row again in a child process, in which the lookup must fail.
void TstChild::AFailedLookupEndsTheTest() {
    QFETCH(QString, what);
    QFETCH(QByteArray, message);
    if (qEnvironmentVariableIsSet(kLooksInVain)) {
        const Family family;
        QWidget window;
        window.setObjectName(u"Form5"_s);
        if (what == u"window") {
            WindowNamed(u"Form2"_s);
        } else if (what == u"type") {
            ChildOf<QWidget>(family.parent);
        } else {
            ChildOf<QTimer>(family.parent, u"Timer2"_s);
        }
        return;
    }
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(kLooksInVain), u"1"_s);
    environment.insert(u"QTEST_DISABLE_STACK_DUMP"_s, u"1"_s);  // the debugger that it starts takes seconds
    environment.insert(u"QTEST_DISABLE_CORE_DUMP"_s, u"1"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {u"AFailedLookupEndsTheTest:"_s + QString::fromLatin1(QTest::currentDataTag())});
    QVERIFY(process.waitForFinished());
    const QByteArray output = process.readAll();
    QVERIFY2(output.contains("QFATAL : TstChild::AFailedLookupEndsTheTest(") && output.contains(message),
             output.constData());
    QVERIFY(process.exitStatus() == QProcess::CrashExit || process.exitCode() != 0);
}

void TstChild::AWindowIsFoundByName() {
    QWidget window;
    window.setObjectName(u"Form5"_s);
    const QWidget other;
    QCOMPARE(&WindowNamed(u"Form5"_s), &window);
}

QTEST_MAIN(TstChild)
#include "tst_child.moc"
