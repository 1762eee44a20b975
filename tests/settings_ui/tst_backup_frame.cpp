// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

/// The dialog with operations that record what they are asked, and answer when the test says so.
struct Bench : SettingsBench {
    QList<BackupRow> rows{{QDate(2026, 11, 22), 24'577}, {QDate(2026, 11, 8), 1}};
    std::function<void()> done;

    Bench() {
        const auto note = [this](const QString& what, std::function<void()> whenDone) {
            asked.append(what);
            done = std::move(whenDone);
        };
        operations.backups = {.list = [this] { return rows; },
                              .restore =
                                  [note](QDate day, std::function<void()> whenDone) {
                                      note(u"restore "_s + day.toString(Qt::ISODate), std::move(whenDone));
                                  },
                              .writeAll =
                                  [note](const QString& folder, std::function<void()> whenDone) {
                                      note(u"write "_s + folder, std::move(whenDone));
                                  },
                              .readAll =
                                  [note](const QString& folder, std::function<void()> whenDone) {
                                      note(u"read "_s + folder, std::move(whenDone));
                                  }};
    }
    void OpenPage() {
        Open();
        Child<QTabWidget>(u"TabStrip1"_s).setCurrentIndex(4);
        asked.clear();
    }
    QListWidget& List() { return Child<QListWidget>(u"List80"_s); }
    QStringList Texts() {
        QStringList texts;
        for (int row = 0; row < List().count(); ++row) {
            texts.append(List().item(row)->text());
        }
        return texts;
    }
    QString Enabled() {
        QString enabled;
        for (const char* name : {"Command80", "Command81", "Command82"}) {
            enabled += Button(QString::fromLatin1(name)).isEnabled() ? u'1' : u'0';
        }
        return enabled;
    }
    void ChooseFolder(const QString& dialog, const QString& folder) {
        auto& choice = Child<QFileDialog>(dialog);
        QCOMPARE(choice.fileMode(), QFileDialog::Directory);
        emit choice.fileSelected(folder);
        choice.close();
    }
};

}  // namespace

/// The frame for backups.
class TstBackupFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheCaptions();
    void TheBoxIsPartOfTheDraft();
    void TheListShowsDaysAndSizes();
    void WithoutBackupsNothingCanBeRestored();
    void TheChosenOneIsRestored();
    void ARestoreIsAskedFor();
    void TheQuestionNamesTheOtherComputers();
    void WhileItRunsTheFrameSaysSo();
    void AFailureGivesTheButtonsBack();
    void TheDialogMayCloseMeanwhile();
    void TheListIsReadWhenThePageOpens();
    void EverythingIsWrittenToAFolder();
    void EverythingIsReadFromAFolderAfterAQuestion();
    void EachControlHasANameForReaders();
};

void TstBackupFrame::TheCaptions() {
    Bench bench;
    bench.OpenPage();
    QCOMPARE(bench.Child<QGroupBox>(u"Frame80"_s).title(), u"保管"_s);
    QCOMPARE(bench.Button(u"Check80"_s).text(), u"1日に1回、控えを取る（7日分と8週分）"_s);
    QCOMPARE(bench.Button(u"Command80"_s).text(), u"この控えに戻す..."_s);
    QCOMPARE(bench.Button(u"Command81"_s).text(), u"すべて書き出す..."_s);
    QCOMPARE(bench.Button(u"Command82"_s).text(), u"書き出したものを読み込む..."_s);
}

void TstBackupFrame::TheBoxIsPartOfTheDraft() {
    Bench bench;
    bench.OpenPage();
    QVERIFY(!bench.Button(u"Check80"_s).isChecked());
    bench.Click(u"Check80"_s);
    QCOMPARE(bench.main.further.backup.daily, false);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.backup.daily, true);
    bench.Open();
    QVERIFY(bench.Button(u"Check80"_s).isChecked());
}

void TstBackupFrame::TheListShowsDaysAndSizes() {
    Bench bench;
    bench.OpenPage();
    QCOMPARE(bench.Texts(), (QStringList{u"2026年11月22日（日）　25KB"_s, u"2026年11月8日（日）　1KB"_s}));
    QCOMPARE(bench.List().currentRow(), 0);
    QCOMPARE(bench.Child<QLabel>(u"Label80"_s).text(), u"今ある控え"_s);
}

void TstBackupFrame::WithoutBackupsNothingCanBeRestored() {
    Bench bench;
    bench.rows.clear();
    bench.OpenPage();
    QCOMPARE(bench.Enabled(), u"011"_s);
    QCOMPARE(bench.Child<QLabel>(u"Label80"_s).text(), u"今ある控え：なし"_s);
}

void TstBackupFrame::TheChosenOneIsRestored() {
    Bench bench;
    bench.OpenPage();
    bench.List().setCurrentRow(1);
    bench.Click(u"Command80"_s);
    bench.main.boxes.Answer(true);
    QCOMPARE(bench.asked, QStringList(u"restore 2026-11-08"_s));
}

void TstBackupFrame::ARestoreIsAskedFor() {
    Bench bench;
    bench.OpenPage();
    bench.Click(u"Command80"_s);
    QCOMPARE(bench.main.boxes.Asked().constLast(),
             (Message{MessageIcon::Question, u"控えに戻す"_s,
                      u"記念日、祝日、休日や半日の設定を、2026年11月22日の控えに戻します。\r\n"
                      u"今のデータベースは、別の名前で残します。"_s}));
    bench.main.boxes.Answer(false);
    QCOMPARE(bench.asked, QStringList());
}

void TstBackupFrame::TheQuestionNamesTheOtherComputers() {
    Bench bench;
    bench.OpenPage();
    bench.main.further.sync.use = true;
    bench.Click(u"Command80"_s);
    const QString warning = u"同期しているほかのコンピューターも、次に合わせるときに同じ内容になります。"_s;
    QVERIFY(bench.main.boxes.Asked().constLast().text.endsWith(
        u"今のデータベースは、別の名前で残します。\r\n"_s + warning));
    bench.main.boxes.Answer(false);
    const QTemporaryDir folder;
    bench.Click(u"Command82"_s);
    bench.ChooseFolder(u"ReadAllDialog"_s, folder.path());
    QVERIFY(bench.main.boxes.Asked().constLast().text.endsWith(u"今のファイルは、別の名前で残します。\r\n"_s +
                                                               warning));
}

void TstBackupFrame::WhileItRunsTheFrameSaysSo() {
    Bench bench;
    bench.OpenPage();
    QVERIFY(QTest::qWaitForWindowActive(bench.form.get()));
    const auto& progress = bench.Child<QLabel>(u"Label81"_s);
    bench.Button(u"Command80"_s).setFocus();
    bench.Click(u"Command80"_s);
    bench.main.boxes.Answer(true);
    QCOMPARE(bench.Enabled(), u"000"_s);
    QCOMPARE(progress.text(), u"戻しています…"_s);
    bench.rows.removeLast();
    bench.done();
    QCOMPARE(bench.Enabled(), u"111"_s);
    QCOMPARE(progress.text(), QString());
    QVERIFY(bench.Button(u"Command80"_s).hasFocus());
    QCOMPARE(bench.Texts().size(), 1);
}

void TstBackupFrame::AFailureGivesTheButtonsBack() {
    Bench bench;
    bench.operations.backups.restore = [](QDate, const std::function<void()>&) {
        throw RunTimeError(u"in use"_s);
    };
    bench.OpenPage();
    bench.Click(u"Command80"_s);
    bench.main.boxes.Answer(true);
    QVERIFY(bench.main.boxes.Shown().constLast().text.endsWith(u"in use"));
    QCOMPARE(bench.Enabled(), u"111"_s);
}

void TstBackupFrame::TheDialogMayCloseMeanwhile() {
    Bench bench;
    bench.OpenPage();
    bench.Click(u"Command80"_s);
    bench.main.boxes.Answer(true);
    bench.form.reset();
    bench.done();
    bench.OpenPage();
    bench.Click(u"Command80"_s);
    bench.form.reset();
    bench.main.boxes.Answer(true);
    QCOMPARE(bench.asked, QStringList());
}

void TstBackupFrame::TheListIsReadWhenThePageOpens() {
    Bench bench;
    bench.OpenPage();
    bench.List().setCurrentRow(1);
    auto& pages = bench.Child<QTabWidget>(u"TabStrip1"_s);
    pages.setCurrentIndex(0);
    bench.rows.prepend({QDate(2026, 11, 23), 1024});
    pages.setCurrentIndex(4);
    QCOMPARE(bench.Texts().first(), u"2026年11月23日（月）　1KB"_s);
    QCOMPARE(bench.List().currentRow(), 2);  // the same day is still chosen
}

void TstBackupFrame::EverythingIsWrittenToAFolder() {
    Bench bench;
    bench.OpenPage();
    const QTemporaryDir folder;
    bench.Click(u"Command81"_s);
    bench.ChooseFolder(u"WriteAllDialog"_s, folder.path());
    QCOMPARE(bench.asked, QStringList(u"write "_s + folder.path()));
    QCOMPARE(bench.Child<QLabel>(u"Label81"_s).text(), u"書き出しています…"_s);
    bench.done();
    QCOMPARE(bench.Enabled(), u"111"_s);
}

void TstBackupFrame::EverythingIsReadFromAFolderAfterAQuestion() {
    Bench bench;
    bench.OpenPage();
    const QTemporaryDir folder;
    bench.Click(u"Command82"_s);
    bench.ChooseFolder(u"ReadAllDialog"_s, folder.path());
    QVERIFY(bench.main.boxes.Asked().constLast().text.startsWith(folder.path()));
    bench.main.boxes.Answer(false);
    QCOMPARE(bench.asked, QStringList());
    bench.Click(u"Command82"_s);
    bench.ChooseFolder(u"ReadAllDialog"_s, folder.path());
    bench.main.boxes.Answer(true);
    QCOMPARE(bench.asked, QStringList(u"read "_s + folder.path()));
    QCOMPARE(bench.Child<QLabel>(u"Label81"_s).text(), u"読み込んでいます…"_s);
}

void TstBackupFrame::EachControlHasANameForReaders() {
    Bench bench;
    bench.OpenPage();
    QCOMPARE(bench.Child<QLabel>(u"Label80"_s).buddy(), &bench.List());
    QCOMPARE(bench.List().accessibleName(), u"今ある控え"_s);
    QVERIFY(!bench.Child<QLabel>(u"Label81"_s).isVisible());  // empty
}

QTEST_MAIN(TstBackupFrame)
#include "tst_backup_frame.moc"
