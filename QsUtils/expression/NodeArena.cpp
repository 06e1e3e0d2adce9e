#include "QsUtils/expression/NodeArena.h"

#include <algorithm>

#include "QsUtils/expression/CExpressionNode.h"

namespace ExpressionAnalyse {

namespace {

constexpr std::size_t Aligned(std::size_t bytes) {
    constexpr std::size_t Alignment = alignof(std::max_align_t);
    return (bytes + Alignment - 1) / Alignment * Alignment;
}

constexpr std::size_t BlockHead = Aligned(sizeof(NodeBlock));
constexpr std::size_t ArenaHead = Aligned(sizeof(NodeArena));

NodeBlock* MakeBlock(void* memory, NodeArena* arena, NodeBlock* older, std::size_t capacity) {
    return new (memory) NodeBlock{arena, older, 0, static_cast<std::uint32_t>(capacity)};
}

}  // namespace

CExpressionNode* NodeBlock::Nodes() noexcept {
    return reinterpret_cast<CExpressionNode*>(reinterpret_cast<std::byte*>(this) + BlockHead);
}

NodeBlock* NodeBlock::OfNodes(CExpressionNode* nodes) noexcept {
    return reinterpret_cast<NodeBlock*>(reinterpret_cast<std::byte*>(nodes) - BlockHead);
}

CExpressionNode* NodeArena::Place(std::uint32_t slot) noexcept {
    return m_newest->Nodes() + slot;
}

NodeArena* NodeArena::Create(std::size_t capacity, std::size_t units) {
    // One allocation for the arena, its first block and its text: most formulas need no other.
    const std::size_t textAt = ArenaHead + BlockHead + capacity * sizeof(CExpressionNode);
    auto* const memory = static_cast<std::byte*>(::operator new(textAt + units * sizeof(char16_t)));
    auto* const arena = new (memory) NodeArena;
    arena->m_newest = MakeBlock(memory + ArenaHead, arena, nullptr, capacity);
    arena->m_text = reinterpret_cast<char16_t*>(memory + textAt);
    return arena;
}

void NodeArena::AddBlock() {
    constexpr std::size_t SmallestBlock = 64;
    constexpr std::size_t LargestBlock = 65536;
    const std::size_t capacity = std::clamp<std::size_t>(2 * std::size_t{m_newest->capacity}, SmallestBlock, LargestBlock);
    void* const memory = ::operator new(BlockHead + capacity * sizeof(CExpressionNode));
    m_newest = MakeBlock(memory, this, m_newest, capacity);
}

void NodeArena::Destroy() noexcept {
    NodeBlock* block = m_newest;
    while (block->older != nullptr) {
        NodeBlock* const older = block->older;
        ::operator delete(block);
        block = older;
    }
    this->~NodeArena();
    ::operator delete(static_cast<void*>(this));  // with the first block
}

}  // namespace ExpressionAnalyse
