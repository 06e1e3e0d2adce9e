#include "tests/module/probe/EventProbe.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/RuntimeException.hpp>

#include "QsUtils/backup/BackUpNames.h"

namespace {

struct Watch {
    const void* block;
    const char* event;
};

std::array<Watch, 64> watches{};
std::array<const void*, 64> noted{};
bool isNoting = false;

template <typename T, std::size_t n, typename Same>
T* FindIn(std::array<T, n>& slots, Same same) {
    for (T& slot : slots) {
        if (same(slot))
            return &slot;
    }
    return nullptr;
}

void Forget(void* block) noexcept {
    if (Watch* watch = FindIn(watches, [&](const Watch& one) { return one.block == block; })) {
        EventProbe::Report(watch->event);
        watch->block = nullptr;
    }
    if (const void** slot = FindIn(noted, [&](const void* one) { return one == block; }))
        *slot = nullptr;
}

void Note(const void* block) noexcept {
    if (const void** slot = FindIn(noted, [](const void* one) { return one == nullptr; }))
        *slot = block;
}

}  // namespace

namespace EventProbe {

void Report(const char* event) noexcept {
    std::printf("%s\n", event);
    std::fflush(stdout);
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

void WatchFirstNotedBlock(const char* event) noexcept {
    isNoting = false;
    if (noted.front() != nullptr)
        WatchBlock(noted.front(), event);
}

void WatchBackUpNames(const char* event) noexcept {
    WatchBlock(QsBackup::VersionFile.GetString(), event);
}

}  // namespace EventProbe

// The linker leads the module's calls of a wrapped function here, and gives the function itself its other
// name.
#define JOIN_NAMES(a, b) a##b
#define WRAPPED(symbol) JOIN_NAMES(__wrap_, symbol)
#define REAL(symbol) JOIN_NAMES(__real_, symbol)

extern "C" {

void REAL(XML_INITIALIZE)(const char*, const char*, xercesc::PanicHandler*, xercesc::MemoryManager*);
void REAL(XML_TERMINATE)();
void* REAL(OPERATOR_NEW)(std::size_t);
void REAL(OPERATOR_DELETE)(void*);
void REAL(OPERATOR_SIZED_DELETE)(void*, std::size_t);

void WRAPPED(XML_INITIALIZE)(const char* locale, const char* home, xercesc::PanicHandler* panic,
                             xercesc::MemoryManager* memory) {
    EventProbe::Report("XML starts");
    REAL(XML_INITIALIZE)(locale, home, panic, memory);
    if (std::getenv(EventProbe::failingXml) != nullptr)
        throw xercesc::RuntimeException(__FILE__, __LINE__, xercesc::XMLExcepts::File_CouldNotGetBasePathName,
                                        xercesc::XMLPlatformUtils::fgMemoryManager);
}

void WRAPPED(XML_TERMINATE)() {
    EventProbe::Report("XML ends");
    REAL(XML_TERMINATE)();
}

void* WRAPPED(OPERATOR_NEW)(std::size_t size) {
    void* const block = REAL(OPERATOR_NEW)(size);
    if (isNoting)
        Note(block);
    return block;
}

void WRAPPED(OPERATOR_DELETE)(void* block) {
    Forget(block);
    REAL(OPERATOR_DELETE)(block);
}

void WRAPPED(OPERATOR_SIZED_DELETE)(void* block, std::size_t size) {
    Forget(block);
    REAL(OPERATOR_SIZED_DELETE)(block, size);
}

}  // extern "C"
