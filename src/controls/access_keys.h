// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QMenu>
#include <QWidget>

namespace tickwell::controls {

/// Appends an access key such as "(&H)" to the captions of a window's buttons, check boxes, option buttons
/// and menus and to the labels of its fields, or removes these keys again. Alt with the letter then activates
/// the control. A caption that already contains a key keeps it. No letter is used twice on one page; once
/// none is left, the remaining controls have no key. Screen readers still read the caption without the key.
void ShowAccessKeys(QWidget& window, bool shown);

/// The same for the items of a menu and its submenus. In a menu the letter works without Alt.
void ShowAccessKeys(QMenu& menu, bool shown);

/// Changes the caption of a button and keeps its access key, if it has one.
void SetCaption(QAbstractButton& button, const QString& caption);

}  // namespace tickwell::controls
