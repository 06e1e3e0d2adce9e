#include "QsUtils/ui/qt/module/Display.h"

#include <QDir>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <cstring>
#include <sstream>
#include <utility>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "QsUtils/platform/posix/Environment.h"

namespace QsQt {

namespace {

std::string Environment(const char* name) {
    return std::string(QsPlatform::EnvironmentVariable(name));
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

std::shared_ptr<void> ConnectToXServer() {
    std::shared_ptr<xcb_connection_t> connection(::xcb_connect(nullptr, nullptr), ::xcb_disconnect);
    return ::xcb_connection_has_error(connection.get()) == 0 ? connection : nullptr;
}

/// A socket that is closed with its last owner.
std::shared_ptr<int> OpenSocket() {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return nullptr;
    return {new int(socket), [](const int* owned) {
                ::close(*owned);
                delete owned;
            }};
}

std::shared_ptr<void> ConnectToWayland() {
    std::string display = Environment("WAYLAND_DISPLAY");
    if (display.empty())
        display = "wayland-0";
    const std::string path =
        display.front() == '/' ? display : Environment("XDG_RUNTIME_DIR") + '/' + display;
    sockaddr_un address{};
    if (path.size() >= sizeof(address.sun_path))
        return nullptr;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    std::shared_ptr<int> socket = OpenSocket();
    const bool isThere = socket != nullptr &&
                         ::connect(*socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return isThere ? socket : nullptr;
}

/// Only platforms that can be asked beforehand, or that can't fail, are used. Null for all others.
std::shared_ptr<void> Connect(const std::string& name) {
    if (name == "xcb")
        return ConnectToXServer();
    if (name.starts_with("wayland"))
        return ConnectToWayland();
    const bool needsNothing = name == "offscreen" || name == "minimal";
    return needsNothing ? std::make_shared<char>() : nullptr;
}

}  // namespace

Platform FindPlatform() {
    const std::vector<std::string> candidates = Candidates();
    if (candidates.empty())
        return {{}, u"there is no display.", nullptr};
    std::string tried;
    for (const std::string& candidate : candidates) {
        const std::string name = candidate.substr(0, candidate.find(':'));
        std::shared_ptr<void> connection = IsInstalled(name) ? Connect(name) : nullptr;
        if (connection != nullptr)
            return {candidate, {}, std::move(connection)};
        tried += (tried.empty() ? "" : ", ") + name;
    }
    return {
        {}, u"the display can't be used (" + QString::fromStdString(tried).toStdU16String() + u").", nullptr};
}

}  // namespace QsQt
