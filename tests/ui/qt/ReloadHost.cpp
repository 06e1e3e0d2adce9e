// A host that loads the library, shows its tip and unloads the library again and again, while Qt stays.
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>

namespace {

template <typename F>
F* Function(void* module, const char* name) {
    return reinterpret_cast<F*>(::dlsym(module, name));
}

bool IsGone(const char* library) {
    return ::dlopen(library, RTLD_LAZY | RTLD_NOLOAD) == nullptr;
}

}  // namespace

/// LIBRARY LOADS
int main(int count, char** arguments) {
    if (count < 3)
        return 2;
    const int loads = std::atoi(arguments[2]);
    int gone = 0;
    for (int load = 0; load < loads; ++load) {
        void* const library = ::dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            return 2;
        // The names of texttip::ShowWindowDelay(unsigned int) and texttip::CloseWindowNow().
        Function<void(unsigned int)>(library, "_ZN7texttip15ShowWindowDelayEj")(load % 2 == 0 ? 0U : 1U);
        if (load % 3 == 0)
            Function<void()>(library, "_ZN7texttip14CloseWindowNowEv")();
        ::dlclose(library);
        gone += IsGone(arguments[1]) ? 1 : 0;
    }
    std::printf("gone %d times\n", gone);
    return 0;
}
