// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_printer.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

void QtPrinter::Print(const PrintJob& job) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {  // the toolkit would write a file without a name instead, and say nothing
        throw RunTimeError(u"通常使うプリンターが設定されていません。"_s);
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(job.title);
    QPainter painter;
    if (!painter.begin(&printer)) {
        throw RunTimeError(u"印刷を開始できませんでした。"_s);
    }
    const QRectF area(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size());
    for (int number = 0; job.paintPage(painter, area, number); ++number) {
        if (!printer.newPage()) {
            printer.abort();
            throw RunTimeError(u"次のページを印刷できませんでした。"_s);
        }
    }
    if (!painter.end()) {
        throw RunTimeError(u"印刷を終えることができませんでした。"_s);
    }
}

}  // namespace tickwell
