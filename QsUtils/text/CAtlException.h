/// @file
/// The framework's exception: an invalid argument, an index out of range, or memory that can't be had.
#pragma once

#include <cstdint>
#include <exception>

#include "QsUtils/platform/Api.h"

/// Thrown by the few operations whose description names it. `m_hr` holds the reason.
class QSUTILS_API CAtlException : public std::exception {
public:
    /// An argument that the operation doesn't take.
    static constexpr std::int32_t InvalidArgument = static_cast<std::int32_t>(0x80070057u);

    /// An exception with this reason.
    explicit CAtlException(std::int32_t hr) noexcept : m_hr(hr) {}
    CAtlException(const CAtlException&) noexcept = default;             ///< With the same reason.
    CAtlException& operator=(const CAtlException&) noexcept = default;  ///< Takes over the reason.
    ~CAtlException() override;

    /// A short text in English, for logs.
    const char* what() const noexcept override;

    /// The reason, an HRESULT.
    std::int32_t m_hr;
};
