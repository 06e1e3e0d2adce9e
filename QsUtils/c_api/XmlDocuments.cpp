#include <string>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Xml.h"
#include "QsUtils/c_api/XmlHandles.h"
#include "QsUtils/xml/XmlAccess.h"
#include "QsUtils/xml/XmlText.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::HandleOf;
using QsCApi::TextOf;

namespace {

NS_XMLACCESS::IXmlAccessTool* ToolOf(QsXmlTool* handle) {
    return reinterpret_cast<NS_XMLACCESS::IXmlAccessTool*>(handle);
}

NS_XMLACCESS::IXmlAccessTool& Tool(QsXmlTool* handle) {
    return *ToolOf(&Checked(handle));
}

xercesc::DOMElement* ElementOf(QsXmlElement* handle) {
    return reinterpret_cast<xercesc::DOMElement*>(handle);
}

xercesc::DOMElement& Element(QsXmlElement* handle) {
    return *ElementOf(&Checked(handle));
}

/// Gives a handle of what is there.
template <typename Handle, typename Object>
QsStatus GiveIfThere(Handle** result, Object* object) {
    *result = reinterpret_cast<Handle*>(object);
    return object == nullptr ? QS_NOT_FOUND : QS_OK;
}

}  // namespace

QsStatus QsGetXmlAccessTool(QsXmlTool** tool) {
    return Call([&] { *tool = reinterpret_cast<QsXmlTool*>(GetXmlAccessTool()); }, tool);
}

QsStatus QsRemoveXmlAccessTool(QsXmlTool* tool) {
    return Call([&] { RemoveXmlAccessTool(ToolOf(tool)); });
}

QsStatus QsXmlTool_LoadXmlFile(QsXmlTool* tool, const QsChar* path, std::int32_t length,
                               std::int32_t* isLoaded) {
    return Call([&] { *isLoaded = Tool(tool).LoadXmlFile(TextOf(path, length).ToWide()); }, isLoaded);
}

QsStatus QsXmlTool_GetLastErrorText(QsXmlTool* tool, QsString** text) {
    return Call([&] { Give(text, Tool(tool).GetLastErrorText()); }, text);
}

QsStatus QsXmlTool_GetDocument(QsXmlTool* tool, QsXmlDocument** document) {
    return Call([&] { return GiveIfThere(document, Tool(tool).GetDocument()); }, document);
}

QsStatus QsXmlTool_GetRootElement(QsXmlTool* tool, QsXmlElement** element) {
    return Call([&] { return GiveIfThere(element, Tool(tool).GetRootElement()); }, element);
}

QsStatus QsXmlTool_SaveXmlFile(QsXmlTool* tool, const QsChar* path, std::int32_t length,
                               std::int32_t* isSaved) {
    return Call([&] { *isSaved = Tool(tool).SaveXmlFile(TextOf(path, length).ToWide()); }, isSaved);
}

QsStatus QsXmlTool_LoadXMLNode(QsXmlTool* tool, const QsChar* path, std::int32_t length, QsXmlNode** root) {
    return Call(
        [&] {
            *root = HandleOf(Tool(tool).LoadXMLNode(TextOf(path, length).ToWide()));
            return QsStatus{*root == nullptr ? QS_NOT_FOUND : QS_OK};
        },
        root);
}

QsStatus QsXmlTool_SaveXMLNode(QsXmlTool* tool, QsXmlNode* root, const QsChar* path, std::int32_t length,
                               std::int32_t prettyPrint, std::int32_t* isSaved) {
    return Call(
        [&] {
            XMLNode* const record = QsCApi::RecordOf(&Checked(root));
            *isSaved = Tool(tool).SaveXMLNode(record, TextOf(path, length).ToWide(), prettyPrint != 0);
        },
        isSaved);
}

QsStatus QsXmlTool_Close(QsXmlTool* tool) {
    return Call([&] { Tool(tool).Close(); });
}

// --- Elements

QsStatus QsXmlElement_GetName(QsXmlElement* element, QsString** name) {
    return Call([&] { Give(name, QsXml::Units(Element(element).getTagName())); }, name);
}

QsStatus QsXmlElement_GetFirstChild(QsXmlElement* element, QsXmlElement** child) {
    return Call([&] { return GiveIfThere(child, Element(element).getFirstElementChild()); }, child);
}

QsStatus QsXmlElement_GetNextSibling(QsXmlElement* element, QsXmlElement** sibling) {
    return Call([&] { return GiveIfThere(sibling, Element(element).getNextElementSibling()); }, sibling);
}

QsStatus QsXmlElement_AddChild(QsXmlElement* element, const QsChar* name, std::int32_t length,
                               QsXmlElement** child) {
    return Call(
        [&] {
            const std::u16string units(TextOf(name, length).View());
            xercesc::DOMElement& parent = Element(element);
            xercesc::DOMElement* const made = parent.getOwnerDocument()->createElement(QsXml::Xml(units));
            parent.appendChild(made);
            *child = reinterpret_cast<QsXmlElement*>(made);
        },
        child);
}

// --- Attributes

QsStatus QsXmlTool_GetCStringAttribute(QsXmlTool* tool, const QsChar* name, std::int32_t nameLength,
                                       QsXmlElement* element, QsString** value) {
    return Call(
        [&] {
            CString found;
            const std::wstring wide = TextOf(name, nameLength).ToWide();
            if (!Tool(tool).GetCStringAttribute(found, wide.c_str(), ElementOf(element)))
                return QsStatus{QS_NOT_FOUND};
            Give(value, std::move(found));
            return QsStatus{QS_OK};
        },
        value);
}

QsStatus QsXmlTool_SetCStringAttribute(QsXmlTool* tool, const QsChar* value, std::int32_t valueLength,
                                       const QsChar* name, std::int32_t nameLength, QsXmlElement* element) {
    return Call([&] {
        const std::wstring wide = TextOf(name, nameLength).ToWide();
        Tool(tool).SetCStringAttribute(TextOf(value, valueLength), wide.c_str(), ElementOf(element));
    });
}

QsStatus QsXmlTool_GetStringAttribute(QsXmlTool* tool, const QsChar* name, std::int32_t nameLength,
                                      QsXmlElement* element, QsString** value) {
    return Call(
        [&] {
            std::wstring found;
            const std::wstring wide = TextOf(name, nameLength).ToWide();
            if (!Tool(tool).GetStringAttribute(found, wide.c_str(), ElementOf(element)))
                return QsStatus{QS_NOT_FOUND};
            Give(value, found);
            return QsStatus{QS_OK};
        },
        value);
}

QsStatus QsXmlTool_SetStringAttribute(QsXmlTool* tool, const QsChar* value, std::int32_t valueLength,
                                      const QsChar* name, std::int32_t nameLength, QsXmlElement* element) {
    return Call([&] {
        const std::wstring wide = TextOf(name, nameLength).ToWide();
        Tool(tool).SetStringAttribute(TextOf(value, valueLength).ToWide(), wide.c_str(), ElementOf(element));
    });
}

QsStatus QsXmlTool_GetDoubleAttribute(QsXmlTool* tool, const QsChar* name, std::int32_t nameLength,
                                      QsXmlElement* element, double* value) {
    return Call(
        [&] {
            const std::wstring wide = TextOf(name, nameLength).ToWide();
            const bool isThere = Tool(tool).GetDoubleAttribute(*value, wide.c_str(), ElementOf(element));
            return QsStatus{isThere ? QS_OK : QS_NOT_FOUND};
        },
        value);
}

QsStatus QsXmlTool_SetDoubleAttribute(QsXmlTool* tool, double value, const QsChar* name,
                                      std::int32_t nameLength, QsXmlElement* element) {
    return Call([&] {
        const std::wstring wide = TextOf(name, nameLength).ToWide();
        Tool(tool).SetDoubleAttribute(value, wide.c_str(), ElementOf(element));
    });
}

QsStatus QsXmlTool_GetIntAttribute(QsXmlTool* tool, const QsChar* name, std::int32_t nameLength,
                                   QsXmlElement* element, std::int32_t* value) {
    return Call(
        [&] {
            const std::wstring wide = TextOf(name, nameLength).ToWide();
            const bool isThere = Tool(tool).GetIntAttribute(*value, wide.c_str(), ElementOf(element));
            return QsStatus{isThere ? QS_OK : QS_NOT_FOUND};
        },
        value);
}

QsStatus QsXmlTool_SetIntAttribute(QsXmlTool* tool, std::int32_t value, const QsChar* name,
                                   std::int32_t nameLength, QsXmlElement* element) {
    return Call([&] {
        const std::wstring wide = TextOf(name, nameLength).ToWide();
        Tool(tool).SetIntAttribute(value, wide.c_str(), ElementOf(element));
    });
}

QsStatus QsXmlTool_GetBoolAttribute(QsXmlTool* tool, const QsChar* name, std::int32_t nameLength,
                                    QsXmlElement* element, std::int32_t* value) {
    return Call(
        [&] {
            bool found = false;
            const std::wstring wide = TextOf(name, nameLength).ToWide();
            const bool isThere = Tool(tool).GetBoolAttribute(found, wide.c_str(), ElementOf(element));
            *value = found;
            return QsStatus{isThere ? QS_OK : QS_NOT_FOUND};
        },
        value);
}

QsStatus QsXmlTool_SetBoolAttribute(QsXmlTool* tool, std::int32_t value, const QsChar* name,
                                    std::int32_t nameLength, QsXmlElement* element) {
    return Call([&] {
        const std::wstring wide = TextOf(name, nameLength).ToWide();
        Tool(tool).SetBoolAttribute(value != 0, wide.c_str(), ElementOf(element));
    });
}
