#include <stdio.h>

#include "Check.h"

static void CheckAttributes(QsXmlTool* tool, QsXmlElement* element) {
    int32_t number = 0;
    double value = 0;
    OK(QsXmlTool_SetCStringAttribute(tool, T("砖"), T("c"), element));
    TEXT("砖", QsXmlTool_GetCStringAttribute(tool, T("c"), element, &theText));
    OK(QsXmlTool_SetStringAttribute(tool, T("½"), T("s"), element));
    TEXT("½", QsXmlTool_GetStringAttribute(tool, T("s"), element, &theText));
    OK(QsXmlTool_SetDoubleAttribute(tool, 2.5, T("d"), element));
    TEXT("2.500000", QsXmlTool_GetStringAttribute(tool, T("d"), element, &theText));
    OK(QsXmlTool_GetDoubleAttribute(tool, T("d"), element, &value));
    CHECK(value == 2.5);
    OK(QsXmlTool_SetIntAttribute(tool, -3, T("i"), element));
    OK(QsXmlTool_GetIntAttribute(tool, T("i"), element, &number));
    CHECK(number == -3);
    OK(QsXmlTool_SetBoolAttribute(tool, 9, T("b"), element));
    OK(QsXmlTool_GetBoolAttribute(tool, T("b"), element, &number));
    CHECK(number == 1);
    STATUS(QS_NOT_FOUND, QsXmlTool_GetCStringAttribute(tool, T("no"), element, &theText));
    STATUS(QS_NOT_FOUND, QsXmlTool_GetStringAttribute(tool, T("no"), NULL, &theText));
    CHECK(theText == NULL);
    STATUS(QS_NOT_FOUND, QsXmlTool_GetDoubleAttribute(tool, T("no"), element, &value));
    STATUS(QS_NOT_FOUND, QsXmlTool_GetIntAttribute(tool, T("no"), element, &number));
    STATUS(QS_NOT_FOUND, QsXmlTool_GetBoolAttribute(tool, T("no"), element, &number));
    STATUS(QS_FAILED, QsXmlTool_SetIntAttribute(tool, 1, T("no name"), element));
}

static void CheckElements(QsXmlTool* tool) {
    QsXmlDocument* document = NULL;
    QsXmlElement* root = NULL;
    QsXmlElement* child = NULL;
    QsXmlElement* next = NULL;
    OK(QsXmlTool_GetDocument(tool, &document));
    CHECK(document != NULL);
    OK(QsXmlTool_GetRootElement(tool, &root));
    TEXT("r", QsXmlElement_GetName(root, &theText));
    OK(QsXmlElement_GetFirstChild(root, &child));
    TEXT("a", QsXmlElement_GetName(child, &theText));
    STATUS(QS_NOT_FOUND, QsXmlElement_GetNextSibling(child, &next));
    OK(QsXmlElement_AddChild(root, T("b"), &next));
    OK(QsXmlElement_GetNextSibling(child, &next));
    TEXT("b", QsXmlElement_GetName(next, &theText));
    STATUS(QS_NOT_FOUND, QsXmlElement_GetFirstChild(next, &child));
    STATUS(QS_FAILED, QsXmlElement_AddChild(root, T("no name"), &next));
    CheckAttributes(tool, root);
}

void CheckXmlDocuments(void) {
    QsXmlTool* tool = NULL;
    QsXmlNode* tree = NULL;
    QsXmlElement* root = NULL;
    int32_t isDone = 0;
    FILE* file = fopen("document.xml", "wb");
    CHECK(file != NULL);
    if (file != NULL) {
        fputs("<r> <a/> </r>", file);
        fclose(file);
    }
    OK(QsGetXmlAccessTool(&tool));
    OK(QsXmlTool_LoadXmlFile(tool, T("none.xml"), &isDone));
    CHECK(isDone == 0);
    OK(QsXmlTool_GetLastErrorText(tool, &theText));
    CHECK(EndsWith(theText, "'none.xml'"));
    STATUS(QS_NOT_FOUND, QsXmlTool_GetRootElement(tool, &root));
    OK(QsXmlTool_LoadXmlFile(tool, T("document.xml"), &isDone));
    CHECK(isDone == 1);
    CheckElements(tool);
    OK(QsXmlTool_SaveXmlFile(tool, NULL, 0, &isDone));
    CHECK(isDone == 1);
    OK(QsXmlTool_Close(tool));
    TEXT("", QsXmlTool_GetLastErrorText(tool, &theText));
    OK(QsXmlTool_LoadXMLNode(tool, T("document.xml"), &tree));
    TEXT("-3", QsXmlNode_GetAttribute(tree, T("i"), &theText));
    OK(QsXmlTool_SaveXMLNode(tool, tree, T("copy.xml"), 1, &isDone));
    CHECK(isDone == 1);
    QsXmlNode_Free(tree);
    STATUS(QS_NOT_FOUND, QsXmlTool_LoadXMLNode(tool, T("none.xml"), &tree));
    OK(QsRemoveXmlAccessTool(tool));
    OK(QsRemoveXmlAccessTool(NULL));
}
