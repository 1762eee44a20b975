// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/exchange_windows.h"

#include <QFileDialog>

#include "controls/access_keys.h"
#include "controls/help_key.h"
#include "exchange/export_window.h"
#include "exchange/import_window.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

void ExchangeWindows::OpenImport(QWidget* owner) const {
    auto* dialog =
        new QFileDialog(owner, u"記念日のファイル"_s, {}, u"予定、連絡先、表 (*.ics *.vcf *.csv)"_s);
    dialog->setObjectName(u"ImportDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, owner,
                     [windows = *this, owner](const QString& path) {
                         windows.m_parts.handlers.Run([&] { windows.OpenFile(path, owner); }, owner);
                     });
    dialog->open();
}

void ExchangeWindows::OpenFile(const QString& path, QWidget* owner) const {
    auto* window = new Form12(m_parts, path, owner);
    Open(*window);
    window->Read();
}

void ExchangeWindows::OpenExport(QWidget* owner) const {
    Open(*new Form13(m_parts, owner));
}

void ExchangeWindows::Open(QDialog& window) const {
    window.setAttribute(Qt::WA_DeleteOnClose);
    controls::OpenHelpByKey(window, m_parts.handlers, m_parts.help, kHelpExchange);
    controls::ShowAccessKeys(window, m_parts.further.keyboard.showsAccessKeys);
    window.open();
}

}  // namespace tickwell::exchange
