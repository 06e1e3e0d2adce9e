#include "QsUtils/platform/posix/IcuPin.h"

#include <dlfcn.h>
#include <unicode/ucnv.h>
#include <unicode/ucol.h>

namespace QsPlatform {

namespace {

void Pin(const void* symbol) noexcept {
    Dl_info object{};
    if (::dladdr(symbol, &object) == 0 || object.dli_fname == nullptr)
        return;
    if (void* handle = ::dlopen(object.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE))
        ::dlclose(handle);
}

}  // namespace

void PinIcu() noexcept {
    // The third library, with ICU's data, stays with the one of the converters, which needs it.
    Pin(reinterpret_cast<const void*>(&ucnv_open));
    Pin(reinterpret_cast<const void*>(&ucol_open));
}

}  // namespace QsPlatform
