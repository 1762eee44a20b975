// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "exchange/exchange_parts.h"

namespace tickwell::exchange {

/// Opens the windows for files of anniversaries, each modal to the window that asks for it.
class ExchangeWindows {
public:
    explicit ExchangeWindows(ExchangeParts parts) : m_parts(std::move(parts)) {}

    /// Asks for a file and opens the window that reads it.
    void OpenImport(QWidget* owner) const;
    void OpenExport(QWidget* owner) const;

private:
    void Open(QDialog& window) const;
    void OpenFile(const QString& path, QWidget* owner) const;

    ExchangeParts m_parts;
};

}  // namespace tickwell::exchange
