#include "QsUtils/ui/qt/module/Display.h"

#include <QDir>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace QsQt {

namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

std::vector<std::string> Candidates() {
    std::vector<std::string> names;
    std::istringstream given(Environment("QT_QPA_PLATFORM"));
    for (std::string name; std::getline(given, name, ';');) {
        if (!name.empty())
            names.push_back(name);
    }
    if (!names.empty())
        return names;
    if (!Environment("WAYLAND_DISPLAY").empty())
        names.emplace_back("wayland");
    if (!Environment("DISPLAY").empty())
        names.emplace_back("xcb");
    return names;
}

/// Loads the plugin of a platform, which shows whether all is installed that it needs.
bool IsInstalled(const std::string& name) {
    QStringList folders(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QLatin1String("/platforms"));
    if (const std::string own = Environment("QT_QPA_PLATFORM_PLUGIN_PATH"); !own.empty())
        folders.prepend(QString::fromStdString(own));
    const QString file = QLatin1String("libq") + QString::fromStdString(name);
    for (const QString& folder : folders) {
        for (const char* ending : {".so", "-generic.so"}) {
            const QString path = QDir(folder).filePath(file + QLatin1String(ending));
            if (QFile::exists(path) && QPluginLoader(path).load())
                return true;
        }
    }
    return false;
}

bool IsXServerThere() {
    xcb_connection_t* const connection = ::xcb_connect(nullptr, nullptr);
    const bool isThere = ::xcb_connection_has_error(connection) == 0;
    ::xcb_disconnect(connection);
    return isThere;
}

bool IsWaylandThere() {
    std::string display = Environment("WAYLAND_DISPLAY");
    if (display.empty())
        display = "wayland-0";
    const std::string path =
        display.front() == '/' ? display : Environment("XDG_RUNTIME_DIR") + '/' + display;
    sockaddr_un address{};
    if (path.size() >= sizeof(address.sun_path))
        return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return false;
    const bool isThere = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return isThere;
}

/// Only platforms that can be asked beforehand, or that can't fail, are used.
bool Answers(const std::string& name) {
    if (name == "xcb")
        return IsXServerThere();
    if (name.starts_with("wayland"))
        return IsWaylandThere();
    return name == "offscreen" || name == "minimal";
}

}  // namespace

Platform FindPlatform() {
    const std::vector<std::string> candidates = Candidates();
    if (candidates.empty())
        return {{}, u"there is no display."};
    std::string tried;
    for (const std::string& candidate : candidates) {
        const std::string name = candidate.substr(0, candidate.find(':'));
        if (IsInstalled(name) && Answers(name))
            return {candidate, {}};
        tried += (tried.empty() ? "" : ", ") + name;
    }
    return {{}, u"the display can't be used (" + QString::fromStdString(tried).toStdU16String() + u")."};
}

}  // namespace QsQt
