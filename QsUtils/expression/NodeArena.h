// The memory of the nodes of one parse.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ExpressionAnalyse {

class CExpressionNode;
class NodeArena;

/// A run of places for nodes, followed by them. A node finds its block by its own place in it.
struct NodeBlock {
    NodeArena* arena;
    std::uint32_t used;
    std::uint32_t capacity;

    CExpressionNode* Nodes() noexcept;
    static NodeBlock* OfNodes(CExpressionNode* nodes) noexcept;
};

/// How many nodes of each sort a parse makes: operands, and all others.
struct NodeCounts {
    std::size_t branches = 0;
    std::size_t operands = 0;
};

/// Holds the nodes of one parse and the text that their operands lie in. A host may delete any node by itself
/// and keep the others, so the arena goes with the last of its places: a place is given back when its node
/// has been deleted and no other node points to it. Such subtrees may belong to different threads.
class NodeArena {
public:
    /// An arena with one place, for the root, and a copy of the formula's text. Raises `std::bad_alloc`.
    static NodeArena* Create(std::u16string_view text, NodeCounts counts);
    /// Frees all places, whatever is in them.
    void Destroy() noexcept;

    /// The formula's text, and how many nodes it makes.
    char16_t* Text() noexcept { return m_text; }
    std::size_t TextLength() const noexcept { return m_textLength; }
    NodeCounts Counts() const noexcept { return m_counts; }

    CExpressionNode* RootPlace() noexcept;
    /// Makes room for all nodes but the root. Raises `std::bad_alloc`.
    void AddBlocks();
    /// Takes that room away again; nothing in it must be in use.
    void DropBlocks() noexcept;
    /// The next place, not yet constructed, and its number in its block. `AddBlocks` has made room for as
    /// many as the counts say.
    CExpressionNode* NextBranch(std::uint32_t& slot) noexcept { return Next(*m_branches, slot); }
    CExpressionNode* NextOperand(std::uint32_t& slot) noexcept { return Next(*m_operands, slot); }

    /// Ends the making of nodes: from now on places are only given back.
    void Seal() noexcept { m_places.store(m_counts.branches + m_counts.operands, std::memory_order_relaxed); }
    /// Gives one place back; with the last one the arena goes.
    void Release() noexcept {
        if (m_places.fetch_sub(1, std::memory_order_acq_rel) == 1)
            Destroy();
    }

    /// The blocks that hold nodes, for walks over all: branches stand behind their parents.
    NodeBlock& RootBlock() noexcept;
    NodeBlock* Branches() noexcept { return m_branches; }
    NodeBlock* Operands() noexcept { return m_operands; }

    /// Whether the nodes still hang together, and have the types, as they were parsed.
    bool IsAsParsed() const noexcept { return m_isAsParsed.load(std::memory_order_relaxed); }
    void SetChanged() noexcept {
        if (IsAsParsed())
            m_isAsParsed.store(false, std::memory_order_relaxed);
    }
    /// What has been set since the last calculation of nodes that are as they were parsed: nothing, one node,
    /// or perhaps any of them.
    CExpressionNode* StaleNode() const noexcept { return m_staleNode; }
    bool HasManyStaleNodes() const noexcept { return m_hasManyStale; }
    void NoteStaleNode(CExpressionNode* node) noexcept {
        m_hasManyStale = m_hasManyStale || (m_staleNode != nullptr && m_staleNode != node);
        m_staleNode = node;
    }
    void SetCalculated() noexcept {
        m_staleNode = nullptr;
        m_hasManyStale = false;
    }
    /// Whether a node has a text of its own on the heap.
    bool HasOwnTexts() const noexcept { return m_hasOwnTexts.load(std::memory_order_relaxed); }
    void SetHasOwnTexts() noexcept {
        if (!HasOwnTexts())
            m_hasOwnTexts.store(true, std::memory_order_relaxed);
    }

private:
    NodeArena() noexcept = default;
    ~NodeArena() = default;
    NodeBlock* AddBlock(std::size_t capacity);
    static CExpressionNode* Next(NodeBlock& block, std::uint32_t& slot) noexcept;

    NodeBlock* m_branches = nullptr;
    NodeBlock* m_operands = nullptr;
    char16_t* m_text = nullptr;
    std::size_t m_textLength = 0;
    NodeCounts m_counts;
    CExpressionNode* m_staleNode = nullptr;
    bool m_hasManyStale = true;
    std::atomic<std::size_t> m_places{1};
    std::atomic<bool> m_isAsParsed{true};
    std::atomic<bool> m_hasOwnTexts{false};
};

}  // namespace ExpressionAnalyse
