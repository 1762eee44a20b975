// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPrinterInfo>
#include <QTest>

#include "core/errors.h"
#include "platform/qt_printer.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// The printer of a desktop that has none. One that prints is tested with the whole program.
class TstQtPrinter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void WithoutAPrinterItIsToldAndNothingIsPainted();
};

void TstQtPrinter::initTestCase() {
    QVERIFY(qputenv("CUPS_SERVER", "/nonexistent/cups.sock"));
    QVERIFY(QPrinterInfo::defaultPrinter().isNull());
}

void TstQtPrinter::WithoutAPrinterItIsToldAndNothingIsPainted() {
    QtPrinter printer;
    int pages = 0;
    const PrintJob job{u"title"_s, [&pages](QPainter&, const QRectF&, int) {
                           ++pages;
                           return false;
                       }};
    QString reason;
    try {
        printer.Print(job);
    } catch (const RunTimeError& error) {
        reason = error.Reason();
    }
    QCOMPARE(reason, u"通常使うプリンターが設定されていません。"_s);
    QCOMPARE(pages, 0);
}

QTEST_MAIN(TstQtPrinter)
#include "tst_qt_printer.moc"
