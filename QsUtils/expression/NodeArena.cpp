#include "QsUtils/expression/NodeArena.h"

#include <algorithm>
#include <new>

#include "QsUtils/expression/CExpressionNode.h"
#include "QsUtils/platform/LargeMemory.h"

namespace ExpressionAnalyse {

namespace {

constexpr std::size_t Aligned(std::size_t bytes) {
    constexpr std::size_t Alignment = alignof(std::max_align_t);
    return (bytes + Alignment - 1) / Alignment * Alignment;
}

constexpr std::size_t BlockHead = Aligned(sizeof(NodeBlock));
constexpr std::size_t ArenaHead = Aligned(sizeof(NodeArena));

constexpr std::size_t TextAt = ArenaHead + BlockHead + sizeof(CExpressionNode);

constexpr std::size_t ArenaBytes(std::size_t units) {
    return TextAt + units * sizeof(char16_t);
}

constexpr std::size_t BlockBytes(std::size_t capacity) {
    return BlockHead + capacity * sizeof(CExpressionNode);
}

void FreeBlock(NodeBlock* block) {
    if (block != nullptr)
        QsPlatform::FreeLarge(block, BlockBytes(block->capacity));
}

}  // namespace

CExpressionNode* NodeBlock::Nodes() noexcept {
    return reinterpret_cast<CExpressionNode*>(reinterpret_cast<std::byte*>(this) + BlockHead);
}

NodeBlock* NodeBlock::OfNodes(CExpressionNode* nodes) noexcept {
    return reinterpret_cast<NodeBlock*>(reinterpret_cast<std::byte*>(nodes) - BlockHead);
}

NodeArena* NodeArena::Create(std::u16string_view text, NodeCounts counts) {
    // One allocation for the arena, the root's place and the text: a formula that is only calculated needs no
    // other.
    auto* const memory = static_cast<std::byte*>(QsPlatform::AllocateLarge(ArenaBytes(text.size())));
    auto* const arena = new (memory) NodeArena;
    new (memory + ArenaHead) NodeBlock{arena, 1, 1};
    arena->m_text = reinterpret_cast<char16_t*>(memory + TextAt);
    arena->m_textLength = text.size();
    arena->m_counts = counts;
    std::copy(text.begin(), text.end(), arena->m_text);
    return arena;
}

NodeBlock& NodeArena::RootBlock() noexcept {
    return *reinterpret_cast<NodeBlock*>(reinterpret_cast<std::byte*>(this) + ArenaHead);
}

CExpressionNode* NodeArena::RootPlace() noexcept {
    return RootBlock().Nodes();
}

NodeBlock* NodeArena::AddBlock(std::size_t capacity) {
    void* const memory = QsPlatform::AllocateLarge(BlockBytes(capacity));
    return new (memory) NodeBlock{this, 0, static_cast<std::uint32_t>(capacity)};
}

void NodeArena::AddBlocks() {
    // The root has its place already, as the one or as the other.
    if (m_counts.branches > 1)
        m_branches = AddBlock(m_counts.branches - 1);
    if (m_counts.branches > 0 && m_counts.operands > 0)
        m_operands = AddBlock(m_counts.operands);
}

void NodeArena::DropBlocks() noexcept {
    FreeBlock(m_branches);
    FreeBlock(m_operands);
    m_branches = nullptr;
    m_operands = nullptr;
}

CExpressionNode* NodeArena::Next(NodeBlock& block, std::uint32_t& slot) noexcept {
    slot = block.used++;
    return block.Nodes() + slot;
}

void NodeArena::Destroy() noexcept {
    const std::size_t bytes = ArenaBytes(m_textLength);
    DropBlocks();
    this->~NodeArena();
    QsPlatform::FreeLarge(this, bytes);  // with the root's place and the text
}

}  // namespace ExpressionAnalyse
