// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/screen_fit.h"

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace tickwell::controls;

namespace {

constexpr int kRows = 12;

/// A dialog of many rows, among them a layout and a spacer, with a button below.
struct Dialog : QDialog {
    QVBoxLayout* rows = new QVBoxLayout(this);
    QList<QWidget*> fields;
    QPushButton* button = new QPushButton(u"OK"_s, this);

    Dialog() {
        rows->setSizeConstraint(QLayout::SetFixedSize);
        for (int row = 0; row < kRows; ++row) {
            fields.append(new QLineEdit(this));
        }
        rows->addWidget(fields.at(0));
        auto* pair = new QHBoxLayout;
        pair->addWidget(fields.at(1));
        pair->addWidget(fields.at(2));
        rows->addLayout(pair);
        rows->addSpacing(20);
        for (int row = 3; row < kRows; ++row) {
            rows->addWidget(fields.at(row));
        }
        auto* buttons = new QHBoxLayout;
        buttons->addStretch();
        buttons->addWidget(button);
        rows->addLayout(buttons);
        button->setParent(nullptr);  // last in the tab order
        button->setParent(this);
    }
    int Height() const { return rows->totalSizeHint().height(); }
    QScrollArea* Area() const { return findChild<QScrollArea*>(); }
    bool IsSeen(const QWidget& widget) const {
        const QWidget& viewport = *Area()->viewport();
        return viewport.rect().contains(QRect(widget.mapTo(&viewport, QPoint()), widget.size()));
    }
};

}  // namespace

/// Windows on small screens.
class TstScreenFit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WhatFitsStaysAsItIs();
    void WhatIsTooHighScrollsAboveTheButtons();
    void TabGoesThroughAllFieldsAndShowsThem();
};

void TstScreenFit::WhatFitsStaysAsItIs() {
    Dialog dialog;
    const QSize before = dialog.rows->totalSizeHint();
    ScrollIfTooHigh(*dialog.rows, 1, before.height());
    QVERIFY(dialog.Area() == nullptr);
    QCOMPARE(dialog.rows->totalSizeHint(), before);
    QCOMPARE(dialog.fields.at(0)->parentWidget(), &dialog);
}

void TstScreenFit::WhatIsTooHighScrollsAboveTheButtons() {
    Dialog dialog;
    const QSize before = dialog.rows->totalSizeHint();
    const int room = before.height() * 2 / 3;
    ScrollIfTooHigh(*dialog.rows, 1, room);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.height(), room);
    QVERIFY(dialog.width() > before.width());  // for the bar
    QVERIFY(dialog.rect().contains(QRect(dialog.button->mapTo(&dialog, QPoint()), dialog.button->size())));
    QCOMPARE(dialog.Area()->horizontalScrollBar()->maximum(), 0);
    QVERIFY(dialog.IsSeen(*dialog.fields.first()));
    QVERIFY(!dialog.IsSeen(*dialog.fields.last()));
    dialog.Area()->verticalScrollBar()->setValue(dialog.Area()->verticalScrollBar()->maximum());
    QVERIFY(dialog.IsSeen(*dialog.fields.last()));
}

void TstScreenFit::TabGoesThroughAllFieldsAndShowsThem() {
    Dialog dialog;
    ScrollIfTooHigh(*dialog.rows, 1, dialog.Height() / 2);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    dialog.fields.first()->setFocus();
    for (QWidget* field : dialog.fields) {
        QCOMPARE(dialog.focusWidget(), field);
        QVERIFY(dialog.IsSeen(*field));
        QTest::keyClick(field, Qt::Key_Tab);
    }
    QCOMPARE(dialog.focusWidget(), dialog.button);
}

QTEST_MAIN(TstScreenFit)
#include "tst_screen_fit.moc"
