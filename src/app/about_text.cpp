// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/about_text.h"

#include <algorithm>
#include <array>

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> kThanks{
    u"ダウンロードしていただきまして、\rありがとうございます。",
    u"ご意見、ご感想をお寄せください。\r今後の開発に生かしたいと思います。",
    u"連絡先はヘルプに記載しています。\r詳しくは連絡先をご覧ください。",
};

}  // namespace

QString FirstThanks() {
    return kThanks[0].toString();
}

QString NextThanks(const QString& shown) {
    if (shown == kThanks[0]) {
        return kThanks[1].toString();
    }
    return (shown == kThanks[1] ? kThanks[2] : kThanks[0]).toString();
}

QString ThanksLines(const QString& message) {
    return QString(message).replace(u'\r', u'\n');
}

QString VersionText(int major, int minor, int revision) {
    return u"Ver."_s + QString::number(major) + u'.' + QString::number(minor) + u'.' +
           QString::number(revision);
}

QString FactsText(const SystemFacts& facts) {
    QString text;
    const auto add = [&text](QStringView name, const QString& value) {
        text += name + u": " + (value.isEmpty() ? u"不明"_s : value) + u'\n';
    };
    add(u"Tickwell", facts.programVersion);
    add(u"Qt", facts.qtVersion);
    add(u"OS", facts.system);
    add(u"カーネル", facts.kernel);
    add(u"デスクトップ", facts.desktop);
    add(u"プラットフォーム", facts.platform);
    for (qsizetype i = 0; i < facts.screens.size(); ++i) {
        add(QString(u"画面"_s + QString::number(i + 1)), facts.screens[i]);
    }
    add(u"スタイル", facts.style);
    add(u"フォント", facts.font);
    add(u"ロケール", facts.locale);
    return text;
}

const QList<SystemInformation>& SystemInformationPrograms() {
    // Programs made only for this come first; those that show it on one of several pages are opened at that
    // page. GNOME's settings are left out: under other desktops they start, report nothing and exit.
    static const QList<SystemInformation> programs{
        {u"hardinfo2"_s, {}},
        {u"hardinfo"_s, {}},
        {u"kinfocenter"_s, {}},
        {u"cinnamon-settings"_s, {u"info"_s}},
        {u"mate-system-monitor"_s, {u"--show-system-tab"_s}},
        {u"xfce4-about"_s, {}},
        {u"gnome-system-monitor"_s, {}},
        {u"plasma-systemmonitor"_s, {}},
    };
    return programs;
}

bool StartSystemInformation(ProgramStarter& programs, const QString& folder) {
    const QList<SystemInformation>& known = SystemInformationPrograms();
    return std::any_of(known.begin(), known.end(), [&](const SystemInformation& each) {
        const QString file = programs.Find(each.name);
        return !file.isEmpty() && programs.Start(file, each.arguments, folder);
    });
}

}  // namespace tickwell::app
