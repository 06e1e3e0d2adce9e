// The memory of the nodes of one parse.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace ExpressionAnalyse {

class CExpressionNode;
class NodeArena;

/// A run of places for nodes, followed by them. A node finds its block by its own place in it.
struct NodeBlock {
    NodeArena* arena;
    NodeBlock* older;
    std::uint32_t used;
    std::uint32_t capacity;

    CExpressionNode* Nodes() noexcept;
    static NodeBlock* OfNodes(CExpressionNode* nodes) noexcept;
};

/// Holds the nodes of one parse and the text that their operands lie in. A host may delete any node by itself
/// and keep the others, so the arena goes with the last of its places: a place is free again when its node
/// has been deleted and no other node points to it. Such subtrees may belong to different threads.
class NodeArena {
public:
    /// An arena with `capacity` places at hand and room for `units` code units of text; more places are added
    /// as they are needed. Raises `std::bad_alloc`.
    static NodeArena* Create(std::size_t capacity, std::size_t units);
    /// Frees all places, whatever is in them.
    void Destroy() noexcept;

    /// The next place, not yet constructed, and its number in its block.
    CExpressionNode* Allocate(std::uint32_t& slot) {
        if (m_newest->used == m_newest->capacity)
            AddBlock();
        slot = m_newest->used++;
        ++m_placesMade;
        return Place(slot);
    }
    /// Ends the making of nodes: from now on places are only given back.
    void Seal() noexcept { m_places.store(m_placesMade, std::memory_order_relaxed); }
    /// Gives one place back; with the last one the arena goes.
    void Release() noexcept {
        if (m_places.fetch_sub(1, std::memory_order_acq_rel) == 1)
            Destroy();
    }

    /// Where the text is kept: in the arena, or in an array of its own that it takes over.
    char16_t* Text() noexcept { return m_text; }
    void AdoptText(std::unique_ptr<char16_t[]> text) noexcept { m_adoptedText = std::move(text); }

    NodeBlock* NewestBlock() noexcept { return m_newest; }

    /// Whether the nodes still hang together as they were parsed. Then each node stands behind its parent.
    bool IsAsParsed() const noexcept { return m_isAsParsed.load(std::memory_order_relaxed); }
    void SetChanged() noexcept {
        if (IsAsParsed())
            m_isAsParsed.store(false, std::memory_order_relaxed);
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
    void AddBlock();
    CExpressionNode* Place(std::uint32_t slot) noexcept;

    NodeBlock* m_newest = nullptr;
    char16_t* m_text = nullptr;
    std::unique_ptr<char16_t[]> m_adoptedText;
    std::uint64_t m_placesMade = 0;
    std::atomic<std::uint64_t> m_places{0};
    std::atomic<bool> m_isAsParsed{true};
    std::atomic<bool> m_hasOwnTexts{false};
};

}  // namespace ExpressionAnalyse
