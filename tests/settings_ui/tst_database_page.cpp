// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QTest>

#include "core/errors.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

/// The page that compacts the day database.
class TstDatabasePage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheDatabaseIsCompactedAtOnce();
    void WhileTheDatabaseIsCompactedThePageSaysSo();
    void ACompactionThatCannotBeginLeavesTheButton();
    void FilesAreReadAndWrittenByOtherWindows();
    void WithoutTheseWindowsTheButtonsAreDisabled();
};

void TstDatabasePage::TheDatabaseIsCompactedAtOnce() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command4"_s);
    QCOMPARE(bench.asked, (QStringList{u"hold 1"_s, u"compact"_s}));
    QVERIFY(bench.form->isVisible());
}

void TstDatabasePage::WhileTheDatabaseIsCompactedThePageSaysSo() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(QTest::qWaitForWindowActive(bench.form.get()));
    bench.Child<QTabWidget>(u"TabStrip1"_s).setCurrentIndex(4);
    QAbstractButton& button = bench.Button(u"Command4"_s);
    const auto& progress = bench.Child<QLabel>(u"Progress"_s);
    QVERIFY(!progress.isVisible());
    button.setFocus();
    bench.Click(u"Command4"_s);
    QVERIFY(!button.isEnabled());
    QVERIFY(progress.isVisible());
    QCOMPARE(progress.text(), u"最適化しています…"_s);
    bench.compacted();
    QVERIFY(button.isEnabled());
    QVERIFY(button.hasFocus());
    QVERIFY(!progress.isVisible());
    bench.Click(u"Command4"_s);
    bench.form.reset();
    bench.compacted();  // the page no longer exists
}

void TstDatabasePage::ACompactionThatCannotBeginLeavesTheButton() {
    SettingsBench bench;
    bench.operations.compact = [](const std::function<void()>&) { throw RunTimeError(u"/folder"_s); };
    bench.Open();
    bench.Click(u"Command4"_s);
    QVERIFY(bench.Button(u"Command4"_s).isEnabled());
    QVERIFY(bench.main.boxes.Shown().constLast().text.endsWith(u"/folder"));
}

void TstDatabasePage::FilesAreReadAndWrittenByOtherWindows() {
    SettingsBench bench;
    QList<const QWidget*> owners;
    bench.operations.exchange.read = [&](const QWidget* owner) {
        bench.asked.append(u"read"_s);
        owners.append(owner);
    };
    bench.operations.exchange.write = [&](const QWidget* owner) {
        bench.asked.append(u"write"_s);
        owners.append(owner);
    };
    bench.Open();
    bench.Click(u"Command21"_s);
    bench.Click(u"Command22"_s);
    QCOMPARE(bench.asked, (QStringList{u"hold 1"_s, u"read"_s, u"write"_s}));
    QCOMPARE(owners, (QList<const QWidget*>{bench.form.get(), bench.form.get()}));
}

void TstDatabasePage::WithoutTheseWindowsTheButtonsAreDisabled() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(!bench.Button(u"Command21"_s).isEnabled());
    QVERIFY(!bench.Button(u"Command22"_s).isEnabled());
}

QTEST_MAIN(TstDatabasePage)
#include "tst_database_page.moc"
