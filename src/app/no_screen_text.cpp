// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/no_screen_text.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

QString InEnglish(const MissingScreen& missing) {
    const QString cannot = u"the clock cannot be shown because "_s;
    if (missing.platforms != u"xcb") {
        return cannot + u"Qt's platform \"%1\" is not available here: set QT_QPA_PLATFORM to xcb."_s.arg(
                            missing.platforms);
    }
    if (!missing.display.isEmpty()) {
        return cannot +
               u"the screen %1 that DISPLAY names does not answer: start it in a desktop session."_s.arg(
                   missing.display);
    }
    if (missing.isWayland) {
        return cannot +
               u"this Wayland session has no XWayland: install the package xwayland and log in again."_s;
    }
    return cannot + u"there is no screen, DISPLAY is not set: start it in a desktop session."_s;
}

QString InJapanese(const MissingScreen& missing) {
    const QString cannot = u"時計を表示できません（%1）。"_s;
    if (missing.platforms != u"xcb") {
        return u"Qtのプラットフォーム「%1」を使えないので、"_s.arg(missing.platforms) +
               cannot.arg(u"QT_QPA_PLATFORMをxcbにしてください"_s);
    }
    if (!missing.display.isEmpty()) {
        return u"DISPLAYの画面「%1」に接続できないので、"_s.arg(missing.display) +
               cannot.arg(u"デスクトップの中で起動してください"_s);
    }
    if (missing.isWayland) {
        return u"このWaylandセッションにはXWaylandがないので、"_s +
               cannot.arg(u"パッケージxwaylandを入れて、ログインし直してください"_s);
    }
    return u"DISPLAYが設定されておらず画面がないので、"_s +
           cannot.arg(u"デスクトップの中で起動してください"_s);
}

}  // namespace

QString NoScreenText(const MissingScreen& missing, bool inJapanese) {
    return inJapanese ? InJapanese(missing) : InEnglish(missing);
}

}  // namespace tickwell::app
