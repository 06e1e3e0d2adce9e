#include "QsUtils/expression/CExpressionNode.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <typeinfo>

#include "QsUtils/expression/TreeWalk.h"
#include "QsUtils/text/Numbers.h"

namespace ExpressionAnalyse {

ChildLink::ChildLink(IExpressionNode* node) noexcept : m_address(reinterpret_cast<std::uintptr_t>(node)) {
    if (node != nullptr && typeid(*node) != typeid(CExpressionNode))
        m_address |= HostBit;
}

/// A text of a node's own, with room to be set again.
struct CExpressionNode::OwnText {
    std::size_t capacity;  // code units

    char16_t* Units() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
    static OwnText* Of(const char16_t* units) noexcept {
        return reinterpret_cast<OwnText*>(const_cast<char16_t*>(units)) - 1;
    }
};

void CExpressionNode::AssignText(std::u16string_view text) {
    constexpr std::size_t LeastCapacity = 28;
    if (!m_hasOwnText || OwnText::Of(m_text)->capacity < text.size()) {
        const std::size_t capacity = std::max(text.size(), LeastCapacity);
        void* const memory = ::operator new(sizeof(OwnText) + capacity * sizeof(char16_t));
        FreeText();
        m_text = (new (memory) OwnText{capacity})->Units();
        m_hasOwnText = true;
        Arena()->SetHasOwnTexts();
    }
    std::copy(text.begin(), text.end(), const_cast<char16_t*>(m_text));
    m_length = static_cast<std::uint32_t>(text.size());
    m_operation = Operation::Unread;
    if (m_nNodeType != eNodeType_Operand)
        Arena()->SetChanged();  // the operation is no longer the one parsed
    ForgetValue();
}

/// Has the node calculated afresh the next time; until then the last value stands.
void CExpressionNode::ForgetValue() noexcept {
    m_isValueKnown = false;
    if (NodeArena* const arena = Arena(); arena->IsAsParsed())
        arena->NoteStaleNode(this);
}

void CExpressionNode::FreeText() noexcept {
    if (m_hasOwnText)
        ::operator delete(static_cast<void*>(OwnText::Of(m_text)));
    m_hasOwnText = false;
    m_length = 0;
}

void CExpressionNode::SetNodeText(const CString& text) {
    Unfolded().AssignText(text.View());
}

void CExpressionNode::SetLeafText(const CString& text) {
    if (IsLeaf())
        AssignText(text.View());
}

void CExpressionNode::SetNegative(bool negative) {
    Unfolded().m_bNegative = negative;
    ForgetValue();
}

void CExpressionNode::SetNodeType(std::int32_t type) {
    Unfolded().m_nNodeType = type;
    Arena()->SetChanged();
    ForgetValue();
}

bool CExpressionNode::IsNumber() {
    const std::u16string_view text = Unfolded().Text();
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](char16_t unit) { return unit == u'.' || QsText::IsDigit(unit); });
}

double CExpressionNode::CalcFrom(double left, double right) noexcept {
    switch (m_nNodeType) {
        case eNodeType_Operand:
            if (m_isValueKnown)
                return m_dValue;
            m_dValue = OperandValue(Text());
            m_isValueKnown = true;
            break;
        case eNodeType_Bracket:
            m_dValue = left;
            break;
        case eNodeType_Operator:
        case eNodeType_Function:
            if (m_operation == Operation::Unread)
                m_operation = OperationOf(Text());
            m_dValue = m_nNodeType == eNodeType_Operator ? OperatorValue(m_operation, left, right, m_dValue)
                                                         : FunctionValue(m_operation, left, m_dValue);
            break;
        default:
            break;  // a type that a host made up: the value stays
    }
    if (m_bNegative)
        m_dValue *= -1.0;
    return m_dValue;
}

/// The value of a child in a tree as it was parsed; 0 for none.
double CExpressionNode::ParsedValue(const ChildLink& link) noexcept {
    const CExpressionNode* const child = link.Parsed();
    return child == nullptr ? 0.0 : child->m_dValue;
}

/// `CalcFrom` for a branch of a tree as it was parsed, whose operation is known.
inline void CExpressionNode::CalcParsed() noexcept {
    switch (m_operation) {
        case Operation::Add:
            m_dValue = m_pRight.Parsed()->m_dValue + m_pLeft.Parsed()->m_dValue;
            break;
        case Operation::Subtract:
            m_dValue = m_pLeft.Parsed()->m_dValue - m_pRight.Parsed()->m_dValue;
            break;
        case Operation::Multiply:
            m_dValue = m_pRight.Parsed()->m_dValue * m_pLeft.Parsed()->m_dValue;
            break;
        default:
            CalcFrom(ParsedValue(m_pLeft), ParsedValue(m_pRight));
            return;
    }
    if (m_bNegative)
        m_dValue *= -1.0;
}

/// Calculates the whole parse, the branches from the last to the root: children stand behind their parents.
void CExpressionNode::CalcAllParsed() noexcept {
    NodeArena& arena = *Arena();
    if (NodeBlock* const operands = arena.Operands(); operands != nullptr) {
        for (std::uint32_t i = 0; i < operands->used; ++i)
            operands->Nodes()[i].CalcFrom(0.0, 0.0);
    }
    if (NodeBlock* const branches = arena.Branches(); branches != nullptr) {
        CExpressionNode* const first = branches->Nodes();
        for (CExpressionNode* node = first + branches->used; node-- != first;)
            node->CalcParsed();
    }
    CalcParsed();
}

/// Calculates one node afresh and then those above it; all others have the values that they would get.
void CExpressionNode::CalcUpFrom(CExpressionNode* node) noexcept {
    double value = node->CalcFrom(ParsedValue(node->m_pLeft), ParsedValue(node->m_pRight));
    while (node != this) {
        CExpressionNode* const parent = node->m_parent;
        const bool isLeft = parent->m_pLeft.Parsed() == node;
        const double other = ParsedValue(isLeft ? parent->m_pRight : parent->m_pLeft);
        value = isLeft ? parent->CalcFrom(value, other) : parent->CalcFrom(other, value);
        node = parent;
    }
}

double CExpressionNode::CalcValue() {
    if (m_isFolded) {
        m_isCalculated = true;
        return m_dValue;
    }
    NodeArena& arena = *Arena();
    if (!IsRoot() || !arena.IsAsParsed())
        return CalculateTree(*this);
    if (arena.HasManyStaleNodes())
        CalcAllParsed();
    else if (arena.StaleNode() != nullptr)
        CalcUpFrom(arena.StaleNode());
    arena.SetCalculated();
    return m_dValue;
}

CString CExpressionNode::ToString() {
    std::u16string text;
    AppendTreeText(*this, text);
    return CString(std::move(text));
}

void CExpressionNode::AppendGroupText(std::u16string& text) const {
    if (m_nBracketType == eBracketType_None)
        return;
    constexpr std::u16string_view Opening = u"([{";
    constexpr std::u16string_view Closing = u")]}";
    const bool isKnown = m_nBracketType >= eBracketType_Round && m_nBracketType <= eBracketType_Curly;
    const auto kind = static_cast<std::size_t>(m_nBracketType - eBracketType_Round);
    if (isKnown)
        text += Opening[kind];
    text += Text();
    if (isKnown)
        text += Closing[kind];
}

}  // namespace ExpressionAnalyse
