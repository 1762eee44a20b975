// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: its menu, its check marks, and the texts of its lines.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QRegularExpression>
#include <algorithm>
#include <array>

#include "core/clock_text.h"
#include "core/duration_text.h"
#include "lines/moving_word.h"
#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kStartUp = 11'000;  // ms
constexpr qint64 kSettled =
    25'000;  // ms; long enough for every line to be refreshed by its own timer, the slowest twice

/// Indexed by function number: its menu item, whether it has its own window, and its fixed title.
struct FunctionTable {
    QStringView item;
    bool hasWindow = false;
    QStringView title;
};
constexpr std::array kFunctions{
    FunctionTable{u"Menu3", false, {}},
    FunctionTable{u"Menu4", false, u"Windows使用時間"},
    FunctionTable{u"Menu5", true, u"ストップウォッチ"},
    FunctionTable{u"Menu6", true, u"タイマー"},
    FunctionTable{u"Menu7", false, u"バッテリー残量"},
    FunctionTable{u"Menu8", true, u"メモリー使用率"},
    FunctionTable{u"Menu9", true, {}},
};

/// Found even while it is hidden.
const QWidget& MainWindow() {
    const QWidgetList all = QApplication::topLevelWidgets();
    return **std::find_if(all.begin(), all.end(),
                          [](const QWidget* each) { return each->objectName() == u"Form1"; });
}

bool IsLike(const QString& text, const QString& pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

constexpr QStringView kElapsed = uR"(\d+:\d\d'\d\d"\d\d\d)";
constexpr QStringView kMinSec = uR"(-?\d+:\d\d)";

void CheckMarks(const Scene& scene, const QWidget& form, Complaints& complaints) {
    const qint32 function = scene.Now().state.started.settings.function;
    QStringList checked;
    for (const FunctionTable& each : kFunctions) {
        if (ChildOf<QAction>(ChildOf<QMenu>(form, u"Menu"_s), each.item.toString()).isChecked()) {
            checked.append(each.item.toString());
        }
    }
    complaints.Unless(function >= 0 && function < static_cast<qint32>(kFunctions.size()),
                      u"function " + QString::number(function));
    const bool hasStarted = scene.Now().passed >= kStartUp || !checked.isEmpty();
    if (!hasStarted) {
        return;
    }
    const FunctionTable& row = kFunctions.at(static_cast<std::size_t>(function));
    complaints.Unless(checked == QStringList{row.item.toString()},
                      u"function %1 is marked by %2"_s.arg(function).arg(checked.join(u' ')));
    complaints.Unless(ChildOf<QAction>(form, u"Menu0"_s).isEnabled() == row.hasWindow,
                      u"Menu0 of function %1"_s.arg(function));
}

void CheckMenu(const QWidget& form, Complaints& complaints) {
    for (const QString& name : {u"Menu1"_s, u"Menu17"_s, u"Menu20"_s, u"Menu21"_s, u"menu22"_s}) {
        const auto& item = ChildOf<QAction>(form, name);
        complaints.Unless(item.isEnabled() && item.isVisible(), name + u" cannot be chosen");
    }
    const auto& tools = ChildOf<QAction>(form, u"Menu10"_s);
    complaints.Unless(!tools.isVisible(), u"tools are offered and none is there"_s);
}

void CheckPlace(const QWidget& form, Complaints& complaints) {
    const auto& upper = ChildOf<lines::MovingWord>(form, u"MovingWord1"_s);
    const auto& lower = ChildOf<lines::MovingWord>(form, u"MovingWord2"_s);
    complaints.Unless(form.rect().contains(upper.geometry()) && form.rect().contains(lower.geometry()),
                      u"a line sticks out of the window"_s);
    complaints.Unless(!upper.geometry().intersects(lower.geometry()), u"the lines lie above each other"_s);
    complaints.Unless(upper.height() >= upper.TextHeight() && lower.height() >= lower.TextHeight(),
                      u"a line is lower than its text"_s);
}

/// Checks the lower line after the function's own timer has refreshed it.
void CheckLowerLine(const Scene& scene, const QString& text, Complaints& complaints) {
    const Machine& now = scene.Now();
    const AppSettings& settings = now.state.started.settings;
    const auto clockAt = [&](qint64 ago) {
        return ClockText(now.time.Now().addMSecs(-ago).time(), settings.language, settings.displayMode,
                         settings.hourStyle);
    };
    const bool isLong = now.state.started.further.corrections.longUsage;
    const auto usageAt = [&](quint32 ago) {
        const qint64 count = now.time.SinceBoot() - ago;
        const auto tick = static_cast<qint32>(static_cast<quint32>(count));
        return UsageText(isLong ? count : tick, settings.language, settings.displayMode, settings.hourStyle);
    };
    bool isRight = true;
    switch (settings.function) {
        case kFunctionClock:
            isRight = text == clockAt(0) || text == clockAt(200);
            break;
        case kFunctionUsage:
            isRight = text == usageAt(0) || text == usageAt(250);
            break;
        case kFunctionBattery:
            isRight = text == u"AC電源を使用中です" || text == u"電源が不明です" ||
                      IsLike(text, uR"(\d+％残っています|あと \d+時間\d\d分です)"_s);
            break;
        case kFunctionMemory:
            // If the load is unknown, the line is unchanged.
            isRight = IsLike(text, uR"(\d+％使用中)"_s) || !now.memory.Load();
            break;
        case kFunctionCd:
            isRight = text.isEmpty() || text == u"再生不可" ||
                      IsLike(text, uR"(\[ (Total|-?\d+) \]    (- )?)" + kMinSec) ||
                      IsLike(text, kElapsed.toString());
            break;
        default:
            isRight = IsLike(text, kElapsed.toString());
    }
    complaints.Unless(isRight, u"function %1 says below: %2"_s.arg(settings.function).arg(text));
}

/// Checks the upper line in the same way. The clock shows anniversaries there, which can be any text.
/// Stopwatch and timer write to it under any function; their text stays until that function writes again.
void CheckUpperLine(const Scene& scene, const QString& text, Complaints& complaints) {
    const qint32 function = scene.Now().state.started.settings.function;
    const bool isOfTiming =
        IsLike(text, uR"(ストップウォッチ|タイマー|指定の時間が経過しました|ループ \d+回目です)"_s) ||
        IsLike(text, uR"(Lapse\d+  )" + kElapsed);
    if (function == kFunctionClock || isOfTiming) {
        return;
    }
    bool isRight = text == kFunctions.at(static_cast<std::size_t>(function)).title;
    if (function == kFunctionCd) {
        const bool isReady = scene.Now().program->Player().State().CdState != media::kCdNotReady;
        isRight =
            isReady ? IsLike(text, uR"(全トラック数 \d+)"_s) : text == u"オーディオCDの準備ができていません";
    }
    complaints.Unless(isRight, u"function %1 says above: %2"_s.arg(function).arg(text));
}

}  // namespace

void CheckMainWindow(const Scene& scene, Complaints& complaints) {
    const QWidget& form = MainWindow();
    complaints.Met(form.isVisible() ? u"Form1 function %1"_s.arg(scene.Now().state.started.settings.function)
                                    : u"Form1 put away"_s);
    complaints.Unless(form.isVisible() != scene.Now().tray.HasIcon(), u"neither window nor icon, or both"_s);
    CheckMarks(scene, form, complaints);
    CheckMenu(form, complaints);
    if (form.isVisible()) {
        CheckPlace(form, complaints);
    }
}

void CheckLines(const Scene& scene, Complaints& complaints) {
    const Machine& now = scene.Now();
    if (scene.Quiet() < kSettled || now.passed < kStartUp || scene.HasBox(u"Tickwell"_s)) {
        return;  // a function whose handler failed keeps its last text
    }
    const QWidget& form = MainWindow();
    if (!form.isVisible()) {
        return;  // a hidden window is not refreshed
    }
    CheckLowerLine(scene, ChildOf<lines::MovingWord>(form, u"MovingWord2"_s).Text(), complaints);
    CheckUpperLine(scene, ChildOf<lines::MovingWord>(form, u"MovingWord1"_s).Text(), complaints);
}

}  // namespace tickwell
