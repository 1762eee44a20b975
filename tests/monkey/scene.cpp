// SPDX-License-Identifier: GPL-3.0-or-later
// The screen: which windows may be open together, and that at least one of them can be used.
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>
#include <array>

#include "monkey/hands.h"
#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// The program's own windows; at most one of each is open.
constexpr std::array kWindows{
    QStringView(u"Form1"),
    QStringView(u"StopForm"),
    QStringView(u"TimerForm"),
    QStringView(u"Form8"),
    QStringView(u"CDForm"),
    QStringView(u"Form5"),
    QStringView(u"Form6"),
    QStringView(u"Form9"),
    QStringView(u"Form10"),
    QStringView(u"Form2"),
    QStringView(u"frmAbout"),
    QStringView(u"HelpWindow"),
    QStringView(u"StylePicker"),
    QStringView(u"ColourPicker"),
    QStringView(u"TimersForm"),
    QStringView(u"TimersNotice"),
    QStringView(u"PresetNameDialog"),
    QStringView(u"TimerSoundDialog"),
    QStringView(u"AlarmsForm"),
    QStringView(u"AlarmNotice"),
    QStringView(u"AlarmSoundDialog"),
    QStringView(u"LapFileDialog"),
    QStringView(u"SyncFolderDialog"),
    QStringView(u"HolidayListDialog"),
    QStringView(u"WriteAllDialog"),
    QStringView(u"ReadAllDialog"),
    QStringView(u"ImportDialog"),
    QStringView(u"ExportDialog"),
    QStringView(u"Form12"),
    QStringView(u"Form13"),
};

bool IsPopup(const QWidget& window) {
    return window.windowType() == Qt::Popup || window.windowType() == Qt::ToolTip;
}

/// A window and the window that it requires to be open.
constexpr std::array<std::pair<QStringView, QStringView>, 17> kOver{{
    {u"Form6", u"Form5"},
    {u"Form9", u"Form5"},
    {u"Form10", u"Form5"},
    {u"StylePicker", u"Form2"},
    {u"ColourPicker", u"Form2"},
    {u"PresetNameDialog", u"TimersForm"},
    {u"TimerSoundDialog", u"TimersForm"},
    {u"AlarmSoundDialog", u"AlarmsForm"},
    {u"LapFileDialog", u"StopForm"},
    {u"SyncFolderDialog", u"Form2"},
    {u"HolidayListDialog", u"Form2"},
    {u"WriteAllDialog", u"Form2"},
    {u"ReadAllDialog", u"Form2"},
    {u"ImportDialog", u"Form2"},
    {u"ExportDialog", u"Form13"},
    {u"Form12", u"Form2"},
    {u"Form13", u"Form2"},
}};

constexpr qsizetype kMostBoxes = 8;  // more than this would cover the desktop

/// Titles of message boxes of which at most one is open: a second would add nothing, or its window waits for
/// the first.
QStringList OneAtATime() {
    return {u"マルチメディアエラー"_s,     u"印刷"_s,          u"実行時エラー"_s, u"ﾃﾞｰﾀ削除"_s, u"ｶﾚﾝﾀﾞｰ"_s,
            u"データベース書込みエラー"_s, u"検索開始エラー"_s};
}

QString KindOf(const QMessageBox& box) {
    return box.text().startsWith(u"実行時エラー") ? u"実行時エラー"_s : box.windowTitle();
}

void CheckKinds(const Scene& scene, Complaints& complaints) {
    QStringList boxes;
    for (const QWidget* window : scene.All()) {
        const bool isBox = qobject_cast<const QMessageBox*>(window) != nullptr;
        const bool isKnown =
            std::find(kWindows.begin(), kWindows.end(), window->objectName()) != kWindows.end();
        if (isKnown && window->objectName().endsWith(u"Picker")) {
            complaints.Met(window->objectName());
        }
        complaints.Unless(isBox || isKnown || IsPopup(*window),
                          u"a window nobody knows: " + Hands::PathOf(*window));
        if (isBox) {
            boxes.append(KindOf(*qobject_cast<const QMessageBox*>(window)));
            complaints.Met(u"box "_s + window->windowTitle());
        }
    }
    for (const QString& box : OneAtATime()) {
        complaints.Unless(boxes.count(box) <= 1, u"two boxes: " + box);
    }
    complaints.Unless(boxes.size() <= kMostBoxes, u"%1 boxes"_s.arg(boxes.size()));
    for (const QStringView name : kWindows) {
        complaints.Unless(scene.Windows(name.toString()).size() <= 1, u"two windows: " + name);
    }
    for (const auto& [upper, lower] : kOver) {
        complaints.Unless(
            scene.Window(upper.toString()) == nullptr || scene.Window(lower.toString()) != nullptr,
            upper + u" has lost " + lower);
    }
    const auto ofBook = scene.Windows(u"Form6"_s).size() + scene.Windows(u"Form9"_s).size() +
                        scene.Windows(u"Form10"_s).size();
    complaints.Unless(ofBook <= 1, u"two windows of the book"_s);
}

/// If windows are open, at least one is usable, and the modal one is not blocked itself.
void CheckModality(const Scene& scene, Complaints& complaints) {
    const QWidgetList& all = scene.All();
    complaints.Unless(all.isEmpty() || std::any_of(all.begin(), all.end(),
                                                   [](const QWidget* each) {
                                                       return each->isEnabled() && !Hands::IsBlocked(*each);
                                                   }),
                      u"every window is blocked"_s);
    const QWidget* modal = QApplication::activeModalWidget();
    complaints.Unless(modal == nullptr || modal->isVisible(), u"an unseen window blocks the others"_s);
    complaints.Unless(modal == nullptr || !Hands::IsBlocked(*modal), u"the modal window is blocked itself"_s);
}

}  // namespace

Scene::Scene(World& world, qint64 quiet, bool thorough)
    : m_world(world), m_quiet(quiet), m_thorough(thorough), m_all(Hands::Windows()) {
    for (QWidget* window : m_all) {
        m_windows.insert(window->objectName(), window);
    }
}

bool Scene::HasBox(const QString& title) const {
    return std::any_of(m_all.begin(), m_all.end(), [&](const QWidget* each) {
        return qobject_cast<const QMessageBox*>(each) != nullptr && each->windowTitle() == title;
    });
}

void CheckWindows(const Scene& scene, Complaints& complaints) {
    CheckKinds(scene, complaints);
    CheckModality(scene, complaints);
    complaints.Unless(QDir::currentPath() == QDir(scene.Of().Folder()).canonicalPath(),
                      u"the current folder is " + QDir::currentPath());
}

}  // namespace tickwell
