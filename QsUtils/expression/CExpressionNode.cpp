#include "QsUtils/expression/CExpressionNode.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <typeinfo>

#include "QsUtils/expression/TreeWalk.h"
#include "QsUtils/text/Numbers.h"

namespace ExpressionAnalyse {

namespace {

/// Below this magnitude a divisor counts as zero.
constexpr double LeastDivisor = 1e-7;

struct NamedOperation {
    std::u16string_view name;
    Operation operation;
};

constexpr NamedOperation NamedOperations[] = {
    {u"+", Operation::Add},    {u"-", Operation::Subtract},    {u"*", Operation::Multiply},
    {u"/", Operation::Divide}, {u"^", Operation::ExclusiveOr}, {u"fabs", Operation::Fabs},
    {u"sin", Operation::Sin},  {u"cos", Operation::Cos},       {u"tan", Operation::Tan},
    {u"ln", Operation::Ln},    {u"sqrt", Operation::Sqrt},     {u"exp", Operation::Exp},
};

constexpr std::size_t LongestName = 4;

/// A double as a 32-bit int, truncated; one that doesn't fit gives the smallest int, as the processor does.
std::int32_t Truncated(double value) {
    constexpr double Beyond = 2147483648.0;
    return value > -Beyond - 1 && value < Beyond ? static_cast<std::int32_t>(value) : INT32_MIN;
}

double OperatorValue(Operation operation, double a, double b, double unchanged) {
    switch (operation) {
        case Operation::Add:
            return b + a;
        case Operation::Subtract:
            return a - b;
        case Operation::Multiply:
            return b * a;
        case Operation::Divide:
            return std::fabs(b) <= LeastDivisor ? 0.0 : a / b;
        case Operation::ExclusiveOr:
            return Truncated(a) ^ Truncated(b);
        default:
            return unchanged;
    }
}

double FunctionValue(Operation operation, double a, double unchanged) {
    switch (operation) {
        case Operation::Fabs:
            return std::fabs(a);
        case Operation::Sin:
            return std::sin(a);
        case Operation::Cos:
            return std::cos(a);
        case Operation::Tan:
            return std::tan(a);
        case Operation::Ln:
            return std::log(a);
        case Operation::Sqrt:
            return std::sqrt(a);
        case Operation::Exp:
            return std::exp(a);
        default:
            return unchanged;
    }
}

}  // namespace

Operation OperationOf(std::u16string_view text) noexcept {
    if (text.empty() || text.size() > LongestName)
        return Operation::Other;
    char16_t lower[LongestName];
    std::transform(text.begin(), text.end(), lower, [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
    });
    for (const NamedOperation& named : NamedOperations)
        if (named.name == std::u16string_view(lower, text.size()))
            return named.operation;
    return Operation::Other;
}

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
    m_isValueKnown = false;
}

void CExpressionNode::FreeText() noexcept {
    if (m_hasOwnText)
        ::operator delete(static_cast<void*>(OwnText::Of(m_text)));
    m_hasOwnText = false;
    m_length = 0;
}

void CExpressionNode::SetNodeText(const CString& text) {
    AssignText(text.View());
}

void CExpressionNode::SetLeafText(const CString& text) {
    if (IsLeaf())
        AssignText(text.View());
}

void CExpressionNode::SetNegative(bool negative) {
    m_bNegative = negative;
    m_isValueKnown = false;
}

void CExpressionNode::SetNodeType(std::int32_t type) {
    m_nNodeType = type;
    m_isValueKnown = false;
}

bool CExpressionNode::IsNumber() {
    const std::u16string_view text = Text();
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](char16_t unit) { return unit == u'.' || QsText::IsDigit(unit); });
}

double CExpressionNode::OperandValue() const noexcept {
    const std::u16string_view text = Text();
    std::size_t sign = text.find(u'%');
    if (sign != std::u16string_view::npos)
        return QsText::ReadDouble(text.substr(0, sign)) / 100.0;
    sign = text.find(u'‰');
    if (sign != std::u16string_view::npos)
        return QsText::ReadDouble(text.substr(0, sign)) / 1000.0;
    return QsText::ReadDouble(text);
}

double CExpressionNode::CalcFrom(double left, double right) noexcept {
    if (m_nNodeType == eNodeType_Operand) {
        if (m_isValueKnown)
            return m_dValue;
        m_dValue = OperandValue();
        m_isValueKnown = true;
    } else if (m_nNodeType == eNodeType_Bracket) {
        m_dValue = left;
    } else {
        if (m_operation == Operation::Unread)
            m_operation = OperationOf(Text());
        if (m_nNodeType == eNodeType_Operator)
            m_dValue = OperatorValue(m_operation, left, right, m_dValue);
        else if (m_nNodeType == eNodeType_Function)
            m_dValue = FunctionValue(m_operation, left, m_dValue);
    }
    if (m_bNegative)
        m_dValue *= -1.0;
    return m_dValue;
}

/// Whether the whole parse is this node's tree, so that a sweep over the places meets each node once.
bool CExpressionNode::CanSweep() const noexcept {
    return m_isRoot && const_cast<CExpressionNode*>(this)->Arena()->IsAsParsed();
}

/// Calculates all nodes of the parse from the last to the first: children stand behind their parents.
double CExpressionNode::Sweep() noexcept {
    for (NodeBlock* block = Arena()->NewestBlock(); block != nullptr; block = block->older) {
        CExpressionNode* const first = block->Nodes();
        for (CExpressionNode* node = first + block->used; node-- != first;) {
            const CExpressionNode* const left = node->m_pLeft.Own();
            const CExpressionNode* const right = node->m_pRight.Own();
            node->CalcFrom(left == nullptr ? 0.0 : left->m_dValue, right == nullptr ? 0.0 : right->m_dValue);
        }
    }
    return m_dValue;
}

double CExpressionNode::CalcValue() {
    return CanSweep() ? Sweep() : CalculateTree(*this);
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
