#include "QsUtils/directory/CompanionLock.h"

namespace QsDirectory {

namespace {

constinit QsPlatform::RecursiveMutex lock;

}  // namespace

QsPlatform::RecursiveMutex& CompanionLock() noexcept {
    return lock;
}

}  // namespace QsDirectory
