#include "Check.h"

static QsXmlNode* NewTree(void) {
    QsXmlNode* root = NULL;
    QsXmlNode* child = NULL;
    OK(QsXmlNode_Create(T("工程"), &root));
    OK(QsXmlNode_SetAttribute(root, T("Name"), T("门卫室")));
    OK(QsXmlNode_SetAttribute(root, T("Gone"), T("x")));
    OK(QsXmlNode_RemoveAttribute(root, T("Gone")));
    STATUS(QS_NOT_FOUND, QsXmlNode_RemoveAttribute(root, T("Gone")));
    OK(QsXmlNode_Create(T("x"), &child));
    OK(QsXmlNode_SetName(child, T("Item")));
    OK(QsXmlNode_SetText(child, T("砖墙")));
    OK(QsXmlNode_SetExtra(child, T("the host's")));
    TEXT("the host's", QsXmlNode_GetExtra(child, &theText));
    STATUS(QS_INVALID_ARGUMENT, QsXmlNode_AddChild(child, child));
    OK(QsXmlNode_AddChild(root, child));
    return root;
}

static void CheckRead(QsXmlNode* root) {
    QsXmlNode* child = NULL;
    QsTextMap* attributes = NULL;
    const QsChar* units = NULL;
    int32_t number = 0;
    TEXT("工程", QsXmlNode_GetName(root, &theText));
    TEXT("门卫室", QsXmlNode_GetAttribute(root, T("Name"), &theText));
    STATUS(QS_NOT_FOUND, QsXmlNode_GetAttribute(root, T("Gone"), &theText));
    OK(QsTextMap_Create(&attributes));
    OK(QsXmlNode_GetAttributes(root, attributes));
    OK(QsTextMap_Find(attributes, T("Name"), &units, &number));
    CHECK(AreUnits(units, number, "门卫室"));
    QsTextMap_Free(attributes);
    OK(QsXmlNode_CountChildren(root, &number));
    CHECK(number == 1);
    OK(QsXmlNode_FindChildNode(root, T("Item"), &child));
    TEXT("砖墙", QsXmlNode_GetText(child, &theText));
    STATUS(QS_NOT_FOUND, QsXmlNode_FindChildNode(root, T("item"), &child));
    CHECK(child == NULL);
    STATUS(QS_INVALID_ARGUMENT, QsXmlNode_GetChild(root, 1, &child));
    OK(QsXmlNode_GetChild(root, 0, &child));
    OK(QsXmlNode_TakeChild(root, 0, &child));
    QsXmlNode_Free(child);
    OK(QsXmlNode_CountChildren(root, &number));
    CHECK(number == 0);
}

void CheckXmlTrees(void) {
    QsXmlNode* root = NewTree();
    int32_t isSaved = 0;
    OK(QsSaveXMLNode(root, T("tree.xml"), 0, &isSaved));
    CHECK(isSaved == 1);
    OK(QsSaveXMLNode(root, NULL, 0, 0, &isSaved));
    CHECK(isSaved == 0);
    STATUS(QS_FAILED, QsSaveXMLNode(root, T("no folder\\tree.xml"), 0, &isSaved));
    OK(QsXmlNode_SetName(root, T("not a name")));
    STATUS(QS_FAILED, QsSaveXMLNode(root, T("bad.xml"), 0, &isSaved));
    QsXmlNode_Free(root);
    OK(QsLoadXMLNode(T("tree.xml"), &root));
    CheckRead(root);
    QsXmlNode_Free(root);
    STATUS(QS_NOT_FOUND, QsLoadXMLNode(T("none.xml"), &root));
    CHECK(root == NULL);
    QsXmlNode_Free(NULL);
}
