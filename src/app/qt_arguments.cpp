// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/qt_arguments.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace tickwell::app {

namespace {

// The options of Qt's documentation of QGuiApplication and QApplication. Each may begin with one hyphen or
// two.
constexpr std::array<std::string_view, 17> kWithValue{"platform",
                                                      "platformpluginpath",
                                                      "platformtheme",
                                                      "plugin",
                                                      "qwindowgeometry",
                                                      "qwindowicon",
                                                      "icon",
                                                      "qwindowtitle",
                                                      "title",
                                                      "geometry",
                                                      "session",
                                                      "style",
                                                      "stylesheet",
                                                      "display",
                                                      "name",
                                                      "visual",
                                                      "qmljsdebugger"};
constexpr std::array<std::string_view, 4> kWithoutValue{"reverse", "widgetcount", "nograb", "dograb"};

/// Without its hyphens; empty if the argument is no option.
QByteArray NameOf(const QByteArray& argument) {
    if (!argument.startsWith('-')) {
        return QByteArray();
    }
    return argument.mid(argument.startsWith("--") ? 2 : 1);
}

bool Contains(std::span<const std::string_view> names, const QByteArray& name) {
    const std::string_view wanted(name.constData(), static_cast<size_t>(name.size()));
    return std::find(names.begin(), names.end(), wanted) != names.end();
}

}  // namespace

DividedArguments Divided(const QByteArrayList& arguments) {
    DividedArguments divided;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QByteArray name = i == 0 ? QByteArray() : NameOf(arguments[i]);
        const qsizetype equals = name.indexOf('=');
        if (Contains(kWithValue, name) && i + 1 < arguments.size()) {
            const QByteArray& value = arguments[++i];
            if (name == "platform") {
                divided.platforms = value;
            } else if (name == "display") {
                divided.display = value;
            }
        } else if (!Contains(kWithoutValue, name) &&
                   (equals < 0 || !Contains(kWithValue, name.left(equals)))) {
            divided.own.append(QString::fromLocal8Bit(arguments[i]));
        }
    }
    return divided;
}

}  // namespace tickwell::app
