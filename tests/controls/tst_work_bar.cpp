// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/work_bar.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "platform/time/virtual_time.h"
#include "support/child.h"
#include "support/fake_message_boxes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::controls;

namespace {

/// Work of `count` slices; slice number `failing` throws an error.
class Slices : public SlicedWork {
public:
    Slices(int count, int failing, bool& isAlive) : m_count(count), m_failing(failing), m_isAlive(isAlive) {
        m_isAlive = true;
    }
    ~Slices() override { m_isAlive = false; }
    bool Step() override {
        if (IsGivenUp()) {
            return true;
        }
        ++m_done;
        if (m_done == m_failing) {
            throw RunTimeError(u"x"_s);
        }
        return m_done == m_count;
    }
    double Part() const override { return static_cast<double>(m_done) / m_count; }

private:
    int m_count;
    int m_failing;
    int m_done = 0;
    bool& m_isAlive;
};

/// A dialog with a field, a button that is always disabled, and the bar.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(9, 0))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    QDialog dialog;
    QLineEdit* field = new QLineEdit;
    QPushButton* off = new QPushButton;
    WorkBar* bar = new WorkBar(time, handlers, u"数えています"_s, &dialog);
    QString endings;
    bool isAlive = false;

    Bench() {
        auto* rows = new QVBoxLayout(&dialog);
        rows->addWidget(field);
        rows->addWidget(off);
        rows->addWidget(bar);
        off->setEnabled(false);
        dialog.show();
        field->setFocus();
    }
    void Start(int slices, int failing = 0) {
        bar->Start(std::make_unique<Slices>(slices, failing, isAlive), [this](const WorkEnd& end) {
            endings += end.error ? u'e' : end.isStopped ? u's' : u'd';
            endings += isAlive ? u'+' : u'-';
            if (end.error) {
                std::rethrow_exception(end.error);
            }
        });
    }
    QProgressBar& Progress() const { return ChildOf<QProgressBar>(*bar, u"WorkProgress"_s); }
    QPushButton& StopButton() const { return ChildOf<QPushButton>(*bar, u"WorkStop"_s); }
};

}  // namespace

/// The bar that runs the work of a dialog.
class TstWorkBar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void SmallWorkIsDoneAtOnce();
    void LongWorkGoesOnFromATimer();
    void AppearsAfterHalfASecond();
    void CanBeStopped();
    void AnErrorOfTheFirstSliceReachesTheCaller();
    void AnErrorOfALaterSliceIsReported();
    void DeletedWhileItWorksItReportsNothing();
    void WorksAgain();
};

void TstWorkBar::SmallWorkIsDoneAtOnce() {
    Bench bench;
    bench.Start(1);
    QCOMPARE(bench.endings, u"d+"_s);
    QVERIFY(!bench.bar->IsWorking());
    QVERIFY(!bench.isAlive);
    QVERIFY(bench.field->isEnabled());
    QVERIFY(!bench.time.UntilNext());
}

void TstWorkBar::LongWorkGoesOnFromATimer() {
    Bench bench;
    bench.Start(100);
    QVERIFY(bench.bar->IsWorking());
    QVERIFY(!bench.field->isEnabled());
    bench.time.Advance(98);
    QCOMPARE(bench.endings, QString());
    QVERIFY(!bench.bar->isVisible());
    bench.time.Advance(1);
    QCOMPARE(bench.endings, u"d+"_s);
    QVERIFY(bench.field->isEnabled());
    QVERIFY(!bench.off->isEnabled());
    QVERIFY(!bench.isAlive);
    QVERIFY(!bench.time.UntilNext());
}

void TstWorkBar::AppearsAfterHalfASecond() {
    Bench bench;
    bench.Start(1000);
    bench.time.Advance(499);
    QVERIFY(!bench.bar->isVisible());
    bench.time.Advance(1);
    QVERIFY(bench.bar->isVisible());
    QCOMPARE(bench.Progress().value(), 50);
    QCOMPARE(bench.Progress().text(), u"数えています 50%"_s);
    QCOMPARE(bench.Progress().accessibleName(), u"数えています"_s);
    QCOMPARE(bench.StopButton().text(), u"中止"_s);
    QCOMPARE(bench.dialog.focusWidget(), &bench.StopButton());
    bench.time.Advance(1000);
    QVERIFY(!bench.bar->isVisible());
    QCOMPARE(bench.dialog.focusWidget(), bench.field);
}

void TstWorkBar::CanBeStopped() {
    Bench bench;
    bench.bar->Stop();
    bench.Start(1000);
    bench.time.Advance(600);
    QTest::mouseClick(&bench.StopButton(), Qt::LeftButton);
    QCOMPARE(bench.endings, u"s+"_s);
    QVERIFY(!bench.isAlive);
    QVERIFY(!bench.bar->isVisible());
    QVERIFY(bench.field->isEnabled());
    QVERIFY(!bench.time.UntilNext());
}

void TstWorkBar::AnErrorOfTheFirstSliceReachesTheCaller() {
    Bench bench;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Start(5, 1));
    QCOMPARE(bench.endings, u"e+"_s);
    QVERIFY(!bench.bar->IsWorking());
}

void TstWorkBar::AnErrorOfALaterSliceIsReported() {
    Bench bench;
    bench.Start(5, 3);
    bench.time.Advance(10);
    QCOMPARE(bench.endings, u"e+"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().text, u"実行時エラー\r\nx"_s);
    QVERIFY(bench.field->isEnabled());
    QVERIFY(!bench.time.UntilNext());
}

void TstWorkBar::DeletedWhileItWorksItReportsNothing() {
    Bench bench;
    bench.Start(5);
    delete bench.bar;
    QVERIFY(!bench.isAlive);
    bench.time.Advance(1000);
    QCOMPARE(bench.endings, QString());
}

void TstWorkBar::WorksAgain() {
    Bench bench;
    bench.Start(5);
    bench.bar->Stop();
    bench.Start(5);
    bench.time.Advance(10);
    QCOMPARE(bench.endings, u"s+d+"_s);
}

QTEST_MAIN(TstWorkBar)
#include "tst_work_bar.moc"
