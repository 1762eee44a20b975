// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <span>
#include <vector>

#include "core/handlers.h"
#include "settings_ui/flag_rows.h"
#include "settings_ui/settings_draft.h"

namespace tickwell::settings_ui {

/// Creates a check box for each row, owned by `parent`; a click changes the draft. Rows, draft and handlers
/// outlive the boxes.
std::vector<QCheckBox*> MakeFlagBoxes(std::span<const FlagRow> rows, SettingsDraft& draft, Handlers& handlers,
                                      QWidget* parent);

/// Sets the boxes of these rows to the flags of the draft.
void ShowFlags(std::span<const FlagRow> rows, const std::vector<QCheckBox*>& boxes, SettingsDraft& draft);

}  // namespace tickwell::settings_ui
