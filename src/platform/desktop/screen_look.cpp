// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/screen_look.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <algorithm>
#include <cstring>

#include "platform/files/base_directories.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

/// The socket of the compositor by the rules of libwayland.
QByteArray WaylandSocket() {
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    if (name.startsWith('/')) {
        return name;
    }
    return QFile::encodeName(RuntimeFolder()) + '/' + (name.isEmpty() ? "wayland-0"_ba : name);
}

bool AcceptsWayland() {
    if (qEnvironmentVariableIsSet("WAYLAND_SOCKET")) {  // an open connection, passed on by the parent process
        return true;
    }
    const QByteArray path = WaylandSocket();
    sockaddr_un address{};
    if (static_cast<size_t>(path.size()) >= sizeof(address.sun_path)) {
        return false;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), static_cast<size_t>(path.size()));
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file < 0) {
        return false;
    }
    const bool isGood = connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    close(file);
    return isGood;
}

/// Whether the plugin in this file is for `platform`. Reads its description without loading it.
bool IsPluginFor(const QString& file, const QString& platform) {
    const QJsonObject description = QPluginLoader(file).metaData().value(u"MetaData").toObject();
    const QJsonArray keys = description.value(u"Keys").toArray();
    return std::any_of(keys.begin(), keys.end(), [&](const QJsonValue& key) {
        return key.toString().compare(platform, Qt::CaseInsensitive) == 0;
    });
}

bool HasPlugin(const QString& platform) {
    QStringList folders{QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms"};
    for (const char* variable : {"QT_QPA_PLATFORM_PLUGIN_PATH", "QT_PLUGIN_PATH"}) {
        for (const QString& folder : qEnvironmentVariable(variable).split(u':', Qt::SkipEmptyParts)) {
            folders.append({folder, folder + u"/platforms"});
        }
    }
    for (const QString& folder : folders) {
        for (const QFileInfo& file : QDir(folder).entryInfoList({u"*.so"_s}, QDir::Files)) {
            if (IsPluginFor(file.filePath(), platform)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

void ScreenLook::Disconnect::operator()(xcb_connection_t* server) const {
    xcb_disconnect(server);
}

ScreenLook::ScreenLook(const ScreenChoice& choice) {
    const QByteArrayList platforms = choice.platforms.split(';');
    m_canShowWindows = std::any_of(platforms.begin(), platforms.end(), [&](const QByteArray& platform) {
        return CanShowOn(platform, choice.display);
    });
}

bool ScreenLook::CanShowOn(const QByteArray& platform, const QByteArray& display) {
    const QByteArray name = platform.split(':').constFirst().trimmed();  // without its parameters
    if (name == "xcb") {  // its plugin is always there: it comes with Qt's windows
        return AcceptsX11(display);
    }
    const bool needsCompositor = name.startsWith("wayland");
    return (!needsCompositor || AcceptsWayland()) && HasPlugin(QString::fromLocal8Bit(name));
}

bool ScreenLook::AcceptsX11(const QByteArray& display) {
    m_server.reset(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr));  // never null
    return xcb_connection_has_error(m_server.get()) == 0;
}

}  // namespace tickwell::platform
