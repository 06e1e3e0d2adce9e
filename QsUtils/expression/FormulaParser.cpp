#include "QsUtils/expression/FormulaParser.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "QsUtils/expression/CExpressionNode.h"
#include "QsUtils/expression/SplitFinder.h"

namespace ExpressionAnalyse {

namespace {

struct FunctionName {
    std::u16string_view name;
    Operation operation;
};

constexpr std::array<FunctionName, 7> FunctionNames = {{{u"fabs", Operation::Fabs},
                                                        {u"sin", Operation::Sin},
                                                        {u"cos", Operation::Cos},
                                                        {u"tan", Operation::Tan},
                                                        {u"ln", Operation::Ln},
                                                        {u"sqrt", Operation::Sqrt},
                                                        {u"exp", Operation::Exp}}};

constexpr char16_t LowerCase(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

bool IsSign(char16_t unit) {
    return unit == u'+' || unit == u'-';
}

enum class Side : std::uint8_t { Root, Left, Right };

/// A stretch that is still to be parsed, and where its node goes.
struct Task {
    Stretch stretch;
    CExpressionNode* parent;
    Side side;
    bool maySplitAtSum;      // false where it is known that there is no such operator
    bool maySplitAtProduct;  // likewise
    bool isLowerCase;        // within a function, whose text is in lower case
};

class Parser {
public:
    explicit Parser(FormulaText& text);
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;
    ~Parser();

    /// The root, or null when an operand is missing.
    CExpressionNode* Parse();

private:
    bool ParseStretch(Task task);
    bool SplitAt(Task& task, std::uint32_t mark, bool isSum);
    bool ParsePrimary(Task& task, bool& isLeaf);
    void EnterBracket(Task& task, std::int32_t bracket, bool negative);
    void EnterFunction(Task& task, const FunctionName& function, bool negative);
    std::int32_t BracketOf(const Stretch& stretch) const;
    const FunctionName* FunctionOf(const Stretch& stretch) const;
    CExpressionNode* MakeNode(const Task& task, std::int32_t type, std::u16string_view text, bool negative);

    FormulaText& m_text;
    const Mark* m_marks;
    SplitFinder m_splits;
    NodeArena* m_arena;
    char16_t* m_units;
    CExpressionNode* m_root = nullptr;
    std::vector<Task> m_tasks;
};

Parser::Parser(FormulaText& text) : m_text(text), m_marks(text.Marks()), m_splits(text) {
    // Each operator makes two operands of one, and each pair of brackets at most one group. Only functions
    // need more places than that.
    const std::size_t operators = text.MarkCount() - 2 * std::size_t{text.OpenBracketCount()};
    const std::size_t places = 2 * operators + 1 + text.OpenBracketCount();
    std::unique_ptr<char16_t[]> heapUnits = text.ReleaseUnits();
    const bool isOnHeap = heapUnits != nullptr;
    m_units = text.Units();
    m_arena = NodeArena::Create(places, isOnHeap ? 0 : text.Length());
    if (isOnHeap) {
        m_arena->AdoptText(std::move(heapUnits));
    } else {
        std::memcpy(m_arena->Text(), m_units, text.Length() * sizeof(char16_t));
        m_units = m_arena->Text();
    }
}

Parser::~Parser() {
    if (m_arena != nullptr)
        m_arena->Destroy();
}

CExpressionNode* Parser::Parse() {
    m_tasks.push_back({{0, m_text.Length(), 0, m_text.MarkCount()}, nullptr, Side::Root, true, true, false});
    while (!m_tasks.empty()) {
        const Task task = m_tasks.back();
        m_tasks.pop_back();
        if (!ParseStretch(task))
            return nullptr;
    }
    m_root->SetRoot();
    m_arena->Seal();
    m_arena = nullptr;
    return m_root;
}

/// Parses a stretch down to its first leaf, leaving the other halves of its splits as tasks. False when an
/// operand is missing.
bool Parser::ParseStretch(Task task) {
    for (;;) {
        if (task.stretch.begin == task.stretch.end)
            return true;  // nothing inside of a bracket or behind a function's name
        std::uint32_t mark = task.maySplitAtSum ? m_splits.FindSum(task.stretch) : Mark::None;
        const bool isSum = mark != Mark::None;
        if (!isSum && task.maySplitAtProduct)
            mark = m_splits.FindProduct(task.stretch);
        if (mark != Mark::None) {
            if (!SplitAt(task, mark, isSum))
                return false;
            continue;
        }
        bool isLeaf = false;
        if (!ParsePrimary(task, isLeaf))
            return false;
        if (isLeaf)
            return true;
    }
}

/// Makes an operator's node and goes on with one side; the other becomes a task. Sums lean to the right and
/// products to the left, so that going on with the other side keeps the tasks few.
bool Parser::SplitAt(Task& task, std::uint32_t mark, bool isSum) {
    const Stretch whole = task.stretch;
    const std::uint32_t position = m_marks[mark].position;
    if (position + 1 == whole.end || position == whole.begin)
        return false;
    static constexpr std::u16string_view Operators = u"+-*/";
    const char16_t unit = m_units[position];
    // A power is a multiplication here.
    const std::size_t which = Operators.find(unit == u'^' ? u'*' : unit);
    CExpressionNode* const node = MakeNode(task, eNodeType_Operator, Operators.substr(which, 1), false);
    node->SetParsedOperation(static_cast<Operation>(static_cast<std::size_t>(Operation::Add) + which));

    Task left = task;
    left.stretch.end = position;
    left.stretch.endMark = mark;
    left.parent = node;
    left.side = Side::Left;
    left.maySplitAtSum = false;  // the first sum operator of both is the one at hand, or there is none
    left.maySplitAtProduct = true;
    Task right = task;
    right.stretch.begin = position + 1;
    right.stretch.firstMark = mark + 1;
    right.parent = node;
    right.side = Side::Right;
    right.maySplitAtSum = true;
    right.maySplitAtProduct = true;
    m_tasks.push_back(isSum ? right : left);
    task = isSum ? left : right;
    return true;
}

/// Makes the node of a stretch without a split and narrows the task to what is inside of it, if anything.
bool Parser::ParsePrimary(Task& task, bool& isLeaf) {
    Stretch& stretch = task.stretch;
    const bool hasSign = IsSign(m_units[stretch.begin]);
    const bool negative = m_units[stretch.begin] == u'-';
    if (hasSign) {
        ++stretch.begin;
        ++stretch.firstMark;
        if (stretch.begin == stretch.end)
            return false;
    }
    if (const std::int32_t bracket = BracketOf(stretch); bracket != eBracketType_None) {
        EnterBracket(task, bracket, negative);
    } else if (const FunctionName* function = FunctionOf(stretch); function != nullptr) {
        EnterFunction(task, *function, negative);
    } else {
        MakeNode(task, eNodeType_Operand, {m_units + stretch.begin, stretch.end - stretch.begin}, negative);
        isLeaf = true;
    }
    return true;
}

void Parser::EnterBracket(Task& task, std::int32_t bracket, bool negative) {
    CExpressionNode* const node = MakeNode(task, eNodeType_Bracket, u"", negative);
    node->SetParsedBracket(bracket);
    ++task.stretch.begin;
    ++task.stretch.firstMark;
    --task.stretch.end;
    --task.stretch.endMark;
    task.parent = node;
    task.side = Side::Left;
    task.maySplitAtSum = true;
    // A product operator asks for one more open bracket inside than outside, where none was found.
    task.maySplitAtProduct = false;
}

void Parser::EnterFunction(Task& task, const FunctionName& function, bool negative) {
    CExpressionNode* const node = MakeNode(task, eNodeType_Function, function.name, negative);
    node->SetParsedOperation(function.operation);
    task.stretch.begin += static_cast<std::uint32_t>(function.name.size());
    if (!task.isLowerCase)
        std::transform(m_units + task.stretch.begin, m_units + task.stretch.end, m_units + task.stretch.begin, LowerCase);
    task.parent = node;
    task.side = Side::Left;
    task.isLowerCase = true;
    // A name opens no bracket: what didn't split with it doesn't split without it.
    task.maySplitAtSum = false;
    task.maySplitAtProduct = false;
}

/// The kind of bracket that encloses a stretch: its first and last units, whatever is between them.
std::int32_t Parser::BracketOf(const Stretch& stretch) const {
    const char16_t last = m_units[stretch.end - 1];
    switch (m_units[stretch.begin]) {
        case u'(':
            return last == u')' ? eBracketType_Round : eBracketType_None;
        case u'[':
            return last == u']' ? eBracketType_Square : eBracketType_None;
        case u'{':
            return last == u'}' ? eBracketType_Curly : eBracketType_None;
        default:
            return eBracketType_None;
    }
}

/// The function that a stretch begins with, in any case and with no regard to what follows the name.
const FunctionName* Parser::FunctionOf(const Stretch& stretch) const {
    const char16_t first = LowerCase(m_units[stretch.begin]);
    if (first < u'a' || first > u'z')
        return nullptr;
    const std::u16string_view text(m_units + stretch.begin, stretch.end - stretch.begin);
    for (const FunctionName& function : FunctionNames) {
        const std::u16string_view name = function.name;
        if (text.size() >= name.size() && std::equal(name.begin(), name.end(), text.begin(), [](char16_t a, char16_t b) {
                return a == LowerCase(b);
            }))
            return &function;
    }
    return nullptr;
}

CExpressionNode* Parser::MakeNode(const Task& task, std::int32_t type, std::u16string_view text, bool negative) {
    std::uint32_t slot = 0;
    void* const place = m_arena->Allocate(slot);
    auto* const node = new (place) CExpressionNode(slot, type, text, negative);
    if (task.side == Side::Left)
        task.parent->AttachLeft(node);
    else if (task.side == Side::Right)
        task.parent->AttachRight(node);
    else
        m_root = node;
    return node;
}

}  // namespace

CExpressionNode* ParseFormula(std::u16string_view formula, std::int32_t& error) {
    FormulaText text(formula);
    error = text.BracketError();
    if (error != ParseError_None || text.Length() == 0)
        return nullptr;
    CExpressionNode* const root = Parser(text).Parse();
    error = root == nullptr ? ParseError_OperandMissing : ParseError_None;
    return root;
}

}  // namespace ExpressionAnalyse
