// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/flag_boxes.h"

#include "controls/control_making.h"

namespace tickwell::settings_ui {

std::vector<QCheckBox*> MakeFlagBoxes(std::span<const FlagRow> rows, SettingsDraft& draft, Handlers& handlers,
                                      QWidget* parent) {
    std::vector<QCheckBox*> boxes;
    for (const FlagRow& row : rows) {
        auto* box = controls::Named(new QCheckBox(row.caption.toString(), parent), row.name.toString());
        handlers.Connect(box, &QCheckBox::clicked, parent,
                         [&row, &draft, box] { row.field(draft.further) = box->isChecked(); });
        boxes.push_back(box);
    }
    return boxes;
}

void ShowFlags(std::span<const FlagRow> rows, const std::vector<QCheckBox*>& boxes, SettingsDraft& draft) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        boxes.at(i)->setChecked(rows[i].field(draft.further));
    }
}

}  // namespace tickwell::settings_ui
