// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontInfo>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/picked_style.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

const LineStyle kStored{
    .fontName = u"No Such Font"_s, .fontSize = 10, .color = 65280, .italic = true, .underline = true};

}  // namespace

/// Which values a picker changes in a stored style.
class TstPickedStyle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void TheMachinesFontIsOffered();
    void LookingChangesNothing_data();
    void LookingChangesNothing();
    void ANewFamilyIsTaken();
    void EveryOtherChangeIsTaken();
};

void TstPickedStyle::TheMachinesFontIsOffered() {
    const LineStyle offered = OfferedStyle(kStored);
    QCOMPARE(offered.fontName, QFontInfo(QFont(u"No Such Font"_s)).family());
    QVERIFY(offered.fontName != kStored.fontName);
    QCOMPARE(offered.fontSize, qint16{10});
}

void TstPickedStyle::LookingChangesNothing_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint16>("size");
    QTest::newRow("first start") << u"ＭＳ Ｐゴシック"_s << qint16{10};
    QTest::newRow("no such font") << u"No Such Font"_s << qint16{10};
    QTest::newRow("no name") << QString() << qint16{10};
    QTest::newRow("size of nothing") << u"Monapo"_s << qint16{0};
    QTest::newRow("size below") << u"Monapo"_s << qint16{-32768};
    QTest::newRow("size above") << u"Monapo"_s << qint16{32767};
}

void TstPickedStyle::LookingChangesNothing() {
    QFETCH(QString, name);
    QFETCH(qint16, size);
    LineStyle stored = kStored;
    stored.fontName = name;
    stored.fontSize = size;
    const LineStyle offered = OfferedStyle(stored);
    QVERIFY(offered.fontSize >= kSmallestSize && offered.fontSize <= kLargestSize);
    QCOMPARE(PickedStyle(stored, offered, offered), stored);
}

void TstPickedStyle::ANewFamilyIsTaken() {
    const LineStyle offered = OfferedStyle(kStored);
    LineStyle picked = offered;
    picked.fontName = u"Another"_s;
    QCOMPARE(PickedStyle(kStored, offered, picked).fontName, u"Another"_s);
}

void TstPickedStyle::EveryOtherChangeIsTaken() {
    const LineStyle offered = OfferedStyle(kStored);
    const LineStyle picked{
        .fontName = offered.fontName, .fontSize = 11, .color = 255, .bold = true, .strikethrough = true};
    const LineStyle expected{
        .fontName = u"No Such Font"_s, .fontSize = 11, .color = 255, .bold = true, .strikethrough = true};
    QCOMPARE(PickedStyle(kStored, offered, picked), expected);
}

QTEST_MAIN(TstPickedStyle)
#include "tst_picked_style.moc"
