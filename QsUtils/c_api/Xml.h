/// @file
/// XML files, as plain trees and as documents.
#pragma once

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// Trees, as `XMLNode` describes them. A record owns its children; those that it gives away are borrowed
/// from it.
typedef struct QsXmlNode QsXmlNode;

/// The tree of a file. QS_NOT_FOUND when the file can't be loaded.
QSUTILS_API QsStatus QsLoadXMLNode(const QsChar* path, int32_t length, QsXmlNode** root);
/// Writes a tree as a new file in UTF-8. `isSaved` is 0 for an empty path; QS_FAILED when the file can't be
/// written and for what XML doesn't allow.
QSUTILS_API QsStatus QsSaveXMLNode(QsXmlNode* root, const QsChar* path, int32_t length, int32_t prettyPrint,
                                   int32_t* isSaved);

/// A record of that name without anything in it; it is the caller's until it is added to another.
QSUTILS_API QsStatus QsXmlNode_Create(const QsChar* name, int32_t length, QsXmlNode** node);
/// Frees a root, or a record that isn't in any tree, and all below it.
QSUTILS_API void QsXmlNode_Free(QsXmlNode* node);
/// The name.
QSUTILS_API QsStatus QsXmlNode_GetName(const QsXmlNode* node, QsString** name);
/// Sets the name.
QSUTILS_API QsStatus QsXmlNode_SetName(QsXmlNode* node, const QsChar* name, int32_t length);
/// The text.
QSUTILS_API QsStatus QsXmlNode_GetText(const QsXmlNode* node, QsString** text);
/// Sets the text.
QSUTILS_API QsStatus QsXmlNode_SetText(QsXmlNode* node, const QsChar* text, int32_t length);
/// The host's own text, neither read from files nor written.
QSUTILS_API QsStatus QsXmlNode_GetExtra(const QsXmlNode* node, QsString** extra);
/// Sets the host's own text.
QSUTILS_API QsStatus QsXmlNode_SetExtra(QsXmlNode* node, const QsChar* extra, int32_t length);

/// Replaces `attributes` by all of the record.
QSUTILS_API QsStatus QsXmlNode_GetAttributes(const QsXmlNode* node, QsTextMap* attributes);
/// The value of an attribute. QS_NOT_FOUND for one that the record lacks.
QSUTILS_API QsStatus QsXmlNode_GetAttribute(const QsXmlNode* node, const QsChar* name, int32_t nameLength,
                                            QsString** value);
/// Makes or replaces an attribute.
QSUTILS_API QsStatus QsXmlNode_SetAttribute(QsXmlNode* node, const QsChar* name, int32_t nameLength,
                                            const QsChar* value, int32_t valueLength);
/// Takes an attribute out. QS_NOT_FOUND for one that the record lacks.
QSUTILS_API QsStatus QsXmlNode_RemoveAttribute(QsXmlNode* node, const QsChar* name, int32_t nameLength);

/// How many children there are.
QSUTILS_API QsStatus QsXmlNode_CountChildren(const QsXmlNode* node, int32_t* count);
/// The child at an index, borrowed.
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
/// The document of a tool, borrowed from it.
typedef struct QsXmlDocument QsXmlDocument;
/// An element of that document, borrowed from it.
typedef struct QsXmlElement QsXmlElement;

/// A new tool, to be ended by `QsRemoveXmlAccessTool`.
QSUTILS_API QsStatus QsGetXmlAccessTool(QsXmlTool** tool);
/// Ends a tool. Null and what isn't a living tool are left alone.
QSUTILS_API QsStatus QsRemoveXmlAccessTool(QsXmlTool* tool);
/// Opens a file; `isLoaded` is 0 when it can't be read or isn't well-formed, and the error text says why.
QSUTILS_API QsStatus QsXmlTool_LoadXmlFile(QsXmlTool* tool, const QsChar* path, int32_t length,
                                           int32_t* isLoaded);
/// Why the last load failed; empty after a good one.
QSUTILS_API QsStatus QsXmlTool_GetLastErrorText(QsXmlTool* tool, QsString** text);
/// The document, for C++ code that knows its class. QS_NOT_FOUND when there is none.
QSUTILS_API QsStatus QsXmlTool_GetDocument(QsXmlTool* tool, QsXmlDocument** document);
/// The root element. QS_NOT_FOUND when there is no document.
QSUTILS_API QsStatus QsXmlTool_GetRootElement(QsXmlTool* tool, QsXmlElement** element);
/// Writes the document, for an empty path where it came from.
QSUTILS_API QsStatus QsXmlTool_SaveXmlFile(QsXmlTool* tool, const QsChar* path, int32_t length,
                                           int32_t* isSaved);
/// Opens a file as `QsXmlTool_LoadXmlFile` does and gives its tree, which is the caller's. QS_NOT_FOUND when
/// it can't be loaded.
QSUTILS_API QsStatus QsXmlTool_LoadXMLNode(QsXmlTool* tool, const QsChar* path, int32_t length,
                                           QsXmlNode** root);
/// Writes a tree as `QsSaveXMLNode` does.
QSUTILS_API QsStatus QsXmlTool_SaveXMLNode(QsXmlTool* tool, QsXmlNode* root, const QsChar* path,
                                           int32_t length, int32_t prettyPrint, int32_t* isSaved);
/// Lets go of the document and its file.
QSUTILS_API QsStatus QsXmlTool_Close(QsXmlTool* tool);

/// The name of an element.
QSUTILS_API QsStatus QsXmlElement_GetName(QsXmlElement* element, QsString** name);
/// The first child element. QS_NOT_FOUND when there is none.
QSUTILS_API QsStatus QsXmlElement_GetFirstChild(QsXmlElement* element, QsXmlElement** child);
/// The next element beside this one. QS_NOT_FOUND when there is none.
QSUTILS_API QsStatus QsXmlElement_GetNextSibling(QsXmlElement* element, QsXmlElement** sibling);
/// A new element behind the children of this one.
QSUTILS_API QsStatus QsXmlElement_AddChild(QsXmlElement* element, const QsChar* name, int32_t length,
                                           QsXmlElement** child);

/// The value after a way through the ANSI code page and back.
QSUTILS_API QsStatus QsXmlTool_GetCStringAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                   QsXmlElement* element, QsString** value);
/// Writes the text as it is.
QSUTILS_API QsStatus QsXmlTool_SetCStringAttribute(QsXmlTool* tool, const QsChar* value, int32_t valueLength,
                                                   const QsChar* name, int32_t nameLength,
                                                   QsXmlElement* element);
/// The value as it is.
QSUTILS_API QsStatus QsXmlTool_GetStringAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                  QsXmlElement* element, QsString** value);
/// Writes the text as it is.
QSUTILS_API QsStatus QsXmlTool_SetStringAttribute(QsXmlTool* tool, const QsChar* value, int32_t valueLength,
                                                  const QsChar* name, int32_t nameLength,
                                                  QsXmlElement* element);
/// The number that the value begins with, or 0.
QSUTILS_API QsStatus QsXmlTool_GetDoubleAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                  QsXmlElement* element, double* value);
/// Writes six decimals.
QSUTILS_API QsStatus QsXmlTool_SetDoubleAttribute(QsXmlTool* tool, double value, const QsChar* name,
                                                  int32_t nameLength, QsXmlElement* element);
/// The whole number that the value begins with, or 0.
QSUTILS_API QsStatus QsXmlTool_GetIntAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                               QsXmlElement* element, int32_t* value);
/// Writes a whole number.
QSUTILS_API QsStatus QsXmlTool_SetIntAttribute(QsXmlTool* tool, int32_t value, const QsChar* name,
                                               int32_t nameLength, QsXmlElement* element);
/// Whether the whole number that the value begins with isn't 0.
QSUTILS_API QsStatus QsXmlTool_GetBoolAttribute(QsXmlTool* tool, const QsChar* name, int32_t nameLength,
                                                QsXmlElement* element, int32_t* value);
/// Writes "1" or "0".
QSUTILS_API QsStatus QsXmlTool_SetBoolAttribute(QsXmlTool* tool, int32_t value, const QsChar* name,
                                                int32_t nameLength, QsXmlElement* element);

#if defined(__cplusplus)
}
#endif
