// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

/// The dialog, and a merge whose status the test sets.
struct SyncBench : SettingsBench {
    QString status;
    int merges = 0;
    std::function<void()> changed;

    SyncBench() {
        operations.sync = {
            .status = [this] { return status; },
            .mergeNow = [this] { ++merges; },
            .listen = [this](std::function<void()> listener) { changed = std::move(listener); }};
    }
    ~SyncBench() { form.reset(); }  // it ends its listening
    Q_DISABLE_COPY_MOVE(SyncBench)

    void OpenPage() {
        Open();
        Child<QTabWidget>(u"TabStrip1"_s).setCurrentIndex(4);
    }
    QLineEdit& Folder() const { return Child<QLineEdit>(u"Text90"_s); }
    QLineEdit& Computer() const { return Child<QLineEdit>(u"Text91"_s); }
    QString Status() const { return Child<QLabel>(u"Label92"_s).text(); }
};

}  // namespace

/// The frame of the merge with other computers.
class TstSyncFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsOffAtFirst();
    void SwitchedOnItAsksForTheFolder();
    void TheChoicesAreApplied();
    void TheStatusIsShownAsItChanges();
    void WhatIsStoredIsShown();
    void EachFieldHasALabel();
};

void TstSyncFrame::ItIsOffAtFirst() {
    SyncBench bench;
    bench.OpenPage();
    QCOMPARE(bench.Child<QGroupBox>(u"Frame90"_s).title(), u"同期"_s);
    QVERIFY(!bench.Button(u"Check90"_s).isChecked());
    for (const auto& name : {u"Text90"_s, u"Text91"_s, u"Command90"_s, u"Command91"_s, u"Label92"_s}) {
        QVERIFY2(!bench.Child<QWidget>(name).isEnabled(), qPrintable(name));
    }
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.sync, SyncSettings());
}

void TstSyncFrame::SwitchedOnItAsksForTheFolder() {
    SyncBench bench;
    bench.OpenPage();
    QVERIFY(QTest::qWaitForWindowActive(bench.form.get()));
    bench.Click(u"Check90"_s);
    QVERIFY(bench.Folder().hasFocus());
    QVERIFY(bench.Computer().isEnabled());
    QVERIFY(!bench.Button(u"Command91"_s).isEnabled());  // nothing is merged before it is applied
    QVERIFY(!bench.Computer().placeholderText().isEmpty());
}

void TstSyncFrame::TheChoicesAreApplied() {
    SyncBench bench;
    bench.OpenPage();
    bench.Click(u"Check90"_s);
    QTest::keyClicks(&bench.Folder(), u"/home/me/days"_s);
    QTest::keyClicks(&bench.Computer(), QString(50, u'a'));
    QCOMPARE(bench.main.further.sync, SyncSettings());
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.sync,
             (SyncSettings{.use = true, .folder = u"/home/me/days"_s, .computer = QString(40, u'a')}));
}

void TstSyncFrame::TheStatusIsShownAsItChanges() {
    SyncBench bench;
    bench.Open();  // loads the settings
    bench.form.reset();
    bench.main.further.sync.use = true;
    bench.status = u"まだ合わせていません。"_s;
    bench.OpenPage();
    QCOMPARE(bench.Status(), bench.status);
    bench.Click(u"Command91"_s);
    QCOMPARE(bench.merges, 1);
    bench.status = u"最後に合わせた時刻：…"_s;
    bench.changed();
    QCOMPARE(bench.Status(), bench.status);
    QCOMPARE(bench.Button(u"Check90"_s).accessibleDescription(), bench.status);
    bench.form.reset();
    QVERIFY(!bench.changed);
}

void TstSyncFrame::WhatIsStoredIsShown() {
    SyncBench bench;
    bench.Open();  // loads the settings
    bench.form.reset();
    bench.main.further.sync = {.use = true, .folder = u"/a"_s, .computer = u"机"_s};
    bench.OpenPage();
    QVERIFY(bench.Button(u"Check90"_s).isChecked());
    QCOMPARE(bench.Folder().text(), u"/a"_s);
    QCOMPARE(bench.Computer().text(), u"机"_s);
}

void TstSyncFrame::EachFieldHasALabel() {
    SyncBench bench;
    bench.OpenPage();
    QCOMPARE(bench.Child<QLabel>(u"Label90"_s).buddy(), &bench.Folder());
    QCOMPARE(bench.Child<QLabel>(u"Label91"_s).buddy(), &bench.Computer());
    QVERIFY(!bench.Folder().accessibleName().isEmpty());
    QVERIFY(!bench.Computer().accessibleName().isEmpty());
    QVERIFY(!bench.Button(u"Command90"_s).accessibleName().isEmpty());
}

QTEST_MAIN(TstSyncFrame)
#include "tst_sync_frame.moc"
