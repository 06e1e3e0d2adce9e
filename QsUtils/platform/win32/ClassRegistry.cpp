#include "QsUtils/platform/ClassRegistry.h"

#include <string>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// A key opened for reading, if it is there.
class Key {
public:
    Key(HKEY parent, const CString& name) {
        if (::RegOpenKeyExW(parent, SystemUnits(name.View().data()), 0, KEY_READ, &m_key) != ERROR_SUCCESS)
            m_key = nullptr;
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (m_key != nullptr)
            ::RegCloseKey(m_key);
    }

    HKEY Handle() const { return m_key; }
    bool IsOpen() const { return m_key != nullptr; }

private:
    HKEY m_key = nullptr;
};

}  // namespace

std::optional<CString> ReadClassValue(const CString& name, const CString& subkey, std::size_t most) {
    const Key parent(HKEY_CLASSES_ROOT, name);
    if (!parent.IsOpen())
        return std::nullopt;
    const Key key(parent.Handle(), subkey);
    if (!key.IsOpen())
        return std::nullopt;
    // One unit more, since nobody promises that a registered text ends with a NUL.
    std::u16string units(most / sizeof(char16_t) + 2, u'\0');
    auto size = static_cast<DWORD>(most);
    if (::RegQueryValueExW(key.Handle(), nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(units.data()),
                           &size) != ERROR_SUCCESS)
        return std::nullopt;
    return CString(units.c_str());
}

}  // namespace QsPlatform
