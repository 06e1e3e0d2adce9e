#include "Files.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "Device.h"

namespace Estimate {
namespace {

namespace fs = std::filesystem;

fs::path FromArgument(const std::string& argument) {
    return fs::path(std::u8string(argument.begin(), argument.end()));
}

}  // namespace

InputFile OpenInput(const std::string& path, std::istream& standardInput) {
    InputFile file;
    if (path == "-") {
        auto contents = std::make_unique<std::stringstream>();
        *contents << standardInput.rdbuf();
        contents->clear();
        file.size = contents->view().size();
        file.stream = std::move(contents);
        file.name = Say<Text::StandardInput>();
        return file;
    }
    file.name = Message::Same(path);
    std::error_code error;
    const fs::path native = FromArgument(path);
    if (!fs::is_regular_file(native, error))
        return file;
    auto stream = std::make_unique<std::ifstream>(native, std::ios::binary);
    if (!stream->is_open())
        return file;
    file.size = fs::file_size(native, error);
    file.stream = std::move(stream);
    return file;
}

std::optional<std::wstring> LibraryPath(const std::string& path) {
    const fs::path native = FromArgument(path);
    const CString text = FromNativePath(native);
    if (ToNativePath(text).native() != native.native())
        return std::nullopt;
    return text.ToWide();
}

std::string ShownPath(const CString& path) {
    const std::u8string native = ToNativePath(path).u8string();
    return std::string(native.begin(), native.end());
}

bool UseInstallation(const std::string& folder) {
    const std::optional<std::wstring> path = LibraryPath(folder);
    return path && DirectoryManager::UseInstallation(CString(*path));
}

Message WriteOutput(const std::string& path, const std::function<void(std::ostream&)>& write) {
    const fs::path target = FromArgument(path);
    std::error_code error;
    const bool direct = IsDevice(target);
    fs::path part = target;
    if (!direct)
        part += ".part";
    std::ofstream out(part, std::ios::binary);
    if (!out.is_open())
        return Say<Text::FileUnwritable>(path);
    write(out);
    out.close();
    const bool written = !out.fail();
    if (written && !direct)
        fs::rename(part, target, error);
    if (written && (direct || !error))
        return {};
    if (!direct)
        fs::remove(part, error);
    return Say<Text::FileUnwritable>(path);
}

}  // namespace Estimate
