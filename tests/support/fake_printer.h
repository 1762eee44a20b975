// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>

#include "core/errors.h"
#include "core/ports/printer.h"

namespace tickwell {

/// A printer whose paper is a PDF file. It counts documents and pages, and can be missing.
class FakePrinter : public Printer {
public:
    void Print(const PrintJob& job) override {
        if (missing) {
            throw RunTimeError(QStringLiteral("通常使うプリンターが設定されていません。"));
        }
        titles.append(job.title);
        pages = 1;
        QPdfWriter paper(Path());
        paper.setPageSize(pageSize);
        QPainter painter(&paper);
        const QRectF area(QPointF(0, 0), paper.pageLayout().paintRectPixels(paper.resolution()).size());
        for (int number = 0; job.paintPage(painter, area, number); ++number) {
            ++pages;
            paper.newPage();
        }
    }

    QString Path() const { return m_folder.filePath(QStringLiteral("printed.pdf")); }

    /// What can be read on the paper, pages parted by form feeds.
    QString Text() const {
        return Ask({QStringLiteral("pdftotext"), QStringLiteral("-layout"), Path(), QStringLiteral("-")});
    }

    /// The table of the paper's fonts.
    QString Fonts() const { return Ask({QStringLiteral("pdffonts"), Path()}); }

    bool missing = false;
    QPageSize pageSize{QPageSize::A4};
    QStringList titles;
    int pages = 0;  ///< of the last document

private:
    static QString Ask(QStringList command) {
        QProcess process;
        process.start(command.takeFirst(), command);
        if (!process.waitForFinished() || process.exitCode() != 0) {
            qFatal("pdftotext and pdffonts are in the package poppler-utils");
        }
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QTemporaryDir m_folder;
};

}  // namespace tickwell
