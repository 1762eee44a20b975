// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tickwell::app {

/// A background gradient from the palette's window colour to a slight tint of its highlight colour. It stays
/// dark in dark palettes, so the palette's text colour is readable on it.
class Gradation : public QWidget {
    Q_OBJECT

public:
    explicit Gradation(QWidget* parent) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tickwell::app
