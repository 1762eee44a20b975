// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/editor_window.h"

#include <QInputMethodEvent>
#include <QTest>

#include "book/book_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

const Message kWriteError{MessageIcon::Exclamation, u"データベース書込みエラー"_s,
                          u"無効なデータが含まれているか、予期しないエラーが発生しました。"_s};

/// The visible texts of the fields, in brackets if disabled.
QString Seen(const BookBench& bench) {
    QStringList seen;
    for (const QString& name : {u"Text2"_s, u"Text3"_s, u"Text4"_s}) {
        seen.append(bench.IsEnabled(name) ? bench.Text(name) : u'(' + bench.Text(name) + u')');
    }
    for (const QString& name : {u"Combo2"_s, u"Combo1"_s}) {
        const QString text = bench.The<QComboBox>(name).currentText();
        seen.append(bench.IsEnabled(name) ? text : u'(' + text + u')');
    }
    return seen.join(u' ');
}

}  // namespace

/// The anniversary editor.
class TstEditorWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OpensToAdd();
    void OpensToEdit();
    void AddsByKeyboardAlone();
    void AddsANameFromAnInputMethod();
    void EnterStoresFromEveryField_data();
    void EnterStoresFromEveryField();
    void EditsTheChosenRow();
    void EditsARowThatNoStatementCanName_data();
    void EditsARowThatNoStatementCanName();
    void ARowThatNoStatementCanNameGetsNoOtherUnquotableName();
    void AQuoteInTheNameIsReportedAndNothingChanges();
    void NoSecondBoxCoversTheFirst();
    void EveryErrorHasTheSameMessage_data();
    void EveryErrorHasTheSameMessage();
    void ABrokenDatabaseIsReportedTheSameWay();
    void ClosingWithoutWriting_data();
    void ClosingWithoutWriting();
    void TheKindDecidesWhatCanBeTyped();
    void ChoosingOneDayClearsTheWeekForGood();
    void ALoadedOneDayRowKeepsItsTickedBox();
    void TheWeekdayCanBeTypedAndIsNotCompleted();
    void DatesOutsideTheArrowsAreShownAsTheyAre();
    void GoesFromTopToBottomWithTab();
    void IsModalForTheCalendarOnly();
};

void TstEditorWindow::OpensToAdd() {
    BookBench bench;
    bench.OpenEditor();
    QCOMPARE(bench.Window()->windowTitle(), u"記念日の追加"_s);
    QCOMPARE(bench.The<QPushButton>(u"Command1"_s).text(), u"追加>>"_s);
    QCOMPARE(bench.Text(u"Text1"_s), u"新しい記念日"_s);
    QCOMPARE(bench.The<QLineEdit>(u"Text1"_s).selectedText(), u"新しい記念日"_s);
    QCOMPARE(bench.Focus(), u"Text1"_s);
    QVERIFY(bench.The<QRadioButton>(u"Option2(0)"_s).isChecked());
    QVERIFY(!bench.The<QCheckBox>(u"Check2"_s).isChecked());
    QCOMPARE(Seen(bench), u"(1998) 10 3 (第1) (土曜日)"_s);
}

void TstEditorWindow::OpensToEdit() {
    BookBench bench;
    bench.list.ListFound(QList<days::DayListRow>{{u"例会"_s, u"毎"_s, u"毎"_s, QString(), u"第2週月"_s}}, 1);
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    QCOMPARE(bench.Window()->windowTitle(), u"記念日の編集"_s);
    QCOMPARE(bench.The<QPushButton>(u"Command1"_s).text(), u"更新>>"_s);
    QCOMPARE(bench.The<QLineEdit>(u"Text1"_s).selectedText(), u"例会"_s);
    QVERIFY(bench.The<QRadioButton>(u"Option2(1)"_s).isChecked());
    QVERIFY(bench.The<QCheckBox>(u"Check2"_s).isChecked());
    QCOMPARE(Seen(bench), u"(1998) (10) (3) 第1 土曜日"_s);
}

void TstEditorWindow::AddsByKeyboardAlone() {
    BookBench bench;
    bench.OpenEditor();
    QTest::keyClicks(bench.Window()->focusWidget(), u"party"_s);
    bench.Press(Qt::Key_Tab);
    QCOMPARE(bench.Focus(), u"Text3"_s);
    bench.Press(Qt::Key_Up);
    bench.Press(Qt::Key_Tab);
    QTest::keyClicks(bench.Window()->focusWidget(), u"25"_s);
    bench.Press(Qt::Key_Return);
    QVERIFY(bench.Window() == nullptr);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"party"_s, 0, 11, 25, 0}}));
    QCOMPARE(bench.closed, 1);
    QCOMPARE(bench.changes.raised, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstEditorWindow::AddsANameFromAnInputMethod() {
    BookBench bench;
    bench.OpenEditor();
    QInputMethodEvent typed;
    typed.setCommitString(u"誕生日 'ﾊﾞｰｽﾃﾞｰ' % \\"_s);
    QCoreApplication::sendEvent(&bench.The<QLineEdit>(u"Text1"_s), &typed);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"誕生日 'ﾊﾞｰｽﾃﾞｰ' % \\"_s, 0, 10, 3, 0}}));
}

void TstEditorWindow::EnterStoresFromEveryField_data() {
    QTest::addColumn<QString>("name");

    for (const QString& name : {u"Text1"_s, u"UpDown2"_s, u"UpDown3"_s, u"Option2(0)"_s, u"Check2"_s}) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TstEditorWindow::EnterStoresFromEveryField() {
    QFETCH(QString, name);
    BookBench bench;
    bench.OpenEditor();
    bench.The<QWidget>(name).setFocus();
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.Stored().size(), std::size_t{1});
    QVERIFY(bench.Window() == nullptr);
}

void TstEditorWindow::EditsTheChosenRow() {
    BookBench bench;
    bench.Add({u"a"_s, 0, 10, 3, 0});
    bench.Add({u"b"_s, 1998, 10, 3, 0});
    bench.ListSelectedDay();
    bench.list.ChooseRow(1);
    bench.OpenEditor();
    QCOMPARE(bench.Text(u"Text1"_s), u"b"_s);
    bench.Type(u"Text1"_s, u"c"_s);
    bench.Type(u"Text2"_s, u"2001"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"a"_s, 0, 10, 3, 0}, {u"c"_s, 2001, 10, 3, 0}}));
    QCOMPARE(bench.changes.raised, 1);
    QCOMPARE(bench.list.Rows().Kept().size(), 2);  // the calendar updates the list, not the editor
    QCOMPARE(bench.list.Rows().Kept().at(1).name, u"b"_s);
}

void TstEditorWindow::EditsARowThatNoStatementCanName_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");

    const auto row = [](const char* label, const char* name, const QString& typed, const char* stored) {
        QTest::newRow(label) << QByteArray(name) << typed << QString::fromLatin1(stored);
    };
    row("double quote, its name kept", "'x\"y'", QString(), "782279");
    row("double quote, renamed", "'x\"y'", u"z"_s, "7A");
    row("NUL, its name kept", "'x' || char(0) || 'y'", QString(), "780079");
    row("NUL, renamed", "'x' || char(0) || 'y'", u"z"_s, "7A");
    row("no UTF-8, its name kept", "CAST(x'61FF' AS TEXT)", QString(), "61FF");
}

void TstEditorWindow::EditsARowThatNoStatementCanName() {
    QFETCH(QByteArray, name);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    BookBench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (" + name + ",0,10,0,17),(" + name +
                    ",0,10,0,17)");
    bench.ListSelectedDay();
    bench.list.ChooseRow(1);
    bench.OpenEditor();
    bench.Click(u"Check2"_s);
    if (!typed.isEmpty()) {
        bench.Type(u"Text1"_s, typed);
    }
    bench.Type(u"Text4"_s, u"31"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Window() == nullptr);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.changes.raised, 1);
    const QStringList rows = bench.store.Raw("SELECT hex(Name),Year,Month,Day,Week FROM Kinenbi ORDER BY id");
    QVERIFY2(rows.at(0).endsWith(u"|0|10|0|17"), qPrintable(rows.at(0)));  // an equal row stays unchanged
    QCOMPARE(rows.at(1), stored + u"|0|10|31|0");
}

void TstEditorWindow::ARowThatNoStatementCanNameGetsNoOtherUnquotableName() {
    BookBench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('x\"y',0,10,3,0)");
    bench.ListSelectedDay();
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"x\"z"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.Window() != nullptr);
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi"), QStringList{u"x\"y"_s});
}

void TstEditorWindow::AQuoteInTheNameIsReportedAndNothingChanges() {
    BookBench bench;
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"the \"day\""_s);
    bench.Click(u"Option2(2)"_s);
    bench.Type(u"Text2"_s, u"2001"_s);
    bench.Type(u"Text4"_s, u"31"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown(), QList<Message>{kWriteError});
    bench.boxes.Close();
    QVERIFY(bench.Window()->isVisible());
    QCOMPARE(bench.Text(u"Text1"_s), u"the \"day\""_s);
    QCOMPARE(Seen(bench), u"2001 10 31 (第1) (土曜日)"_s);
    QVERIFY(bench.Stored().empty());
    QCOMPARE(bench.changes.raised, 0);
    QCOMPARE(bench.closed, 0);
    bench.Type(u"Text1"_s, u"the day"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"the day"_s, 2001, 10, 31, 0}}));
}

void TstEditorWindow::NoSecondBoxCoversTheFirst() {
    BookBench bench;
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"\""_s);
    bench.Click(u"Command1"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    bench.boxes.Close();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 2);
    bench.Press(Qt::Key_Escape);
    QVERIFY(bench.Window() == nullptr);
    bench.boxes.Close();  // the box outlives the window that opened it
}

void TstEditorWindow::EveryErrorHasTheSameMessage_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");

    QTest::newRow("year") << u"Text2"_s << u"x"_s;
    QTest::newRow("month") << u"Text3"_s << QString();
    QTest::newRow("day") << u"Text4"_s << u"1/2"_s;
    QTest::newRow("too large") << u"Text4"_s << u"99999999999"_s;
}

void TstEditorWindow::EveryErrorHasTheSameMessage() {
    QFETCH(QString, field);
    QFETCH(QString, text);
    BookBench bench;
    bench.OpenEditor();
    bench.Click(u"Option2(2)"_s);
    bench.Type(field, text);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown(), QList<Message>{kWriteError});
    QCOMPARE(bench.Text(field), text);
    QVERIFY(bench.Window()->isVisible());
    QVERIFY(bench.Stored().empty());
}

void TstEditorWindow::ABrokenDatabaseIsReportedTheSameWay() {
    BookBench bench;
    bench.OpenEditor();
    bench.database.Close();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown(), QList<Message>{kWriteError});
    bench.database = store::DayDatabase(bench.store.Path());
    bench.store.Raw("DROP TABLE Kinenbi");
    bench.boxes.Close();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown(), QList<Message>({kWriteError, kWriteError}));
    QVERIFY(bench.Window()->isVisible());
}

void TstEditorWindow::ClosingWithoutWriting_data() {
    QTest::addColumn<QString>("how");

    QTest::newRow("button") << u"button"_s;
    QTest::newRow("Esc") << u"Esc"_s;
    QTest::newRow("title bar") << u"title bar"_s;
}

void TstEditorWindow::ClosingWithoutWriting() {
    QFETCH(QString, how);
    BookBench bench;
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"a"_s);
    if (how == u"button"_s) {
        bench.Click(u"Command2"_s);
    } else if (how == u"Esc"_s) {
        bench.Press(Qt::Key_Escape);
    } else {
        bench.Window()->close();
    }
    QVERIFY(bench.Window() == nullptr);
    QVERIFY(bench.Stored().empty());
    QCOMPARE(bench.closed, 1);
    QCOMPARE(bench.changes.raised, 0);
}

void TstEditorWindow::TheKindDecidesWhatCanBeTyped() {
    BookBench bench;
    bench.OpenEditor();
    bench.Click(u"Option2(1)"_s);
    QCOMPARE(Seen(bench), u"(1998) (10) 3 (第1) (土曜日)"_s);
    bench.Click(u"Check2"_s);
    QCOMPARE(Seen(bench), u"(1998) (10) (3) 第1 土曜日"_s);
    bench.Click(u"Option2(0)"_s);
    QCOMPARE(Seen(bench), u"(1998) 10 (3) 第1 土曜日"_s);
    bench.Click(u"Check2"_s);
    QCOMPARE(Seen(bench), u"(1998) 10 3 (第1) (土曜日)"_s);
    bench.Click(u"Option2(2)"_s);
    QCOMPARE(Seen(bench), u"1998 10 3 (第1) (土曜日)"_s);
    for (const auto& [label, enabled] :
         {std::pair{u"Label3"_s, true}, {u"Label4"_s, true}, {u"Label5"_s, true}}) {
        QCOMPARE(bench.IsEnabled(label), enabled);
    }
}

void TstEditorWindow::ChoosingOneDayClearsTheWeekForGood() {
    BookBench bench;
    bench.OpenEditor();
    bench.Click(u"Check2"_s);
    bench.Click(u"Option2(2)"_s);
    QVERIFY(!bench.The<QCheckBox>(u"Check2"_s).isChecked());
    QVERIFY(!bench.IsEnabled(u"Check2"_s));
    bench.Click(u"Option2(0)"_s);
    QVERIFY(!bench.The<QCheckBox>(u"Check2"_s).isChecked());
    QVERIFY(bench.IsEnabled(u"Check2"_s));
}

void TstEditorWindow::ALoadedOneDayRowKeepsItsTickedBox() {
    BookBench bench;
    bench.Add({u"a"_s, 1998, 10, 0, 11});
    bench.list.ListFound(QList<days::DayListRow>{{u"a"_s, u"1998"_s, u"10"_s, QString(), u"第1週日"_s}}, 1);
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    QVERIFY(bench.The<QCheckBox>(u"Check2"_s).isChecked());
    QVERIFY(!bench.IsEnabled(u"Check2"_s));
    QCOMPARE(Seen(bench), u"1998 10 (3) 第1 土曜日"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"a"_s, 1998, 10, 0, 17}}));
}

void TstEditorWindow::TheWeekdayCanBeTypedAndIsNotCompleted() {
    BookBench bench;
    bench.OpenEditor();
    bench.Click(u"Check2"_s);
    auto* field = bench.The<QComboBox>(u"Combo1"_s).lineEdit();
    field->selectAll();
    QInputMethodEvent typed;
    typed.setCommitString(u"月"_s);
    QCoreApplication::sendEvent(field, &typed);
    QCOMPARE(field->text(), u"月"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"新しい記念日"_s, 0, 10, 0, 10}}));
}

void TstEditorWindow::DatesOutsideTheArrowsAreShownAsTheyAre() {
    BookBench bench;
    bench.selected = QDate(2101, 11, 20);
    bench.OpenEditor();
    bench.Click(u"Option2(2)"_s);
    QCOMPARE(Seen(bench), u"2101 11 20 (第3) (日曜日)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Stored() == days::Anniversaries({{u"新しい記念日"_s, 2101, 11, 20, 0}}));
}

void TstEditorWindow::GoesFromTopToBottomWithTab() {
    BookBench bench;
    bench.OpenEditor();
    bench.Click(u"Check2"_s);
    bench.The<QLineEdit>(u"Text1"_s).setFocus();
    QCOMPARE(bench.TabOrder(), QStringList({u"Text1"_s, u"Text3"_s, u"Option2(0)"_s, u"Check2"_s, u"Combo2"_s,
                                            u"Combo1"_s, u"Command1"_s, u"Command2"_s}));
}

void TstEditorWindow::IsModalForTheCalendarOnly() {
    BookBench bench;
    bench.OpenEditor();
    QCOMPARE(bench.Window()->windowModality(), Qt::WindowModal);
    QCOMPARE(bench.Window()->parentWidget(), &bench.calendar);
}

QTEST_MAIN(TstEditorWindow)
#include "tst_editor_window.moc"
