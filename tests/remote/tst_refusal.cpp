// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSet>
#include <QTest>

#include "remote/refusal.h"

using namespace tickwell;
using namespace tickwell::remote;
using namespace Qt::StringLiterals;

/// The errors and texts that a refused caller gets.
class TstRefusal : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachHasAnErrorOfItsOwn();
    void AStateIsToldInTheUsersLanguage_data();
    void AStateIsToldInTheUsersLanguage();
    void AnyOtherTextIsLeftAsItIs();
};

void TstRefusal::EachHasAnErrorOfItsOwn() {
    QSet<QString> names;
    for (const Refusal refusal :
         {Refusal::UnknownMethod, Refusal::WrongArguments, Refusal::TooManyCalls, Refusal::StopwatchIsRunning,
          Refusal::StopwatchIsStopped, Refusal::TimerIsRunning, Refusal::UnknownInterface,
          Refusal::UnknownProperty, Refusal::ReadOnlyProperty, Refusal::NotPossible, Refusal::Failed}) {
        names.insert(ErrorNameOf(refusal));
    }
    QCOMPARE(names.size(), 11);
    QVERIFY(names.contains(u"org.freedesktop.DBus.Error.InvalidArgs"_s));
    QVERIFY(names.contains(u"local.tickwell.tickwell.Error.TimerIsRunning"_s));
}

void TstRefusal::AStateIsToldInTheUsersLanguage_data() {
    QTest::addColumn<int>("refusal");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("japanese");
    const auto row = [](const char* name, Refusal refusal, const QString& english, const QString& japanese) {
        QTest::newRow(name) << static_cast<int>(refusal) << english << japanese;
    };
    row("too many", Refusal::TooManyCalls, u"The clock accepts 100 calls a second."_s,
        u"時計が受ける操作は、1秒に100回までです。"_s);
    row("the stopwatch runs", Refusal::StopwatchIsRunning,
        u"The stopwatch is running; stop, lap and read are possible."_s,
        u"ストップウォッチは動いています。stop、lap、read ができます。"_s);
    row("the stopwatch is stopped", Refusal::StopwatchIsStopped,
        u"The stopwatch is stopped; start, reset and read are possible."_s,
        u"ストップウォッチは止まっています。start、reset、read ができます。"_s);
    row("the timer runs", Refusal::TimerIsRunning,
        u"The timer is running; another one can start when it has ended or was stopped."_s,
        u"タイマーは動いています。終わるか止めるまで、次のタイマーは始められません。"_s);
}

void TstRefusal::AStateIsToldInTheUsersLanguage() {
    QFETCH(const int, refusal);
    QFETCH(const QString, english);
    QFETCH(const QString, japanese);
    const RefusedCall refused(static_cast<Refusal>(refusal));
    QCOMPARE(refused.Text(), english);
    const QString error = ErrorNameOf(refused.Kind());
    QCOMPARE(SentenceOf(error, refused.Text(), false), english);
    QCOMPARE(SentenceOf(error, refused.Text(), true), japanese);
}

void TstRefusal::AnyOtherTextIsLeftAsItIs() {
    const RefusedCall failed(Refusal::Failed, u"データベースを開けません。"_s);
    QCOMPARE(failed.Text(), u"データベースを開けません。"_s);
    QCOMPARE(SentenceOf(ErrorNameOf(Refusal::Failed), failed.Text(), false), failed.Text());
    QCOMPARE(SentenceOf(u"org.freedesktop.DBus.Error.AccessDenied"_s, u"denied"_s, true), u"denied"_s);
    QCOMPARE(SentenceOf(u""_s, u"x"_s, true), u"x"_s);
}

QTEST_GUILESS_MAIN(TstRefusal)
#include "tst_refusal.moc"
