/// @file
/// The two arrays that exported signatures use.
#pragma once

#include <vector>

#include "QsUtils/text/CAtlException.h"
#include "QsUtils/text/CString.h"

namespace QsText {

/// A growing array with the member names of the framework's arrays. Positions and counts are `int`; an index
/// outside of the array raises `CAtlException`.
template <typename T>
class Array {
public:
    int GetSize() const noexcept { return static_cast<int>(m_items.size()); }  ///< how many there are
    int GetCount() const noexcept { return GetSize(); }                        ///< how many there are
    bool IsEmpty() const noexcept { return m_items.empty(); }                  ///< whether there are none

    /// The item at an index from 0; good until the array changes.
    const T& GetAt(int index) const { return m_items[Checked(index)]; }
    /// The same.
    const T& operator[](int index) const { return m_items[Checked(index)]; }
    /// The same, to be changed.
    T& operator[](int index) { return m_items[Checked(index)]; }

    /// Adds at the end and returns the index of what was added.
    int Add(T item) {
        m_items.push_back(std::move(item));
        return GetSize() - 1;
    }
    /// Leaves the array empty.
    void RemoveAll() noexcept { m_items.clear(); }

    auto begin() const noexcept { return m_items.begin(); }  ///< for range-for
    auto end() const noexcept { return m_items.end(); }      ///< for range-for
    auto begin() noexcept { return m_items.begin(); }        ///< for range-for
    auto end() noexcept { return m_items.end(); }            ///< for range-for

private:
    std::size_t Checked(int index) const {
        if (index < 0 || index >= GetSize())
            throw CAtlException(CAtlException::InvalidArgument);
        return static_cast<std::size_t>(index);
    }

    std::vector<T> m_items;
};

}  // namespace QsText

/// An array of texts.
class CStringArray : public QsText::Array<CString> {};

/// An array of unsigned ints.
class CUIntArray : public QsText::Array<unsigned int> {};
