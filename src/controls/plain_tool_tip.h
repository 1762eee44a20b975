// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace tickwell::controls {

/// `text` for a tool tip that shows it as it is: Qt would interpret one that looks like markup as rich text.
QString PlainToolTip(const QString& text);

/// Shows `text` as it is in a tool tip of `owner`, at a position on the screen; hides the tool tip if it is
/// empty.
void ShowPlainToolTip(QPoint place, const QString& text, QWidget* owner);

}  // namespace tickwell::controls
