#include "QsUtils/expression/TreeWalk.h"

#include <vector>

#include "QsUtils/expression/CExpressionNode.h"

namespace ExpressionAnalyse {

namespace {

/// The nodes from the root to the one in hand. Each is marked as long as it is here, so that a node below
/// itself is met as no child; the marks go also when a host's node raises something on the way.
template <typename Step>
class Path {
public:
    Path() = default;
    Path(const Path&) = delete;
    Path& operator=(const Path&) = delete;
    ~Path() {
        for (const Step& step : m_steps)
            step.node->SetOnPath(false);
    }

    bool IsEmpty() const noexcept { return m_steps.empty(); }
    Step& Top() noexcept { return m_steps.back(); }
    /// Steps down to a node, unless the path leads through it already.
    bool Enter(CExpressionNode& node) {
        if (node.IsOnPath())
            return false;
        m_steps.push_back(Step{&node.Unfolded()});
        node.SetOnPath(true);
        return true;
    }
    void Leave() noexcept {
        m_steps.back().node->SetOnPath(false);
        m_steps.pop_back();
    }

private:
    std::vector<Step> m_steps;
};

enum class Stage { AtNode, BehindLeft, BehindRight };

struct CalcStep {
    CExpressionNode* node;
    Stage stage = Stage::AtNode;
    double left = 0.0;
};

struct TextStep {
    CExpressionNode* node;
    Stage stage = Stage::AtNode;
};

}  // namespace

double CalculateTree(CExpressionNode& root) {
    Path<CalcStep> path;
    path.Enter(root);
    double value = 0.0;  // of the child calculated last, or 0 for none
    const auto calculateChild = [&](const ChildLink& link) {
        value = 0.0;
        IExpressionNode* const child = link.Living();
        if (CExpressionNode* own = link.Own(); child != nullptr && own != nullptr)
            path.Enter(*own);
        else if (child != nullptr)
            value = child->CalcValue();
    };
    while (!path.IsEmpty()) {
        CalcStep& step = path.Top();
        CExpressionNode& node = *step.node;
        if (step.stage == Stage::AtNode) {
            step.stage = Stage::BehindLeft;
            calculateChild(node.Left());
        } else if (step.stage == Stage::BehindLeft) {
            step.left = value;
            step.stage = Stage::BehindRight;
            calculateChild(node.Right());
        } else {
            value = node.CalcFrom(step.left, value);
            path.Leave();
        }
    }
    return value;
}

void AppendTreeText(CExpressionNode& root, std::u16string& text) {
    Path<TextStep> path;
    path.Enter(root);
    const auto appendChild = [&](const ChildLink& link) {
        IExpressionNode* const child = link.Living();
        if (CExpressionNode* own = link.Own(); child != nullptr && own != nullptr)
            path.Enter(*own);
        else if (child != nullptr)
            text += child->ToString().View();
    };
    while (!path.IsEmpty()) {
        TextStep& step = path.Top();
        CExpressionNode& node = *step.node;
        if (step.stage == Stage::AtNode) {
            step.stage = Stage::BehindLeft;
            appendChild(node.Left());
        } else if (step.stage == Stage::BehindLeft) {
            step.stage = Stage::BehindRight;
            node.AppendGroupText(text);
            appendChild(node.Right());
        } else {
            path.Leave();
        }
    }
}

}  // namespace ExpressionAnalyse
