#include "QsUtils/xml/ScanLimits.h"

#include <exception>
#include <new>

#include <xercesc/util/PlatformUtils.hpp>

namespace QsXml {

namespace {

constexpr std::uint64_t MiB = std::uint64_t{1} << 20;

}  // namespace

struct alignas(std::max_align_t) ScanMemory::Block {
    Block* previous;
    Block* next;
    std::size_t size;
};

// The parser's own needs are small and hardly grow with the file; only names and the depth count.
ScanMemory::ScanMemory(std::size_t fileBytes) noexcept
    : m_mostLive(256 * MiB + std::uint64_t{32} * fileBytes),
      m_mostTotal(std::uint64_t{16} * 1024 * MiB + std::uint64_t{64} * fileBytes) {}

ScanMemory::~ScanMemory() {
    while (m_blocks != nullptr) {
        Block* const next = m_blocks->next;
        ::operator delete(m_blocks);
        m_blocks = next;
    }
}

void* ScanMemory::allocate(XMLSize_t size) {
    // Not a second time while the first is on its way: destructors may ask for memory.
    const bool fits = size <= m_mostLive && m_live + size <= m_mostLive && m_total + size <= m_mostTotal;
    if (!fits && std::uncaught_exceptions() == 0)
        throw LimitExceeded{u"the document needs too much memory"};
    Block* const block = new (::operator new(sizeof(Block) + size)) Block{nullptr, m_blocks, size};
    if (m_blocks != nullptr)
        m_blocks->previous = block;
    m_blocks = block;
    m_live += size;
    m_total += size;
    return block + 1;
}

void ScanMemory::deallocate(void* memory) {
    if (memory == nullptr)
        return;
    Block* const block = static_cast<Block*>(memory) - 1;
    (block->previous != nullptr ? block->previous->next : m_blocks) = block->next;
    if (block->next != nullptr)
        block->next->previous = block->previous;
    m_live -= block->size;
    ::operator delete(block);
}

xercesc::MemoryManager* ScanMemory::getExceptionMemoryManager() {
    return xercesc::XMLPlatformUtils::fgMemoryManager;
}

}  // namespace QsXml
