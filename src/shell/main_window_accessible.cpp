// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_window_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "controls/announcer.h"
#include "shell/main_window.h"

namespace tickwell::shell {

namespace {

/// Presents the lines and the open menus as children of the window: a popup has no parent in Qt's
/// accessibility tree, so screen readers could not reach it.
class MainWindowAccessible : public QAccessibleWidget {
public:
    explicit MainWindowAccessible(Form1* form) : QAccessibleWidget(form, QAccessible::Window), m_form(form) {}

    int childCount() const override {
        return QAccessibleWidget::childCount() + static_cast<int>(m_form->VisibleMenus().size());
    }

    QAccessibleInterface* child(int index) const override {
        const int own = QAccessibleWidget::childCount();
        if (index < own) {
            return QAccessibleWidget::child(index);
        }
        return QAccessible::queryAccessibleInterface(m_form->VisibleMenus().value(index - own));
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* menu = child == nullptr ? nullptr : qobject_cast<QMenu*>(child->object());
        const auto at = m_form->VisibleMenus().indexOf(menu);
        return at < 0 ? QAccessibleWidget::indexOfChild(child)
                      : QAccessibleWidget::childCount() + static_cast<int>(at);
    }

private:
    Form1* m_form;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    auto* form = qobject_cast<Form1*>(object);
    return form == nullptr ? nullptr : new MainWindowAccessible(form);
}

}  // namespace

void InstallMainWindowAccessibility() {
    lines::InstallMovingWordAccessibility();
    controls::InstallAnnouncerAccessibility();
    QAccessible::installFactory(&MakeAccessible);
}

}  // namespace tickwell::shell
