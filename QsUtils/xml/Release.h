// Owners of the parser's objects, which aren't deleted but released.
#pragma once

#include <memory>

namespace QsXml {

struct Releaser {
    template <typename T>
    void operator()(T* object) const {
        object->release();
    }
};

/// Owns an object that has an operation `release`.
template <typename T>
using Released = std::unique_ptr<T, Releaser>;

}  // namespace QsXml
