// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control_making.h"

#include <utility>

namespace tickwell::controls {

using namespace Qt::StringLiterals;

QString Indexed(const QString& name, int index) {
    return u"%1(%2)"_s.arg(name).arg(index);
}

QLabel* MakeLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = Named(new QLabel(parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

/// Screen readers find a hidden label as well. It is a sibling, because Qt looks for labels only there.
void LabelForReaders(QWidget& field, const QString& text) {
    QLabel* label = MakeLabel({}, text, field.parentWidget());
    label->hide();
    label->setBuddy(&field);
}

QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* window, Handlers& handlers,
                        std::function<void()> clicked) {
    auto* button = Named(new QPushButton(caption, window), name);
    handlers.Connect(button, &QPushButton::clicked, window, std::move(clicked));
    return button;
}

}  // namespace tickwell::controls
