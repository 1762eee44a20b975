// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "settings_ui/settings_draft.h"

using namespace tickwell;
using namespace tickwell::settings_ui;

/// The settings draft, without a window.
class TstSettingsDraft : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingChangesBeforeItIsApplied();
    void EverythingButTheFunctionIsCopiedBack();
    void WhatWasNotEditedKeepsItsCurrentValue();
    void DisplaysJoinAndLeaveTheRollInTheirOrder();
    void NumbersThatAreNoDisplayStayInTheRoll();
};

void TstSettingsDraft::NothingChangesBeforeItIsApplied() {
    AppSettings settings;
    FurtherSettings further;
    SettingsDraft draft{settings, further};
    draft.settings.language = 1;
    draft.ChooseForRoll(0, false);
    QCOMPARE(settings, AppSettings());
    QCOMPARE(further, FurtherSettings());
}

void TstSettingsDraft::EverythingButTheFunctionIsCopiedBack() {
    AppSettings settings;
    FurtherSettings further;
    SettingsDraft draft{settings, further};
    draft.settings = {2, QStringLiteral("x"), 4, 33, 1, 255, {}, {}, 2, 1, 1, 1, 9};
    draft.settings.upper = {.fontName = QStringLiteral("Font"),
                            .fontSize = 20,
                            .color = 1,
                            .bold = true,
                            .italic = true,
                            .strikethrough = true,
                            .underline = true};
    draft.settings.lower = {
        .fontName = QStringLiteral("Other"), .fontSize = 8, .color = 2, .bold = true, .strikethrough = true};
    draft.further = {.roll = {.use = true, .kinds = {0}, .interval = 99}, .tellsNoCdDrive = false};
    settings.function = 1;  // changed by the roll in the meantime
    draft.ApplyTo(settings, further);
    QCOMPARE(settings.function, 1);
    settings.function = draft.settings.function;
    QCOMPARE(settings, draft.settings);
    QCOMPARE(further, draft.further);
}

void TstSettingsDraft::WhatWasNotEditedKeepsItsCurrentValue() {
    AppSettings settings;
    FurtherSettings further;
    further.face.clickThrough = true;
    SettingsDraft draft{settings, further};
    further.face.clickThrough = false;  // by the menu of the icon
    further.face.screen = QStringLiteral("DP-2");
    draft.further.face.opacity = 50;
    draft.ApplyTo(settings, further);
    FurtherSettings expected;
    expected.face.screen = QStringLiteral("DP-2");
    expected.face.opacity = 50;
    QCOMPARE(further, expected);

    further.face.opacity = 70;  // after it was applied
    draft.further.face.clickThrough = false;
    draft.further.corrections.showsToday = true;
    draft.ApplyTo(settings, further);
    expected.face.opacity = 70;
    expected.corrections.showsToday = true;
    QCOMPARE(further, expected);
}

void TstSettingsDraft::DisplaysJoinAndLeaveTheRollInTheirOrder() {
    SettingsDraft draft{{}, {}};
    draft.ChooseForRoll(1, false);
    draft.ChooseForRoll(0, false);
    QCOMPARE(draft.further.roll.kinds, (QList<qint32>{4, 5}));
    draft.ChooseForRoll(1, true);
    QCOMPARE(draft.further.roll.kinds, (QList<qint32>{1, 4, 5}));
    draft.ChooseForRoll(1, true);
    QCOMPARE(draft.further.roll.kinds, (QList<qint32>{1, 4, 5}));
    draft.ChooseForRoll(0, true);
    QCOMPARE(draft.further.roll.kinds, (QList<qint32>{0, 1, 4, 5}));
}

void TstSettingsDraft::NumbersThatAreNoDisplayStayInTheRoll() {
    SettingsDraft draft{{}, {{true, {-1, 1, 99}, 10}, true}};
    draft.ChooseForRoll(5, true);
    draft.ChooseForRoll(1, false);
    QCOMPARE(draft.further.roll.kinds, (QList<qint32>{-1, 5, 99}));
}

QTEST_GUILESS_MAIN(TstSettingsDraft)
#include "tst_settings_draft.moc"
