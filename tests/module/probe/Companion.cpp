// A companion that tells when it goes.
#include <cstdint>
#include <cstdio>

namespace {

const struct Presence {
    ~Presence() {
        std::puts("companion ends");
        std::fflush(stdout);
    }
} presence;

}  // namespace

extern "C" TEST_EXPORT std::int32_t GetLibrarySeries() {
    return 7;
}
