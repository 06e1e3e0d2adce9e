#include "Check.h"

static void CheckVariables(void) {
    QsTextList* list = NULL;
    QsIndexMap* places = NULL;
    const QsChar* units = NULL;
    int32_t number = 0;
    OK(QsTextList_Create(&list));
    OK(QsIndexMap_Create(&places));
    OK(QsIsVariable(T("L*2"), &number));
    CHECK(number == 1);
    OK(QsTextList_Add(list, T("L")));
    OK(QsFindVariable(T("L*H"), 1, list, &number));
    /* What is held already runs on into the next. */
    CHECK(number == 1 && IsList(list, "L|LH"));
    OK(QsFindVariable(T("L*W"), 0, list, &number));
    CHECK(number == 1 && IsList(list, "L|LH|L|W"));
    OK(QsFindVariable(T("1+2"), 0, list, &number));
    CHECK(number == 0 && IsList(list, "L|LH|L|W"));
    OK(QsFindVariablePlaces(T("L*H"), places, &number));
    CHECK(number == 1);
    OK(QsIndexMap_Find(places, 2, &units, &number));
    CHECK(AreUnits(units, number, "H"));
    OK(QsIsIncludeQ(T("q*2"), &number));
    CHECK(number == 1);
    TEXT("12.5*2", QsReplaceQWithProjectAmount(T("Q*2"), T("12.50"), &theText));
    TEXT("3*H", QsReplaceVarString(T("L*H"), T("L"), T("3"), &theText));
    QsTextList_Free(list);
    QsIndexMap_Free(places);
}

static void CheckNode(QsExpressionNode* root) {
    QsExpressionNode* left = NULL;
    QsExpressionNode* right = NULL;
    QsExpressionNode* inner = NULL;
    int32_t isTrue = 0;
    double value = 0;
    OK(QsExpressionNode_IsNodeType(root, QS_NODE_OPERATOR, &isTrue));
    CHECK(isTrue == 1);
    TEXT("*", QsExpressionNode_GetNodeText(root, &theText));
    OK(QsExpressionNode_GetLeftNode(root, &left));
    OK(QsExpressionNode_GetRightNode(root, &right));
    OK(QsExpressionNode_IsLeaf(right, &isTrue));
    CHECK(isTrue == 1);
    OK(QsExpressionNode_IsNumber(right, &isTrue));
    CHECK(isTrue == 0);
    OK(QsExpressionNode_SetLeafText(right, T("4")));
    OK(QsExpressionNode_IsBracketType(left, QS_BRACKET_ROUND, &isTrue));
    CHECK(isTrue == 1);
    OK(QsExpressionNode_CalcValue(root, &value));
    CHECK(value == 12);
    TEXT("()", QsExpressionNode_ToString(root, &theText));
    TEXT("()", QsExpressionToString(root, &theText));
    TEXT("", QsExpressionToString(NULL, &theText));
    OK(QsExpressionNode_SetNegative(right, 1));
    OK(QsExpressionNode_IsNegative(right, &isTrue));
    CHECK(isTrue == 1);
    OK(QsExpressionNode_SetNodeText(root, T("+")));
    OK(QsExpressionNode_CalcValue(root, &value));
    CHECK(value == -1);
    OK(QsExpressionNode_SetBracketType(left, QS_BRACKET_SQUARE));
    OK(QsExpressionNode_IsBracketType(left, QS_BRACKET_SQUARE, &isTrue));
    CHECK(isTrue == 1);
    OK(QsExpressionNode_SetNodeType(right, QS_NODE_FUNCTION));
    OK(QsExpressionNode_IsNodeType(right, QS_NODE_FUNCTION, &isTrue));
    CHECK(isTrue == 1);
    /* The group's content takes its place. */
    OK(QsExpressionNode_GetLeftNode(left, &inner));
    OK(QsExpressionNode_SetLeftNode(left, NULL));
    OK(QsExpressionNode_SetLeftNode(root, inner));
    QsExpressionNode_Free(left);
    OK(QsExpressionNode_SetRightNode(root, NULL));
    QsExpressionNode_Free(right);
    OK(QsExpressionNode_GetRightNode(root, &right));
    CHECK(right == NULL);
}

void CheckFormulas(void) {
    QsExpressionNode* root = NULL;
    int32_t error = -1;
    CheckVariables();
    OK(QsAnalyseExpression(T("(1+2)*X"), &root, &error));
    CHECK(root != NULL && error == 0);
    CheckNode(root);
    QsExpressionNode_Free(root);
    OK(QsAnalyseExpression(T("(1"), &root, &error));
    CHECK(root == NULL && error == 2);
    OK(QsAnalyseExpression(T("[1"), &root, &error));
    CHECK(root == NULL && error == 3);
    OK(QsAnalyseExpression(T("1+"), &root, &error));
    CHECK(root == NULL && error == 5);
    OK(QsAnalyseExpression(NULL, 0, &root, &error));
    CHECK(root == NULL && error == 0);
    QsExpressionNode_Free(NULL);
}
