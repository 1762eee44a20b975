// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QLabel>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/notices_page.h"
#include "settings_ui/settings_bench.h"
#include "shell/main_window_accessible.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

const QList<const char*> kDependent{"Check51", "Check52",  "Check53", "Check54",
                                    "Check55", "UpDown50", "UpDown51"};

/// The dialog on its page お知らせ.
struct Bench : SettingsBench {
    Bench() {
        operations.lookForNotices = [this](std::function<void(bool isThere)> onAnswer) {
            ++looks;
            answer = std::move(onAnswer);
        };
    }
    void OpenPage() {
        Open();
        Child<QTabWidget>(u"TabStrip1"_s).setCurrentWidget(&Child<NoticesPage>(u"Picture10"_s));
    }
    QString Trouble() const { return Child<QLabel>(u"Label50"_s).text(); }
    QSpinBox& Hour() const { return Child<QSpinBox>(u"UpDown50"_s); }
    QSpinBox& Minute() const { return Child<QSpinBox>(u"UpDown51"_s); }
    QTime Time() const { return {Hour().value(), Minute().value()}; }
    NoticeSettings& Stored() { return main.further.notices; }

    int looks = 0;
    std::function<void(bool isThere)> answer;
};

}  // namespace

/// Page お知らせ of the settings.
class TstNoticesPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EverythingIsOffByDefault();
    void ItsCaptions_data();
    void ItsCaptions();
    void WhatIsChosenIsApplied();
    void DaysThatNoBoxShowsAreKept();
    void ATimeThatNoFieldShowsIsKept();
    void TheRestNeedsTheFirstBox();
    void ItSaysThatNobodyShowsNotices();
    void AnAnswerAfterTheDialogIsIgnored();
};

void TstNoticesPage::initTestCase() {
    lines::InstallFontSubstitutes();
    shell::InstallMainWindowAccessibility();
}

void TstNoticesPage::EverythingIsOffByDefault() {
    Bench bench;
    bench.OpenPage();
    for (const char* name : {"Check50", "Check51", "Check53", "Check54", "Check55", "Check56"}) {
        QVERIFY2(!bench.Button(QLatin1StringView(name)).isChecked(), name);
    }
    QVERIFY(bench.Button(u"Check52"_s).isChecked());
    QCOMPARE(bench.Time(), QTime(9, 0));
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Stored(), NoticeSettings());
}

void TstNoticesPage::ItsCaptions_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::newRow("days") << u"Check50"_s << u"デスクトップの通知で知らせる"_s;
    QTest::newRow("counts") << u"Check51"_s << u"回数を付ける"_s;
    QTest::newRow("0") << u"Check52"_s << u"当日"_s;
    QTest::newRow("1") << u"Check53"_s << u"前日"_s;
    QTest::newRow("3") << u"Check54"_s << u"3日前"_s;
    QTest::newRow("7") << u"Check55"_s << u"7日前"_s;
    QTest::newRow("countdown") << u"Check56"_s << u"時間が来たら、デスクトップの通知でも知らせる"_s;
}

void TstNoticesPage::ItsCaptions() {
    QFETCH(const QString, name);
    Bench bench;
    bench.OpenPage();
    QTEST(bench.Button(name).text(), "caption");
    QCOMPARE(bench.Child<QLabel>(u"Label51"_s).text(), u"何日前に"_s);
    const auto& label = bench.Child<QLabel>(u"Label52"_s);
    QCOMPARE(label.text(), u"知らせる時刻"_s);
    QCOMPARE(label.buddy(), &bench.Hour());
    QCOMPARE(bench.Hour().accessibleName(), u"知らせる時刻（時）"_s);
    QCOMPARE(bench.Minute().accessibleName(), u"知らせる時刻（分）"_s);
}

void TstNoticesPage::WhatIsChosenIsApplied() {
    Bench bench;
    bench.OpenPage();
    for (const char* name : {"Check50", "Check55", "Check53", "Check52", "Check51", "Check56"}) {
        bench.Click(QLatin1StringView(name));
    }
    bench.Hour().setValue(22);
    bench.Minute().setValue(5);
    QCOMPARE(bench.Stored(), NoticeSettings());  // not before OK
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.Stored(), (NoticeSettings{.tellsDays = true,
                                             .daysAhead = {1, 7},
                                             .time = 22 * 60 + 5,
                                             .counts = true,
                                             .tellsCountdown = true}));
    bench.Click(u"Check54"_s);
    bench.Click(u"Check55"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Stored().daysAhead, (QList<qint32>{1, 3}));
    bench.OpenPage();
    QVERIFY(bench.Button(u"Check53"_s).isChecked() && bench.Button(u"Check54"_s).isChecked());
    QVERIFY(!bench.Button(u"Check52"_s).isChecked() && !bench.Button(u"Check55"_s).isChecked());
    QCOMPARE(bench.Time(), QTime(22, 5));
    QVERIFY(bench.Button(u"Check51"_s).isChecked() && bench.Button(u"Check56"_s).isChecked());
}

void TstNoticesPage::DaysThatNoBoxShowsAreKept() {
    Bench bench;
    bench.main.store.Put(u"Notices"_s, u"Days"_s, u"True"_s);
    bench.main.store.Put(u"Notices"_s, u"DaysAhead"_s, u"2,14"_s);
    bench.OpenPage();
    bench.Click(u"Check54"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Stored().daysAhead, (QList<qint32>{2, 3, 14}));
}

void TstNoticesPage::ATimeThatNoFieldShowsIsKept() {
    Bench bench;
    bench.main.store.Put(u"Notices"_s, u"Time"_s, u"5000"_s);
    bench.OpenPage();
    QCOMPARE(bench.Time(), QTime(23, 59));
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Stored().time, 5000);
}

void TstNoticesPage::TheRestNeedsTheFirstBox() {
    Bench bench;
    bench.OpenPage();
    const auto enabled = [&bench] {
        QStringList names;
        for (const char* name : kDependent) {
            if (bench.Child<QWidget>(QLatin1StringView(name)).isEnabled()) {
                names.append(QLatin1StringView(name));
            }
        }
        return names.size();
    };
    QCOMPARE(enabled(), 0);
    bench.Click(u"Check50"_s);
    QCOMPARE(enabled(), kDependent.size());
    bench.Click(u"Check50"_s);
    QCOMPARE(enabled(), 0);
    QVERIFY(bench.Button(u"Check56"_s).isEnabled());
}

void TstNoticesPage::ItSaysThatNobodyShowsNotices() {
    Bench bench;
    bench.Open();
    QCOMPARE(bench.looks, 0);  // only the page asks
    bench.OpenPage();
    QCOMPARE(bench.looks, 1);
    QCOMPARE(bench.Trouble(), QString());
    bench.answer(false);
    QCOMPARE(bench.Trouble(), u"このデスクトップには通知の仕組みがありません。"_s);
    bench.Child<QTabWidget>(u"TabStrip1"_s).setCurrentIndex(0);
    bench.Child<QTabWidget>(u"TabStrip1"_s).setCurrentWidget(&bench.Child<NoticesPage>(u"Picture10"_s));
    QCOMPARE(bench.looks, 2);
    bench.answer(true);
    QCOMPARE(bench.Trouble(), QString());
}

void TstNoticesPage::AnAnswerAfterTheDialogIsIgnored() {
    Bench bench;
    bench.OpenPage();
    bench.form.reset();
    bench.answer(false);
}

QTEST_MAIN(TstNoticesPage)
#include "tst_notices_page.moc"
