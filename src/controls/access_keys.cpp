// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/access_keys.h"

#include <QCheckBox>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "controls/access_letters.h"

namespace tickwell::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kLetter = "accessKey";            // property: the appended letter
constexpr auto kSpoken = "accessKeyIsUnspoken";  // property: Append has set the accessible name

QString WithLetter(const QString& caption, QChar letter) {
    return letter.isNull() ? caption : caption + u"(&" + letter + u')';
}

/// An object with a caption that can show an access key: a button, a label with a buddy, or a menu item.
struct Captioned {
    QObject* owner = nullptr;   // stores both properties
    QWidget* spoken = nullptr;  // its accessible name derives from the caption; null for a menu item
    std::function<QString()> text;
    std::function<void(const QString& text)> setText;

    QChar Letter() const { return owner->property(kLetter).toChar(); }
    /// The caption without the appended key.
    QString Caption() const {
        const QString suffix = WithLetter(QString(), Letter());
        return text().endsWith(suffix) ? text().chopped(suffix.size()) : text();
    }
};

using Captions = std::vector<Captioned>;
using Letters = std::set<QChar>;

void Append(const Captioned& each, QChar letter) {
    const QString caption = each.Caption();
    if (each.spoken != nullptr && each.spoken->accessibleName().isEmpty()) {
        each.spoken->setAccessibleName(caption);
        each.owner->setProperty(kSpoken, true);
    }
    each.owner->setProperty(kLetter, letter);
    each.setText(WithLetter(caption, letter));
}

void Remove(const Captioned& each) {
    if (each.Letter().isNull()) {
        return;
    }
    each.setText(each.Caption());
    each.owner->setProperty(kLetter, QVariant());
    if (each.owner->property(kSpoken).toBool()) {
        each.spoken->setAccessibleName(QString());
        each.owner->setProperty(kSpoken, QVariant());
    }
}

/// Assigns the keys: first the letters that suit the captions, then unused ones. Returns all letters in use.
Letters Assign(const Captions& captions, Letters taken) {
    std::vector<const Captioned*> rest;
    for (const Captioned& each : captions) {
        const QKeySequence written = QKeySequence::mnemonic(each.text());
        if (!written.isEmpty()) {
            taken.insert(written.toString().back());
        }
    }
    for (const Captioned& each : captions) {
        if (!QKeySequence::mnemonic(each.text()).isEmpty() || !TakesLetter(each.Caption())) {
            continue;
        }
        const QChar letter = SuitingLetter(each.Caption());
        if (!letter.isNull() && taken.insert(letter).second) {
            Append(each, letter);
        } else {
            rest.push_back(&each);
        }
    }
    for (const Captioned* each : rest) {
        for (const QChar letter : kAllLetters) {
            if (taken.insert(letter).second) {
                Append(*each, letter);
                break;
            }
        }
    }
    return taken;
}

Captioned Of(QAction* action) {
    return {action, nullptr, [action] { return action->text(); },
            [action](const QString& text) { action->setText(text); }};
}

Captions ItemsOf(const QWidget& menu) {
    Captions items;
    for (QAction* action : menu.actions()) {
        if (!action->isSeparator()) {
            items.push_back(Of(action));
        }
    }
    return items;
}

/// Whether a label exists only for screen readers. Other controls are hidden too until their window is shown,
/// but never explicitly.
bool IsForReadersOnly(const QLabel& label) {
    return label.isHidden() && label.testAttribute(Qt::WA_WState_ExplicitShowHide);
}

/// The control's caption, if it is of a kind that can show an access key.
std::optional<Captioned> CaptionOf(QWidget* control) {
    auto* label = qobject_cast<QLabel*>(control);
    if (label != nullptr && label->buddy() != nullptr && !IsForReadersOnly(*label)) {
        return Captioned{label, label->buddy(), [label] { return label->text(); },
                         [label](const QString& text) { label->setText(text); }};
    }
    auto* button = qobject_cast<QAbstractButton*>(control);
    const bool isPlain = qobject_cast<QPushButton*>(control) != nullptr ||
                         qobject_cast<QCheckBox*>(control) != nullptr ||
                         qobject_cast<QRadioButton*>(control) != nullptr;
    if (!isPlain) {
        return std::nullopt;
    }
    return Captioned{button, button, [button] { return button->text(); },
                     [button](const QString& text) { button->setText(text); }};
}

/// The page of a tab widget that contains a control; null if there is none. Pages do not compete for letters,
/// because only one is visible at a time.
const QWidget* PageOf(const QWidget* control) {
    for (; control != nullptr && !control->isWindow(); control = control->parentWidget()) {
        if (qobject_cast<const QStackedWidget*>(control->parentWidget()) != nullptr) {
            return control;
        }
    }
    return nullptr;
}

/// The captions of a window, grouped by page; null stands for controls outside any page.
std::map<const QWidget*, Captions> CaptionsOf(const QWidget& window) {
    std::map<const QWidget*, Captions> found;
    const auto controls = window.findChildren<QWidget*>();
    for (QWidget* control : controls) {
        if (control->window() != &window) {
            continue;
        }
        if (const auto* bar = qobject_cast<QMenuBar*>(control)) {
            const Captions menus = ItemsOf(*bar);
            found[nullptr].insert(found[nullptr].end(), menus.begin(), menus.end());
        } else if (const auto caption = CaptionOf(control)) {
            found[PageOf(control)].push_back(*caption);
        }
    }
    return found;
}

void ShowInMenusOf(const QWidget& bar, bool shown) {
    for (const QAction* action : bar.actions()) {
        if (action->menu() != nullptr) {
            ShowAccessKeys(*action->menu(), shown);
        }
    }
}

}  // namespace

void ShowAccessKeys(QWidget& window, bool shown) {
    auto pages = CaptionsOf(window);
    if (!shown) {
        for (const auto& [page, captions] : pages) {
            std::for_each(captions.begin(), captions.end(), Remove);
        }
    } else {
        const Letters ofWindow = Assign(pages[nullptr], {});
        for (const auto& [page, captions] : pages) {
            if (page != nullptr) {
                Assign(captions, ofWindow);
            }
        }
    }
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        ShowInMenusOf(*bar, shown);
    }
}

void ShowAccessKeys(QMenu& menu, bool shown) {
    const Captions items = ItemsOf(menu);
    if (shown) {
        Assign(items, {});
    } else {
        std::for_each(items.begin(), items.end(), Remove);
    }
    ShowInMenusOf(menu, shown);
}

void SetCaption(QAbstractButton& button, const QString& caption) {
    button.setText(WithLetter(caption, button.property(kLetter).toChar()));
    if (button.property(kSpoken).toBool()) {
        button.setAccessibleName(caption);
    }
}

}  // namespace tickwell::controls
