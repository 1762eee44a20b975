// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/lap_export.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>
#include <utility>

#include "core/saved_file.h"
#include "timing/lap_table.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

/// A kind of file.
struct LapExport::Kind {
    QString dialogName;
    QString title;  // of the dialog
    QString filter;
    QString suffix;
};

void LapExport::Copy(const QString& list) {
    QGuiApplication::clipboard()->setText(LapsForClipboard(list));
}

void LapExport::Save(const QString& list) {
    Choose({u"LapFileDialog"_s, u"ラップの一覧の保存"_s, u"CSVファイル (*.csv)"_s, u"csv"_s},
           [csv = LapsAsCsv(list)](const QString& path) {
               const QString reason = SaveFile(path, csv);
               if (!reason.isEmpty()) {
                   throw FileError(u"ラップの一覧を保存できませんでした。"_s, path,
                                   reason + u"\r\n書き込めるフォルダーと、空き容量を確かめてください。"_s);
               }
           });
}

void LapExport::ChoosePdf(std::function<void(const QString& path)> chosen) {
    Choose({u"PdfFileDialog"_s, u"PDFに保存"_s, u"PDFファイル (*.pdf)"_s, u"pdf"_s}, std::move(chosen));
}

/// The program's own folder, which is the current one, is not the place for the user's files.
void LapExport::Choose(const Kind& kind, std::function<void(const QString& path)> chosen) {
    if (m_folder.isEmpty()) {
        m_folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        if (!QFileInfo(m_folder).isDir()) {
            m_folder = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
        }
    }
    auto* dialog = new QFileDialog(&m_window, kind.title, m_folder, kind.filter);
    dialog->setObjectName(kind.dialogName);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(kind.suffix);
    dialog->selectFile(u"ラップ-"_s + m_clock.Now().toString(u"yyyyMMdd-HHmmss"_s) + u'.' + kind.suffix);
    QObject::connect(dialog, &QFileDialog::fileSelected, &m_window,
                     [this, chosen = std::move(chosen)](const QString& path) {
                         m_folder = QFileInfo(path).absolutePath();
                         m_handlers.Run([&] { chosen(path); }, &m_window);
                     });
    dialog->open();
}

}  // namespace tickwell::timing
