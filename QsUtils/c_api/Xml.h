/// @file
/// XML files, as plain trees and as documents.
#pragma once

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// Trees, as `XMLNode` describes them. A record owns its children; those that it gives away are borrowed
/// * from it.
typedef struct QsXmlNode QsXmlNode;

/// The tree of a file. QS_NOT_FOUND when the file can't be loaded.
QSUTILS_API QsStatus QsLoadXMLNode(const QsChar* path, int32_t length, QsXmlNode** root);
/// Writes a tree as a new file in UTF-8. `isSaved` is 0 for an empty path; QS_FAILED when the file can't be
/// written and for what XML doesn't allow.
QSUTILS_API QsStatus QsSaveXMLNode(QsXmlNode* root, const QsChar* path, int32_t length, int32_t prettyPrint,
                                   int32_t* isSaved);

QSUTILS_API QsStatus QsXmlNode_Create(const QsChar* name, int32_t length, QsXmlNode** node);
/// Frees a root, or a record that isn't in any tree, and all below it.
QSUTILS_API void QsXmlNode_Free(QsXmlNode* node);
QSUTILS_API QsStatus QsXmlNode_GetName(const QsXmlNode* node, QsString** name);
QSUTILS_API QsStatus QsXmlNode_SetName(QsXmlNode* node, const QsChar* name, int32_t length);
QSUTILS_API QsStatus QsXmlNode_GetText(const QsXmlNode* node, QsString** text);
QSUTILS_API QsStatus QsXmlNode_SetText(QsXmlNode* node, const QsChar* text, int32_t length);
QSUTILS_API QsStatus QsXmlNode_GetExtra(const QsXmlNode* node, QsString** extra);
QSUTILS_API QsStatus QsXmlNode_SetExtra(QsXmlNode* node, const QsChar* extra, int32_t length);

/// Replaces `attributes` by all of the record.
QSUTILS_API QsStatus QsXmlNode_GetAttributes(const QsXmlNode* node, QsTextMap* attributes);
/// QS_NOT_FOUND for an attribute that the record lacks.
QSUTILS_API QsStatus QsXmlNode_GetAttribute(const QsXmlNode* node, const QsChar* name, int32_t nameLength,
                                            QsString** value);
QSUTILS_API QsStatus QsXmlNode_SetAttribute(QsXmlNode* node, const QsChar* name, int32_t nameLength,
                                            const QsChar* value, int32_t valueLength);
QSUTILS_API QsStatus QsXmlNode_RemoveAttribute(QsXmlNode* node, const QsChar* name, int32_t nameLength);

QSUTILS_API QsStatus QsXmlNode_CountChildren(const QsXmlNode* node, int32_t* count);
QSUTILS_API QsStatus QsXmlNode_GetChild(const QsXmlNode* node, int32_t index, QsXmlNode** child);
/// The first child of that name. QS_NOT_FOUND when there is none.
QSUTILS_API QsStatus QsXmlNode_FindChildNode(const QsXmlNode* node, const QsChar* name, int32_t length,
                                             QsXmlNode** child);
/// Puts a record behind the children. It is the node's from then on, and must not be in a tree already.
QSUTILS_API QsStatus QsXmlNode_AddChild(QsXmlNode* node, QsXmlNode* child);
/// Takes a child out; it is the caller's.
QSUTILS_API QsStatus QsXmlNode_TakeChild(QsXmlNode* node, int32_t index, QsXmlNode** child);

/// Documents, as `IXmlAccessTool` describes them. A tool is ended by `QsRemoveXmlAccessTool`; its document
/// and its elements are borrowed until then, until the next load and until it is closed. QS_FAILED where C++
/// raises.
typedef struct QsXmlTool QsXmlTool;
typedef struct QsXmlDocument QsXmlDocument;
typedef struct QsXmlElement QsXmlElement;

QSUTILS_API QsStatus QsGetXmlAccessTool(QsXmlTool** tool);
/// Null and what isn't a living tool are left alone.
QSUTILS_API QsStatus QsRemoveXmlAccessTool(QsXmlTool* tool);
/// Opens a file; `isLoaded` is 0 when it can't be read or isn't well-formed, and the error text says why.
QSUTILS_API QsStatus QsXmlTool_LoadXmlFile(QsXmlTool* tool, const QsChar* path, int32_t length,
                                           int32_t* isLoaded);
QSUTILS_API QsStatus QsXmlTool_GetLastErrorText(QsXmlTool* tool, QsString** text);
/// QS_NOT_FOUND when there is no document. The document is for C++ code that knows its class.
QSUTILS_API QsStatus QsXmlTool_GetDocument(QsXmlTool* tool, QsXmlDocument** document);
QSUTILS_API QsStatus QsXmlTool_GetRootElement(QsXmlTool* tool, QsXmlElement** element);
/// Writes the document, for an empty path where it came from.
QSUTILS_API QsStatus QsXmlTool_SaveXmlFile(QsXmlTool* tool, const QsChar* path, int32_t length,
                                           int32_t* isSaved);
QSUTILS_API QsStatus QsXmlTool_LoadXMLNode(QsXmlTool* tool, const QsChar* path, int32_t length,
                                           QsXmlNode** root);
QSUTILS_API QsStatus QsXmlTool_SaveXMLNode(QsXmlTool* tool, QsXmlNode* root, const QsChar* path,
                                           int32_t length, int32_t prettyPrint, int32_t* isSaved);
/// Lets go of the document and its file.
QSUTILS_API QsStatus QsXmlTool_Close(QsXmlTool* tool);

/// Elements: the name, the first child element and the next element beside this one. QS_NOT_FOUND when there
/// * is none.
QSUTILS_API QsStatus QsXmlElement_GetName(QsXmlElement* element, QsString** name);
QSUTILS_API QsStatus QsXmlElement_GetFirstChild(QsXmlElement* element, QsXmlElement** child);
QSUTILS_API QsStatus QsXmlElement_GetNextSibling(QsXmlElement* element, QsXmlElement** sibling);
/// A new element behind the children of this one.
QSUTILS_API QsStatus QsXmlElement_AddChild(QsXmlElement* element, const QsChar* name, int32_t length,
                                           QsXmlElement** child);

/// Attributes of an element. A getter gives QS_NOT_FOUND for one that the element lacks; a setter makes or
/// replaces it. A null element counts as one without attributes.
QSUTILS_API QsStatus QsXmlTool_GetCStringAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                   QsXmlElement* element, QsString** value);
QSUTILS_API QsStatus QsXmlTool_SetCStringAttribute(QsXmlTool* tool, const QsChar* value, int32_t valueLength,
                                                   const QsChar* name, int32_t nameLength,
                                                   QsXmlElement* element);
QSUTILS_API QsStatus QsXmlTool_GetStringAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                  QsXmlElement* element, QsString** value);
QSUTILS_API QsStatus QsXmlTool_SetStringAttribute(QsXmlTool* tool, const QsChar* value, int32_t valueLength,
                                                  const QsChar* name, int32_t nameLength,
                                                  QsXmlElement* element);
QSUTILS_API QsStatus QsXmlTool_GetDoubleAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                  QsXmlElement* element, double* value);
QSUTILS_API QsStatus QsXmlTool_SetDoubleAttribute(QsXmlTool* tool, double value, const QsChar* name,
                                                  int32_t nameLength, QsXmlElement* element);
QSUTILS_API QsStatus QsXmlTool_GetIntAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                               QsXmlElement* element, int32_t* value);
QSUTILS_API QsStatus QsXmlTool_SetIntAttribute(QsXmlTool* tool, int32_t value, const QsChar* name,
                                               int32_t nameLength, QsXmlElement* element);
QSUTILS_API QsStatus QsXmlTool_GetBoolAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                QsXmlElement* element, int32_t* value);
QSUTILS_API QsStatus QsXmlTool_SetBoolAttribute(QsXmlTool* tool, int32_t value, const QsChar* name,
                                                int32_t nameLength, QsXmlElement* element);

#if defined(__cplusplus)
}
#endif
