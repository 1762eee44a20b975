// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>

#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Frame of the page "データベース": reads anniversaries from files and writes them to files, at once.
class ExchangeFrame : public QGroupBox {
    Q_OBJECT

public:
    /// `parts` outlive this object.
    ExchangeFrame(const SettingsParts& parts, QWidget* parent);
};

}  // namespace tickwell::settings_ui
