// A module loaded again and again.
#pragma once

#include "tests/support/SharedModule.h"

/// Whether loads leave no memory behind. The first ones fill what stays: tables of the loader and of
/// libraries, which grow by steps for some hundred loads whatever is loaded. An object that is lost shows in
/// every hundred.
template <typename LoadUseAndUnload>
bool LeavesNothingBehind(LoadUseAndUnload loadUseAndUnload) {
    constexpr int loads = 100;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    for (int load = 0; load < loads; ++load)  // sanitizers keep what is freed, and watch leaks themselves
        loadUseAndUnload();
    return true;
#else
    constexpr std::size_t leastBlock = 32;  // of the allocator
    constexpr int hundreds = 6;
    std::size_t bytesBefore = 0;
    std::size_t mappingsBefore = 0;
    for (int hundred = 0; hundred < hundreds; ++hundred) {
        for (int load = 0; load < loads; ++load)
            loadUseAndUnload();
        const std::size_t bytes = HeapInUse();
        const std::size_t mappings = CountMappings();
        if (hundred > 0 && bytes < bytesBefore + loads * leastBlock && mappings <= mappingsBefore + 2)
            return true;
        bytesBefore = bytes;
        mappingsBefore = mappings;
    }
    return false;
#endif
}
