// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "app/running_bench.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

void Click(const char* window, const char* button) {
    ChildOf<QAbstractButton>(RunningBench::Window(window), QLatin1StringView(button)).click();
}

void Choose(const char* item) {
    ChildOf<QAction>(RunningBench::Window("Form1"), QLatin1StringView(item)).trigger();
}

void OpenBook(const char* button) {
    Choose("Menu1");
    Click("Form5", "Command6");
    Click("Form5", button);
}

/// The windows by their object names, and how each one is opened.
struct OpenedWindow {
    const char* name;
    const char* function;  ///< what the main window shows at the start
    void (*open)();
    const char16_t* help;  ///< the heading of its page in the help
};

const std::array kWindows{
    OpenedWindow{"Form5", "0", [] { Choose("Menu1"); }, u"カレンダー"},
    OpenedWindow{"Form6", "0", [] { OpenBook("Command11"); }, u"記念日の追加と編集"},
    OpenedWindow{"Form9", "0", [] { OpenBook("Command12"); }, u"記念日の検索"},
    OpenedWindow{"Form10", "0", [] { OpenBook("Command10"); }, u"記念日の削除"},
    OpenedWindow{"StopForm", "2", [] { Choose("Menu0"); }, u"ストップウォッチ"},
    OpenedWindow{"TimerForm", "3",
                 [] {
                     RunningBench::Window("TimerForm").close();  // the function has opened it
                     Choose("Menu0");
                 },
                 u"タイマー"},
    OpenedWindow{"CDForm", "6", [] { Choose("Menu0"); }, u"CDプレーヤー"},
    OpenedWindow{"Form2", "0", [] { Choose("Menu17"); }, u"文字表示"},
    OpenedWindow{"StylePicker", "0",
                 [] {
                     Choose("Menu17");
                     Click("Form2", "Command6");
                 },
                 u"文字表示"},
    OpenedWindow{"frmAbout", "0", [] { Choose("menu22"); }, u"バージョン情報"},
    OpenedWindow{"HelpWindow", "0", [] { Choose("Menu21"); }, u"このヘルプの使い方"},
};

QWidget& Opened(const char* name) {
    QWidget& window = RunningBench::Window(name);
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window)) {
        qFatal("%s is not active", name);
    }
    return window;
}

QString HelpHeading() {
    const QTreeWidgetItem* item =
        ChildOf<QTreeWidget>(RunningBench::Window("HelpWindow"), u"Contents"_s).currentItem();
    return item == nullptr ? QString() : item->text(0);
}

QAccessibleInterface& Spoken(QWidget& widget) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    Q_ASSERT(interface != nullptr);
    return *interface;
}

/// The controls in which a value is entered or chosen. The text field inside a spin box or a combo box
/// belongs to it.
QWidgetList FieldsOf(const QWidget& window) {
    QWidgetList fields;
    for (QWidget* each : window.findChildren<QWidget*>()) {
        const bool isPart = qobject_cast<QAbstractSpinBox*>(each->parentWidget()) != nullptr ||
                            qobject_cast<QComboBox*>(each->parentWidget()) != nullptr;
        const bool isField =
            qobject_cast<QAbstractSpinBox*>(each) != nullptr || qobject_cast<QComboBox*>(each) != nullptr ||
            qobject_cast<QLineEdit*>(each) != nullptr || qobject_cast<QSlider*>(each) != nullptr;
        if (isField && !isPart && each->window() == &window) {
            fields.append(each);
        }
    }
    return fields;
}

/// The accessible name, and below it those of the objects that label it.
QString NamesOf(QWidget& field) {
    QStringList names{Spoken(field).text(QAccessible::Name)};
    for (const auto& [label, relation] : Spoken(field).relations(QAccessible::Label)) {
        names.append(label->text(QAccessible::Name));
    }
    return names.join(u'/');
}

}  // namespace

/// What keyboard and screen reader users can rely on in every window.
class TstKeyboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void F1OpensTheWindowsPage_data();
    void F1OpensTheWindowsPage();
    void F1OpensThePageOfEachTab();
    void F1InTheClockOpensItsPage();
    void CaptionsHaveAccessKeysOnlyIfChosen_data() { F1OpensTheWindowsPage_data(); }
    void CaptionsHaveAccessKeysOnlyIfChosen();
    void EachFieldHasANameAndALabel_data() { F1OpensTheWindowsPage_data(); }
    void EachFieldHasANameAndALabel();
    void EachNumberHasItsValue_data() { F1OpensTheWindowsPage_data(); }
    void EachNumberHasItsValue();
    void TheSearchNamesItsFieldsApart();
    void ARequestOpensItsWindow_data();
    void ARequestOpensItsWindow();
    void ARequestShowsTheWindowThatBlocksTheOthers();
};

void TstKeyboard::F1OpensTheWindowsPage_data() {
    QTest::addColumn<int>("window");
    for (int i = 0; i < static_cast<int>(kWindows.size()); ++i) {
        QTest::newRow(kWindows.at(static_cast<std::size_t>(i)).name) << i;
    }
}

void TstKeyboard::F1OpensTheWindowsPage() {
    QFETCH(const int, window);
    const OpenedWindow& each = kWindows.at(static_cast<std::size_t>(window));
    const RunningBench bench(QString::fromLatin1(each.function));
    each.open();
    QTest::keyClick(&Opened(each.name), Qt::Key_F1);
    QVERIFY(RunningBench::Window("HelpWindow").isVisible());
    QCOMPARE(HelpHeading(), QString::fromUtf16(each.help));
}

void TstKeyboard::F1OpensThePageOfEachTab() {
    const RunningBench bench(u"0"_s);
    Choose("Menu17");
    auto& pages = ChildOf<QTabWidget>(RunningBench::Window("Form2"), u"TabStrip1"_s);
    QVERIFY(pages.count() >= 9);
    for (int page = 0; page < pages.count(); ++page) {
        pages.setCurrentIndex(page);
        QTest::keyClick(&Opened("Form2"), Qt::Key_F1);
        QCOMPARE(HelpHeading(), pages.tabText(page));
    }
}

void TstKeyboard::F1InTheClockOpensItsPage() {
    const RunningBench bench(u"0"_s);
    QTest::keyClick(&Opened("Form1"), Qt::Key_F1);
    QCOMPARE(HelpHeading(), u"ウィンドウの操作"_s);
}

void TstKeyboard::CaptionsHaveAccessKeysOnlyIfChosen() {
    QFETCH(const int, window);
    const OpenedWindow& each = kWindows.at(static_cast<std::size_t>(window));
    for (const bool isChosen : {false, true}) {
        RunningBench bench(QString::fromLatin1(each.function));
        bench.state.started.further.keyboard.showsAccessKeys = isChosen;
        each.open();
        QMap<QString, QString> owners;  // by letter
        for (QAbstractButton* button : RunningBench::Window(each.name).findChildren<QAbstractButton*>()) {
            const QString letter = QKeySequence::mnemonic(button->text()).toString();
            const bool isWritten = button->objectName().startsWith(u"cmd");
            if (letter.isEmpty() || isWritten || !button->isVisible()) {
                continue;
            }
            QVERIFY2(isChosen, qPrintable(button->text()));
            QVERIFY2(!owners.contains(letter), qPrintable(owners.value(letter) + button->text()));
            owners.insert(letter, button->text());
            QVERIFY2(!Spoken(*button).text(QAccessible::Name).contains(u"(" + letter.back() + u')'),
                     qPrintable(button->text()));
        }
        const QStringList without{u"CDForm"_s, u"HelpWindow"_s};  // icons; actions with their own shortcuts
        QVERIFY(isChosen || owners.isEmpty());
        QCOMPARE(!owners.isEmpty(), isChosen && !without.contains(QLatin1StringView(each.name)));
    }
}

void TstKeyboard::EachFieldHasANameAndALabel() {
    QFETCH(const int, window);
    const OpenedWindow& each = kWindows.at(static_cast<std::size_t>(window));
    const RunningBench bench(QString::fromLatin1(each.function));
    each.open();
    for (QWidget* field : FieldsOf(RunningBench::Window(each.name))) {
        const QStringList names = NamesOf(*field).split(u'/');
        const QString message = field->objectName() + u": " + names.join(u'/');
        QVERIFY2(!names.constFirst().isEmpty(), qPrintable(message));
        const bool isSearch = QLatin1StringView(each.name) == u"HelpWindow";  // its fields have placeholders
        QVERIFY2(isSearch || names.size() > 1, qPrintable(message));
    }
}

void TstKeyboard::EachNumberHasItsValue() {
    QFETCH(const int, window);
    const OpenedWindow& each = kWindows.at(static_cast<std::size_t>(window));
    const RunningBench bench(QString::fromLatin1(each.function));
    each.open();
    for (auto* box : RunningBench::Window(each.name).findChildren<QAbstractSpinBox*>()) {
        QAccessibleValueInterface* value = Spoken(*box).valueInterface();
        QVERIFY2(value != nullptr, qPrintable(box->objectName()));
        static const QRegularExpression number(u"^\\d+"_s);
        QCOMPARE(value->currentValue().toInt(), number.match(box->text()).captured().toInt());
        QVERIFY(value->minimumValue().toInt() < value->maximumValue().toInt());
        const int next = value->minimumValue().toInt() + 1;
        value->setCurrentValue(next);
        QCOMPARE(number.match(box->text()).captured().toInt(), next);
    }
}

void TstKeyboard::TheSearchNamesItsFieldsApart() {
    const RunningBench bench(u"0"_s);
    OpenBook("Command12");
    QStringList names;
    for (QWidget* field : FieldsOf(RunningBench::Window("Form9"))) {
        names.append(Spoken(*field).text(QAccessible::Name));
    }
    names.sort();
    QCOMPARE(names, (QStringList{u"終了年"_s, u"終了日"_s, u"終了月"_s, u"記念日名"_s, u"開始年"_s,
                                 u"開始日"_s, u"開始月"_s}));
}

void TstKeyboard::ARequestOpensItsWindow_data() {
    QTest::addColumn<Request>("request");
    QTest::addColumn<QByteArray>("window");
    QTest::newRow("calendar") << Request::Calendar << "Form5"_ba;
    QTest::newRow("timer") << Request::Timer << "TimerForm"_ba;
    QTest::newRow("stopwatch") << Request::Stopwatch << "StopForm"_ba;
    QTest::newRow("help") << Request::Help << "HelpWindow"_ba;
}

void TstKeyboard::ARequestOpensItsWindow() {
    QFETCH(const Request, request);
    QFETCH(const QByteArray, window);
    const RunningBench bench(u"0"_s);
    bench.program->Answer(request);
    QVERIFY(RunningBench::Window(window.constData()).isVisible());
    QCOMPARE(bench.state.started.settings.function, 0);
    bench.program->Answer(request);  // it is already open
    QVERIFY(RunningBench::Window(window.constData()).isVisible());
}

void TstKeyboard::ARequestShowsTheWindowThatBlocksTheOthers() {
    const RunningBench bench(u"0"_s);
    Choose("Menu17");
    RunningBench::Window("Form2").showMinimized();
    bench.program->Answer(Request::Timer);
    QVERIFY(FindWindow<timing::TimerForm>() == nullptr);
    QVERIFY(!RunningBench::Window("Form2").isMinimized());
    bench.program->Answer(Request::Help);
    QVERIFY(RunningBench::Window("HelpWindow").isVisible());
    RunningBench::Window("Form2").close();
    bench.program->Answer(Request::Timer);
    QVERIFY(RunningBench::Window("TimerForm").isVisible());
}

QTEST_MAIN(TstKeyboard)
#include "tst_keyboard.moc"
