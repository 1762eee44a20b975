// SPDX-License-Identifier: GPL-3.0-or-later
// The about box and the help window.
#include <QLabel>
#include <QToolButton>

#include "monkey/rules.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

void CheckAbout(const QWidget& box, Complaints& complaints) {
    const QStringList thanks{u"ダウンロードしていただきまして、"_s, u"ご意見、ご感想をお寄せください。"_s,
                             u"連絡先はヘルプに記載しています。"_s};
    const QString shown = ChildOf<QLabel>(box, u"Label3"_s).text().section(u'\n', 0, 0);
    complaints.Unless(thanks.contains(shown), u"the about box says " + shown);
    CheckEnabled(box, {u"cmdSysInfo"_s, u"Command2"_s, u"cmdCopy"_s, u"cmdOK"_s}, true, complaints);
}

void CheckHelp(const QWidget& window, Complaints& complaints) {
    const auto isOn = [&window](const QString& name) {
        return ChildOf<QToolButton>(window, name).isEnabled();
    };
    complaints.Unless(isOn(u"Smaller"_s) || isOn(u"Larger"_s), u"the help's text can be no size"_s);
    CheckEnabled(window, {u"Normal"_s, u"FindPrevious"_s, u"FindNext"_s, u"Find"_s, u"Side"_s, u"Text"_s},
                 true, complaints);
}

}  // namespace

void CheckFurtherWindows(const Scene& scene, Complaints& complaints) {
    if (const QWidget* about = scene.Window(u"frmAbout"_s)) {
        complaints.Met(u"frmAbout"_s);
        CheckAbout(*about, complaints);
    }
    if (const QWidget* help = scene.Window(u"HelpWindow"_s)) {
        complaints.Met(u"HelpWindow"_s);
        CheckHelp(*help, complaints);
    }
}

}  // namespace tickwell
