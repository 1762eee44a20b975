// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace tickwell::controls {

/// A label of plain text in as many rows as its width needs. It is never lower than these rows: QTabWidget
/// passes on no height for a width, so a page would be given less when its window is as small as it can be.
class WrappedLabel : public QLabel {
public:
    WrappedLabel(const QString& name, const QString& text, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace tickwell::controls
