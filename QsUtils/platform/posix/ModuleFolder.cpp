#include "QsUtils/platform/ModuleFolder.h"

#include <climits>
#include <string>

#include <dlfcn.h>
#include <link.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Process.h"

namespace QsPlatform {

CString ModuleFolder() {
    Dl_info own{};
    link_map* map = nullptr;
    // The name under which a module was loaded may be relative; its origin was made absolute at that time.
    std::string origin(PATH_MAX, '\0');
    if (::dladdr1(reinterpret_cast<const void*>(&ModuleFolder), &own, reinterpret_cast<void**>(&map),
                  RTLD_DL_LINKMAP) == 0)
        return CString();
    // The program itself has no name there, and its origin isn't known.
    if (*map->l_name == '\0') {
        const CString program = ExecutablePath();
        return program.Left(program.ReverseFind(u'\\') + 1);
    }
    if (::dlinfo(map, RTLD_DI_ORIGIN, origin.data()) != 0)
        return CString();
    origin.resize(origin.find('\0'));
    return FromNativePath(origin).TrimRight(u'\\') + u'\\';
}

}  // namespace QsPlatform
