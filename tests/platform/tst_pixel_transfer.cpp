// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/desktop/pixel_transfer.h"

using namespace tickwell::platform;

/// Whether Qt is told to paint without shared memory.
class TstPixelTransfer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qunsetenv("QT_XCB_NO_MITSHM"); }
    void QtIsTold();
    void WhatTheUserHasSetIsKept();
};

void TstPixelTransfer::QtIsTold() {
    qunsetenv("QT_XCB_NO_MITSHM");
    PaintWithoutSharedMemory();
    QCOMPARE(qgetenv("QT_XCB_NO_MITSHM"), "1");
}

void TstPixelTransfer::WhatTheUserHasSetIsKept() {
    qputenv("QT_XCB_NO_MITSHM", QByteArrayLiteral("0"));
    PaintWithoutSharedMemory();
    QCOMPARE(qgetenv("QT_XCB_NO_MITSHM"), "0");
}

QTEST_APPLESS_MAIN(TstPixelTransfer)
#include "tst_pixel_transfer.moc"
