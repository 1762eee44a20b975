// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QMenu>
#include <QWidget>

namespace tickwell::controls {

/// Appends an access key such as "(&H)" to the captions of a window's buttons, check boxes, option buttons
/// and menus and to the labels of its fields, or removes these keys again. Alt and the letter then choose the
/// control. A caption that was written with a key keeps it; no letter is used twice on one page, and a
/// control for which none is left has none. Screen readers go on saying the caption without the key.
void ShowAccessKeys(QWidget& window, bool shown);

/// The same for the items of a menu, in which the letter alone chooses. Submenus are included.
void ShowAccessKeys(QMenu& menu, bool shown);

/// Changes the caption of a button that may have an access key, which it then keeps.
void SetCaption(QAbstractButton& button, const QString& caption);

}  // namespace tickwell::controls
