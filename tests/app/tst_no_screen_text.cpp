// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/no_screen_text.h"

using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// What the program says if there is nowhere to show the clock.
class TstNoScreenText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItTellsWhyAndWhatToDo_data();
    void ItTellsWhyAndWhatToDo();
};

void TstNoScreenText::ItTellsWhyAndWhatToDo_data() {
    QTest::addColumn<MissingScreen>("missing");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("japanese");
    QTest::newRow("nothing")
        << MissingScreen{u"xcb"_s, {}, false}
        << u"the clock cannot be shown because there is no screen, DISPLAY is not set: start it "
           u"in a desktop session."_s
        << u"DISPLAYが設定されておらず画面がないので、時計を表示できません（デスクトップの中で"
           u"起動してください）。"_s;
    QTest::newRow("Wayland alone")
        << MissingScreen{u"xcb"_s, {}, true}
        << u"the clock cannot be shown because this Wayland session has no XWayland: "
           u"install the package xwayland and log in again."_s
        << u"このWaylandセッションにはXWaylandがないので、時計を表示できません（パッケージ"
           u"xwaylandを入れて、ログインし直してください）。"_s;
    QTest::newRow("a screen that is gone")
        << MissingScreen{u"xcb"_s, u":7"_s, true}
        << u"the clock cannot be shown because the screen :7 that DISPLAY names does not answer: start it in "
           u"a "
           u"desktop session."_s
        << u"DISPLAYの画面「:7」に接続できないので、時計を表示できません（デスクトップの中で起動してください）。"_s;
    QTest::newRow("another platform")
        << MissingScreen{u"wayland"_s, u":7"_s, true}
        << u"the clock cannot be shown because Qt's platform \"wayland\" is not available here: set "
           u"QT_QPA_PLATFORM to xcb."_s
        << u"Qtのプラットフォーム「wayland」を使えないので、時計を表示できません（QT_QPA_PLATFORMをxcbに"
           u"してください）。"_s;
}

void TstNoScreenText::ItTellsWhyAndWhatToDo() {
    QFETCH(MissingScreen, missing);
    QTEST(NoScreenText(missing, false), "english");
    QTEST(NoScreenText(missing, true), "japanese");
}

QTEST_GUILESS_MAIN(TstNoScreenText)
#include "tst_no_screen_text.moc"
