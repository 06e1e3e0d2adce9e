#include "tests/module/probe/EventProbe.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <new>

#include <dlfcn.h>
#include <unistd.h>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/RuntimeException.hpp>

namespace {

struct Watch {
    const void* block;
    const char* event;
};

std::array<Watch, 64> watches{};
std::array<const void*, 64> noted{};
bool isNoting = false;
bool xmlFails = false;

template <typename T, std::size_t n, typename Same>
T* FindIn(std::array<T, n>& slots, Same same) {
    for (T& slot : slots) {
        if (same(slot))
            return &slot;
    }
    return nullptr;
}

void Free(void* block) noexcept {
    if (block == nullptr)
        return;
    if (Watch* watch = FindIn(watches, [&](const Watch& one) { return one.block == block; })) {
        EventProbe::Report(watch->event);
        watch->block = nullptr;
    }
    if (const void** slot = FindIn(noted, [&](const void* one) { return one == block; }))
        *slot = nullptr;
    std::free(block);
}

void* Allocate(std::size_t size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    if (isNoting) {
        if (const void** slot = FindIn(noted, [](const void* one) { return one == nullptr; }))
            *slot = block;
    }
    return block;
}

// The next definition of the function at `mine`: that of the library behind this executable.
template <typename F>
F* Original(F* mine) {
    Dl_info info{};
    dladdr(reinterpret_cast<const void*>(mine), &info);
    void* original = dlsym(RTLD_NEXT, info.dli_sname);
    if (original == nullptr)
        std::abort();
    return reinterpret_cast<F*>(original);
}

}  // namespace

namespace EventProbe {

void Report(const char* event) noexcept {
    std::array<char, 128> line{};
    std::strncpy(line.data(), event, line.size() - 2);
    const std::size_t length = std::strlen(line.data());
    line[length] = '\n';
    if (write(STDOUT_FILENO, line.data(), length + 1) < 0)
        std::abort();
}

void WatchBlock(const void* block, const char* event) noexcept {
    if (Watch* free = FindIn(watches, [](const Watch& one) { return one.block == nullptr; }))
        *free = {block, event};
}

void BeginNotingBlocks() noexcept {
    noted.fill(nullptr);
    isNoting = true;
}

std::size_t WatchNotedBlocks(const char* event) noexcept {
    isNoting = false;
    std::size_t count = 0;
    for (const void* block : noted) {
        if (block != nullptr) {
            WatchBlock(block, event);
            ++count;
        }
    }
    return count;
}

void MakeXmlFail() noexcept {
    xmlFails = true;
}

}  // namespace EventProbe

// The executable's definitions come before the library's, so the module's calls arrive here.
XERCES_CPP_NAMESPACE_BEGIN

void XMLPlatformUtils::Initialize(const char* const locale, const char* const nlsHome,
                                  PanicHandler* const panic, MemoryManager* const memory) {
    EventProbe::Report("XML starts");
    using Function = void(const char*, const char*, PanicHandler*, MemoryManager*);
    Original(static_cast<Function*>(&XMLPlatformUtils::Initialize))(locale, nlsHome, panic, memory);
    if (xmlFails)
        throw RuntimeException(__FILE__, __LINE__, XMLExcepts::File_CouldNotGetBasePathName, fgMemoryManager);
}

void XMLPlatformUtils::Terminate() {
    EventProbe::Report("XML ends");
    Original (&XMLPlatformUtils::Terminate)();
}

XERCES_CPP_NAMESPACE_END

void* operator new(std::size_t size) {
    return Allocate(size);
}

void operator delete(void* block) noexcept {
    Free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    Free(block);
}
