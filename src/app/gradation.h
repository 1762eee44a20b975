// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tickwell {

/// A background that passes from the palette's window colour into a touch of its highlight. Dark palettes
/// stay dark, so what stands on it keeps the palette's text colour.
class Gradation : public QWidget {
    Q_OBJECT

public:
    explicit Gradation(QWidget* parent) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tickwell
