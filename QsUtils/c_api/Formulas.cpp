#include "QsUtils/c_api/Formulas.h"

#include <list>
#include <map>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"
#include "QsUtils/expression/ExpressionAnalyse.h"
#include "QsUtils/frame/IQsUtils.h"

using ExpressionAnalyse::IExpressionNode;
using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::TextOf;

namespace {

QsExpressionNode* HandleOf(IExpressionNode* node) {
    return reinterpret_cast<QsExpressionNode*>(node);
}

IExpressionNode* NodeOf(QsExpressionNode* handle) {
    return reinterpret_cast<IExpressionNode*>(handle);
}

IExpressionNode& Node(QsExpressionNode* handle) {
    return *NodeOf(&Checked(handle));
}

}  // namespace

// --- Variables

QsStatus QsIsVariable(const QsChar* text, std::int32_t length, std::int32_t* holdsVariable) {
    return Call([&] { *holdsVariable = IQsUtils::IsVariable(TextOf(text, length)); }, holdsVariable);
}

QsStatus QsFindVariable(const QsChar* text, std::int32_t length, std::int32_t unique, QsTextList* variables,
                        std::int32_t* found) {
    return Call(
        [&] {
            // What the list holds counts with and without `unique`.
            auto all = QsCApi::Copied<std::list<CString>>(Checked(variables));
            const bool isFound = IQsUtils::FindVariable(TextOf(text, length), all, unique != 0);
            QsCApi::Replace(*variables, all);
            *found = isFound;
        },
        found);
}

QsStatus QsFindVariablePlaces(const QsChar* text, std::int32_t length, QsIndexMap* variables,
                              std::int32_t* found) {
    return Call([&] { *found = IQsUtils::FindVariable(TextOf(text, length), Checked(variables).texts); },
                found);
}

QsStatus QsIsIncludeQ(const QsChar* text, std::int32_t length, std::int32_t* isIncluded) {
    return Call([&] { *isIncluded = IQsUtils::IsIncludeQ(TextOf(text, length)); }, isIncluded);
}

QsStatus QsReplaceQWithProjectAmount(const QsChar* text, std::int32_t length, const QsChar* amount,
                                     std::int32_t amountLength, QsString** result) {
    return Call(
        [&] {
            CString changed = TextOf(text, length);
            IQsUtils::ReplaceQWithProjectAmount(changed, TextOf(amount, amountLength));
            Give(result, std::move(changed));
        },
        result);
}

QsStatus QsReplaceVarString(const QsChar* text, std::int32_t length, const QsChar* variable,
                            std::int32_t variableLength, const QsChar* value, std::int32_t valueLength,
                            QsString** result) {
    return Call(
        [&] {
            CString changed = TextOf(text, length);
            IQsUtils::ReplaceVarString(changed, TextOf(variable, variableLength), TextOf(value, valueLength));
            Give(result, std::move(changed));
        },
        result);
}

// --- Trees

QsStatus QsAnalyseExpression(const QsChar* text, std::int32_t length, QsExpressionNode** root,
                             std::int32_t* error) {
    return Call(
        [&] {
            *root = HandleOf(
                ExpressionAnalyse::GetExpressionAnalyser()->AnalyseExpression(TextOf(text, length), error));
        },
        root, error);
}

QsStatus QsExpressionToString(QsExpressionNode* root, QsString** result) {
    return Call(
        [&] { Give(result, ExpressionAnalyse::GetExpressionAnalyser()->ExpressionToString(NodeOf(root))); },
        result);
}

void QsExpressionNode_Free(QsExpressionNode* node) {
    delete NodeOf(node);
}

QsStatus QsExpressionNode_GetLeftNode(QsExpressionNode* node, QsExpressionNode** child) {
    return Call([&] { *child = HandleOf(Node(node).GetLeftNode()); }, child);
}

QsStatus QsExpressionNode_GetRightNode(QsExpressionNode* node, QsExpressionNode** child) {
    return Call([&] { *child = HandleOf(Node(node).GetRightNode()); }, child);
}

QsStatus QsExpressionNode_SetLeftNode(QsExpressionNode* node, QsExpressionNode* child) {
    return Call([&] { Node(node).SetLeftNode(NodeOf(child)); });
}

QsStatus QsExpressionNode_SetRightNode(QsExpressionNode* node, QsExpressionNode* child) {
    return Call([&] { Node(node).SetRightNode(NodeOf(child)); });
}

QsStatus QsExpressionNode_CalcValue(QsExpressionNode* node, double* value) {
    return Call([&] { *value = Node(node).CalcValue(); }, value);
}

QsStatus QsExpressionNode_ToString(QsExpressionNode* node, QsString** result) {
    return Call([&] { Give(result, Node(node).ToString()); }, result);
}

QsStatus QsExpressionNode_GetNodeText(QsExpressionNode* node, QsString** text) {
    return Call([&] { Give(text, Node(node).GetNodeText()); }, text);
}

QsStatus QsExpressionNode_SetNodeText(QsExpressionNode* node, const QsChar* text, std::int32_t length) {
    return Call([&] { Node(node).SetNodeText(TextOf(text, length)); });
}

QsStatus QsExpressionNode_SetLeafText(QsExpressionNode* node, const QsChar* text, std::int32_t length) {
    return Call([&] { Node(node).SetLeafText(TextOf(text, length)); });
}

QsStatus QsExpressionNode_IsLeaf(QsExpressionNode* node, std::int32_t* isLeaf) {
    return Call([&] { *isLeaf = Node(node).IsLeaf(); }, isLeaf);
}

QsStatus QsExpressionNode_IsBracketType(QsExpressionNode* node, std::int32_t kind, std::int32_t* isOfKind) {
    return Call([&] { *isOfKind = Node(node).IsBracketType(kind); }, isOfKind);
}

QsStatus QsExpressionNode_SetBracketType(QsExpressionNode* node, std::int32_t kind) {
    return Call([&] { Node(node).SetBracketType(kind); });
}

QsStatus QsExpressionNode_IsNodeType(QsExpressionNode* node, std::int32_t type, std::int32_t* isOfType) {
    return Call([&] { *isOfType = Node(node).IsNodeType(type); }, isOfType);
}

QsStatus QsExpressionNode_SetNodeType(QsExpressionNode* node, std::int32_t type) {
    return Call([&] { Node(node).SetNodeType(type); });
}

QsStatus QsExpressionNode_IsNegative(QsExpressionNode* node, std::int32_t* isNegative) {
    return Call([&] { *isNegative = Node(node).IsNegative(); }, isNegative);
}

QsStatus QsExpressionNode_SetNegative(QsExpressionNode* node, std::int32_t isNegative) {
    return Call([&] { Node(node).SetNegative(isNegative != 0); });
}

QsStatus QsExpressionNode_IsNumber(QsExpressionNode* node, std::int32_t* isNumber) {
    return Call([&] { *isNumber = Node(node).IsNumber(); }, isNumber);
}
