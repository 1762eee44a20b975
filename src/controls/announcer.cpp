// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/announcer.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleObject>

namespace tickwell::controls {

namespace {

/// A notification whose parent is the window but which is not among its children, so that screen readers meet
/// it only through its event.
class AnnouncerAccessible : public QAccessibleObject {
public:
    explicit AnnouncerAccessible(Announcer* announcer)
        : QAccessibleObject(announcer), m_announcer(announcer) {}

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&m_announcer->Window());
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name ? m_announcer->Text() : QString();
    }
    QRect rect() const override { return m_announcer->Window().geometry(); }

private:
    Announcer* m_announcer;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    auto* announcer = qobject_cast<Announcer*>(object);
    return announcer == nullptr ? nullptr : new AnnouncerAccessible(announcer);
}

}  // namespace

void InstallAnnouncerAccessibility() {
    QAccessible::installFactory(&MakeAccessible);
}

void AnnounceChoices(QComboBox& combo) {
#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
    auto* announcer = new Announcer(&combo);
    QObject::connect(&combo, &QComboBox::currentTextChanged, announcer,
                     [&combo, announcer](const QString& text) {
                         if (combo.hasFocus() &&
                             !combo.view()->isVisible()) {  // the items of an open list announce themselves
                             announcer->Announce(text);
                         }
                     });
#else
    Q_UNUSED(combo)
#endif
}

Announcer::Announcer(QWidget* window) : QObject(window), m_window(window) {}

Announcer::~Announcer() = default;

void Announcer::Announce(const QString& text) {
    m_text = text;
    if (!QAccessible::isActive() || text.isEmpty()) {
        return;
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(m_window, text);  // polite by default
#else
    QAccessibleEvent event(this, QAccessible::ObjectShow);
#endif
    QAccessible::updateAccessibility(&event);
}

}  // namespace tickwell::controls
