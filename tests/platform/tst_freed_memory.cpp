// SPDX-License-Identifier: GPL-3.0-or-later
#include <QBackingStore>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <memory>

#include "platform/desktop/freed_memory.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

/// The picture that the platform plugin keeps of a window; null if it keeps none.
QImage PictureOf(const QWidget& window) {
    QBackingStore* store = window.backingStore();
    const auto* picture = store != nullptr ? dynamic_cast<const QImage*>(store->paintDevice()) : nullptr;
    return picture != nullptr ? picture->copy() : QImage();
}

}  // namespace

/// Memory that hidden windows release.
class TstFreedMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void AVisibleWindowKeepsItsPicture();
    void AHiddenWindowLosesItsPicture();
    void ShownAgainItIsDrawnAsBefore();

private:
    std::unique_ptr<QLabel> m_window;
    QImage m_picture;  // of the window as first shown
};

void TstFreedMemory::init() {
    m_window = std::make_unique<QLabel>(u"時計"_s);
    m_window->resize(200, 50);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_picture = PictureOf(*m_window);
    QCOMPARE(m_picture.size(), QSize(200, 50));
}

void TstFreedMemory::AVisibleWindowKeepsItsPicture() {
    ReturnFreedMemory();
    QCOMPARE(PictureOf(*m_window), m_picture);
}

void TstFreedMemory::AHiddenWindowLosesItsPicture() {
    m_window->hide();
    QCOMPARE(PictureOf(*m_window).size(), QSize(200, 50));
    ReturnFreedMemory();
    QCOMPARE(PictureOf(*m_window).size(), QSize(1, 1));
}

void TstFreedMemory::ShownAgainItIsDrawnAsBefore() {
    m_window->hide();
    ReturnFreedMemory();
    m_window->show();
    QTRY_COMPARE(PictureOf(*m_window), m_picture);
}

QTEST_MAIN(TstFreedMemory)
#include "tst_freed_memory.moc"
