// SPDX-License-Identifier: GPL-3.0-or-later
#include <QBackingStore>
#include <QImage>
#include <QLabel>
#include <QTest>

#include "platform/freed_memory.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

/// What the window system has of a window; nothing where the window keeps no picture.
QImage PictureOf(const QWidget& window) {
    QBackingStore* store = window.backingStore();
    const auto* picture = store != nullptr ? dynamic_cast<const QImage*>(store->paintDevice()) : nullptr;
    return picture != nullptr ? picture->copy() : QImage();
}

}  // namespace

/// What windows leave behind.
class TstFreedMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AShownWindowKeepsItsPicture();
    void AHiddenWindowLosesItsPicture();
    void ShownAgainItIsDrawnAsBefore();
};

void TstFreedMemory::AShownWindowKeepsItsPicture() {
    QLabel window(u"時計"_s);
    window.resize(200, 50);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage before = PictureOf(window);
    QCOMPARE(before.size(), QSize(200, 50));
    ReturnFreedMemory();
    QCOMPARE(PictureOf(window), before);
}

void TstFreedMemory::AHiddenWindowLosesItsPicture() {
    QLabel window(u"時計"_s);
    window.resize(200, 50);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.hide();
    QCOMPARE(PictureOf(window).size(), QSize(200, 50));
    ReturnFreedMemory();
    QCOMPARE(PictureOf(window).size(), QSize(1, 1));
}

void TstFreedMemory::ShownAgainItIsDrawnAsBefore() {
    QLabel window(u"時計"_s);
    window.resize(200, 50);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage before = PictureOf(window);
    window.hide();
    ReturnFreedMemory();
    window.show();
    QTRY_COMPARE(PictureOf(window), before);
}

QTEST_MAIN(TstFreedMemory)
#include "tst_freed_memory.moc"
