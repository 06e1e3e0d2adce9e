// What a document may cost. Files come from other companies: a few hundred bytes can be written so that they
// expand to terabytes, and no host would survive that.
#pragma once

#include <cstddef>
#include <cstdint>

#include <xercesc/framework/MemoryManager.hpp>

namespace QsXml {

/// How deep elements may be nested. Hosts walk trees by recursion; real files stay below a hundred.
inline constexpr std::size_t MostDepth = std::size_t{1} << 18;
/// How deep the contents of an entity may be nested, entities in entities included.
inline constexpr std::size_t MostEntityDepth = 512;
/// How many references to entities may be replaced.
inline constexpr std::size_t MostExpansions = 50'000;
/// How many attributes an element may have, and how many entities and notations a document may declare: a DOM
/// keeps both in sorted arrays, which take quadratic time.
inline constexpr std::size_t MostAttributes = std::size_t{1} << 14;
inline constexpr std::size_t MostDeclarations = std::size_t{1} << 16;

/// Raised when a document passes a limit; it never leaves the module.
struct LimitExceeded {
    const char16_t* text;
};

/// Counts what the elements of a document bring into memory: far beyond what a file of that size can hold by
/// itself, but a bound for what entities and default attributes multiply.
class ContentBudget {
public:
    explicit ContentBudget(std::size_t fileBytes) noexcept
        : m_left(std::uint64_t{16} * 1024 * 1024 + std::uint64_t{8} * fileBytes) {}

    /// Takes `units` off; raises `LimitExceeded` when they aren't there.
    void Spend(std::size_t units) {
        if (units > m_left)
            throw LimitExceeded{u"the contents exceed by far the size of the file"};
        m_left -= units;
    }

private:
    std::uint64_t m_left;
};

/// The memory of one scan, bounded at each moment and over the whole scan: the latter bounds the time that
/// empty expansions take, each of which needs a reader of its own. Whatever a broken scan leaves behind goes
/// with this object. For one thread.
class ScanMemory final : public xercesc::MemoryManager {
public:
    explicit ScanMemory(std::size_t fileBytes) noexcept;
    ~ScanMemory() override;

    /// Raises `LimitExceeded` or memory exhaustion.
    void* allocate(XMLSize_t size) override;
    void deallocate(void* memory) override;
    /// What an exception holds may outlive the scan.
    xercesc::MemoryManager* getExceptionMemoryManager() override;

private:
    struct Block;

    Block* m_blocks = nullptr;
    std::uint64_t m_live = 0;
    std::uint64_t m_total = 0;
    const std::uint64_t m_mostLive;
    const std::uint64_t m_mostTotal;
};

}  // namespace QsXml
