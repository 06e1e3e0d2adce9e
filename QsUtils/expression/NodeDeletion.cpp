// How nodes end: a whole parse at once, or one subtree whose nodes may be held from elsewhere.
#include <new>
#include <unordered_map>
#include <vector>

#include "QsUtils/expression/CExpressionNode.h"

namespace ExpressionAnalyse {

/// The deletion of one node and of all below it that nobody else holds.
class TreeDeletion {
public:
    void Run(CExpressionNode& root) noexcept;

private:
    void Mark(CExpressionNode& node) noexcept;
    void TakeMarkedApart() noexcept;
    void DropChild(ChildLink& child) noexcept;
    void LetGo(CExpressionNode& node) noexcept;
    static bool Keep(std::vector<CExpressionNode*>& nodes, CExpressionNode* node) noexcept;
    void ReviewShared() noexcept;
    void CollectCircles() noexcept;

    CExpressionNode* m_marked = nullptr;
    std::vector<CExpressionNode*> m_shared;     // each with one hold
    std::vector<CExpressionNode*> m_survivors;  // likewise
};

void CExpressionNode::SetChild(ChildLink& child, IExpressionNode* node) noexcept {
    const ChildLink old = child;
    child = ChildLink(node);
    if (CExpressionNode* own = child.Own(); own != nullptr) {
        ++own->m_holders;
        own->Arena()->SetChanged();
    }
    Arena()->SetChanged();
    if (CExpressionNode* own = old.Own(); own != nullptr)
        own->DropHolder();
}

void CExpressionNode::DropHolder() noexcept {
    --m_holders;
    ReleasePlaceIfUnheld();
}

void CExpressionNode::ReleasePlaceIfUnheld() noexcept {
    if (m_isTakenApart && m_holders == 0)
        Arena()->Release();
}

void CExpressionNode::DeleteTree() noexcept {
    if (!m_isDeleted && !DeleteWholeParse())
        TreeDeletion().Run(*this);
}

/// Frees the parse at once if this is its root and nothing has been moved: the usual end of a formula.
bool CExpressionNode::DeleteWholeParse() noexcept {
    NodeArena* const arena = Arena();
    if (!IsRoot() || m_holders != 0 || !arena->IsAsParsed())
        return false;
    if (arena->HasOwnTexts()) {
        for (NodeBlock* block : {&arena->RootBlock(), arena->Branches(), arena->Operands()})
            for (std::uint32_t i = 0; block != nullptr && i < block->used; ++i)
                block->Nodes()[i].FreeText();
    }
    arena->Destroy();
    return true;
}

void TreeDeletion::Run(CExpressionNode& root) noexcept {
    Mark(root);
    while (m_marked != nullptr || !m_shared.empty()) {
        TakeMarkedApart();
        ReviewShared();
        CollectCircles();
    }
}

/// What the tree shared with other trees, or with itself in a circle, has been held back. The first stays,
/// the second goes: nothing outside of it leads there any more.
void TreeDeletion::ReviewShared() noexcept {
    while (!m_shared.empty()) {
        CExpressionNode* const node = m_shared.back();
        m_shared.pop_back();
        if (node->m_holders > 1 && !node->m_isDeleted && Keep(m_survivors, node))
            continue;
        LetGo(*node);
        TakeMarkedApart();
    }
}

void TreeDeletion::Mark(CExpressionNode& node) noexcept {
    node.Arena()->SetChanged();
    node.m_isDeleted = true;
    node.m_nextToDelete = m_marked;
    m_marked = &node;
}

/// The marked nodes are linked through themselves: no memory is needed to give memory back.
void TreeDeletion::TakeMarkedApart() noexcept {
    while (m_marked != nullptr) {
        CExpressionNode& node = *m_marked;
        m_marked = node.m_nextToDelete;
        DropChild(node.m_pLeft);
        DropChild(node.m_pRight);
        node.FreeText();
        node.m_isTakenApart = true;
        node.ReleasePlaceIfUnheld();
    }
}

void TreeDeletion::DropChild(ChildLink& child) noexcept {
    const ChildLink old = child;
    child = ChildLink();
    CExpressionNode* const own = old.Own();
    if (own == nullptr)
        delete old.Get();  // a host's own node, or none
    else if (own->m_isDeleted || own->m_holders == 1 || !Keep(m_shared, own))
        LetGo(*own);
}

/// Gives up one hold on a node; one that nobody else holds is deleted.
void TreeDeletion::LetGo(CExpressionNode& node) noexcept {
    --node.m_holders;
    if (node.m_isDeleted)
        node.ReleasePlaceIfUnheld();
    else if (node.m_holders == 0)
        Mark(node);
}

/// Takes over the hold on a node; false when there is no memory for it.
bool TreeDeletion::Keep(std::vector<CExpressionNode*>& nodes, CExpressionNode* node) noexcept {
    try {
        nodes.push_back(node);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// Deletes those survivors, and what hangs below them, that hold each other and that nobody else holds.
void TreeDeletion::CollectCircles() noexcept {
    if (m_survivors.empty())
        return;
    try {
        std::unordered_map<CExpressionNode*, std::uint32_t> inner;  // holds from within, by node
        std::vector<CExpressionNode*> pending;
        const auto visit = [&](CExpressionNode* node) {
            if (node == nullptr || node->m_isDeleted)
                return;
            if (++inner[node] == 1)
                pending.push_back(node);
        };
        for (CExpressionNode* node : m_survivors)
            visit(node);
        while (!pending.empty()) {
            CExpressionNode* const node = pending.back();
            pending.pop_back();
            visit(node->m_pLeft.Own());
            visit(node->m_pRight.Own());
        }
        for (const auto& [node, holds] : inner)
            if (node->m_holders > holds)
                pending.push_back(node);
        // What is held from outside keeps all below it.
        while (!pending.empty()) {
            CExpressionNode* const node = pending.back();
            pending.pop_back();
            if (node == nullptr || inner.erase(node) == 0)
                continue;
            pending.push_back(node->m_pLeft.Own());
            pending.push_back(node->m_pRight.Own());
        }
        for (const auto& [node, holds] : inner)
            Mark(*node);
    } catch (const std::bad_alloc&) {
        // A circle that can't be looked for stays in memory, whole.
    }
    for (CExpressionNode* node : m_survivors)
        LetGo(*node);
    m_survivors.clear();
}

}  // namespace ExpressionAnalyse
