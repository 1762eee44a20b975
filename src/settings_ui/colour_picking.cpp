// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/colour_picking.h"

#include <QColorDialog>
#include <utility>

#include "lines/line_look.h"

namespace tickwell::settings_ui {

void OpenColourPicker(Handlers& handlers, const QString& title, qint32 color, QWidget* parent,
                      std::function<void(qint32 color)> onPicked) {
    auto* dialog = new QColorDialog(lines::ColorFromNumber(color), parent);
    dialog->setObjectName(QStringLiteral("ColourPicker"));
    dialog->setWindowTitle(title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::DontUseNativeDialog);  // a native dialog could open below the main window
    handlers.Connect(dialog, &QDialog::accepted, parent, [dialog, color, onPicked = std::move(onPicked)] {
        const QColor picked = dialog->selectedColor();
        onPicked(picked.rgb() == lines::ColorFromNumber(color).rgb() ? color : lines::ColorNumberOf(picked));
    });
    dialog->open();
}

}  // namespace tickwell::settings_ui
