// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "settings_ui/settings_parts.h"

namespace tickwell {

/// Page "データベース" of the settings: compacts the day database, at once and for good.
class DatabasePage : public QWidget {
    Q_OBJECT

public:
    /// All outlive it.
    DatabasePage(const SettingsParts& parts, QWidget* parent);
};

}  // namespace tickwell
