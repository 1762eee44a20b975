// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/request.h"

#include <QTest>

#include "app/options.h"

using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// What another start requests from the running program.
class TstRequest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheOptionNamesAWindow_data();
    void TheOptionNamesAWindow();
    void AnUnknownWindowIsAnError_data();
    void AnUnknownWindowIsAnError();
    void OnlyOneCommandIsTaken();
    void EachRequestIsItsWord();
    void OtherWordsAreNone();
};

void TstRequest::TheOptionNamesAWindow_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<Request>("request");
    QTest::newRow("calendar") << u"calendar"_s << Request::Calendar;
    QTest::newRow("timer") << u"timer"_s << Request::Timer;
    QTest::newRow("stopwatch") << u"stopwatch"_s << Request::Stopwatch;
    QTest::newRow("help") << u"help"_s << Request::Help;
}

void TstRequest::TheOptionNamesAWindow() {
    QFETCH(QString, name);
    const Options options = OptionsOf({u"tickwell"_s, u"--open"_s, name});
    QCOMPARE(options.error, QString());
    QTEST(options.request, "request");
    QVERIFY(!options.needsNoWindow);
}

void TstRequest::AnUnknownWindowIsAnError_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << u"cd"_s;
    QTest::newRow("a word of the socket") << u"menu"_s;
    QTest::newRow("in capitals") << u"Help"_s;
    QTest::newRow("empty") << QString();
}

void TstRequest::AnUnknownWindowIsAnError() {
    QFETCH(QString, name);
    const Options options = OptionsOf({u"tickwell"_s, u"--open="_s + name});
    QCOMPARE(options.error, u"--open: \"%1\" is none of calendar, timer, stopwatch, help"_s.arg(name));
    QVERIFY(!OptionsOf({u"tickwell"_s, u"--open"_s}).error.isEmpty());
}

void TstRequest::OnlyOneCommandIsTaken() {
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--open"_s, u"help"_s, u"--menu"_s}).error,
             u"--menu cannot be combined with --open"_s);
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--open"_s, u"help"_s, u"--today"_s}).error,
             u"--open cannot be combined with --today"_s);
}

void TstRequest::EachRequestIsItsWord() {
    const QList<std::pair<Request, QByteArray>> words{
        {Request::ComeForward, "forward"}, {Request::Menu, "menu"},           {Request::Calendar, "calendar"},
        {Request::Timer, "timer"},         {Request::Stopwatch, "stopwatch"}, {Request::Help, "help"}};
    for (const auto& [request, word] : words) {
        QCOMPARE(WordOf(request), word);
        QVERIFY(RequestOf(word) == request);
    }
}

void TstRequest::OtherWordsAreNone() {
    for (const QByteArray& word :
         {""_ba, "menus"_ba, "men"_ba, "Menu"_ba, "menu\n"_ba, QByteArray("menu\0", 5)}) {
        QVERIFY2(!RequestOf(word), word.constData());
    }
}

QTEST_MAIN(TstRequest)
#include "tst_request.moc"
