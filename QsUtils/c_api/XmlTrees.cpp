#include <cstddef>
#include <memory>
#include <string>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"
#include "QsUtils/c_api/Xml.h"
#include "QsUtils/c_api/XmlHandles.h"
#include "QsUtils/xml/XmlAccess.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::HandleOf;
using QsCApi::RecordOf;
using QsCApi::TextOf;

namespace {

const XMLNode& Record(const QsXmlNode* handle) {
    return *RecordOf(&Checked(handle));
}

XMLNode& Record(QsXmlNode* handle) {
    return *RecordOf(&Checked(handle));
}

QsStatus Get(const QsXmlNode* node, std::wstring XMLNode::*field, QsString** text) {
    return Call([&] { Give(text, Record(node).*field); }, text);
}

QsStatus Set(QsXmlNode* node, std::wstring XMLNode::*field, const QsChar* text, std::int32_t length) {
    return Call([&] { Record(node).*field = TextOf(text, length).ToWide(); });
}

}  // namespace

QsStatus QsLoadXMLNode(const QsChar* path, std::int32_t length, QsXmlNode** root) {
    return Call(
        [&] {
            *root = HandleOf(LoadXMLNode(TextOf(path, length).ToWide()));
            return QsStatus{*root == nullptr ? QS_NOT_FOUND : QS_OK};
        },
        root);
}

QsStatus QsSaveXMLNode(QsXmlNode* root, const QsChar* path, std::int32_t length, std::int32_t prettyPrint,
                       std::int32_t* isSaved) {
    return Call(
        [&] { *isSaved = SaveXMLNode(&Record(root), TextOf(path, length).ToWide(), prettyPrint != 0); },
        isSaved);
}

QsStatus QsXmlNode_Create(const QsChar* name, std::int32_t length, QsXmlNode** node) {
    return Call(
        [&] {
            auto record = std::make_unique<XMLNode>();
            record->Name = TextOf(name, length).ToWide();
            *node = HandleOf(record.release());
        },
        node);
}

void QsXmlNode_Free(QsXmlNode* node) {
    delete RecordOf(node);
}

QsStatus QsXmlNode_GetName(const QsXmlNode* node, QsString** name) {
    return Get(node, &XMLNode::Name, name);
}

QsStatus QsXmlNode_SetName(QsXmlNode* node, const QsChar* name, std::int32_t length) {
    return Set(node, &XMLNode::Name, name, length);
}

QsStatus QsXmlNode_GetText(const QsXmlNode* node, QsString** text) {
    return Get(node, &XMLNode::Text, text);
}

QsStatus QsXmlNode_SetText(QsXmlNode* node, const QsChar* text, std::int32_t length) {
    return Set(node, &XMLNode::Text, text, length);
}

QsStatus QsXmlNode_GetExtra(const QsXmlNode* node, QsString** extra) {
    return Get(node, &XMLNode::Extra, extra);
}

QsStatus QsXmlNode_SetExtra(QsXmlNode* node, const QsChar* extra, std::int32_t length) {
    return Set(node, &XMLNode::Extra, extra, length);
}

QsStatus QsXmlNode_GetAttributes(const QsXmlNode* node, QsTextMap* attributes) {
    return Call([&] {
        std::map<CString, CString> all;
        for (const auto& [name, value] : Record(node).Attributes)
            all.insert_or_assign(name, value);
        Checked(attributes).texts = std::move(all);
    });
}

QsStatus QsXmlNode_GetAttribute(const QsXmlNode* node, const QsChar* name, std::int32_t nameLength,
                                QsString** value) {
    return Call(
        [&] {
            const auto found = Record(node).Attributes.find(TextOf(name, nameLength).ToWide());
            if (found == Record(node).Attributes.end())
                return QsStatus{QS_NOT_FOUND};
            Give(value, found->second);
            return QsStatus{QS_OK};
        },
        value);
}

QsStatus QsXmlNode_SetAttribute(QsXmlNode* node, const QsChar* name, std::int32_t nameLength,
                                const QsChar* value, std::int32_t valueLength) {
    return Call([&] {
        Record(node).Attributes.insert_or_assign(TextOf(name, nameLength).ToWide(),
                                                 TextOf(value, valueLength).ToWide());
    });
}

QsStatus QsXmlNode_RemoveAttribute(QsXmlNode* node, const QsChar* name, std::int32_t nameLength) {
    return Call([&] {
        const std::size_t removed = Record(node).Attributes.erase(TextOf(name, nameLength).ToWide());
        return QsStatus{removed == 0 ? QS_NOT_FOUND : QS_OK};
    });
}

// --- Children

QsStatus QsXmlNode_CountChildren(const QsXmlNode* node, std::int32_t* count) {
    return Call([&] { *count = QsCApi::CountOf(Record(node).Children.size()); }, count);
}

QsStatus QsXmlNode_GetChild(const QsXmlNode* node, std::int32_t index, QsXmlNode** child) {
    return Call([&] { *child = HandleOf(QsCApi::At(Record(node).Children, index)); }, child);
}

QsStatus QsXmlNode_FindChildNode(const QsXmlNode* node, const QsChar* name, std::int32_t length,
                                 QsXmlNode** child) {
    return Call(
        [&] {
            *child = HandleOf(Record(node).FindChildNode(TextOf(name, length).ToWide()));
            return QsStatus{*child == nullptr ? QS_NOT_FOUND : QS_OK};
        },
        child);
}

QsStatus QsXmlNode_AddChild(QsXmlNode* node, QsXmlNode* child) {
    return Call([&] {
        QsCApi::Require(node != child);
        Record(node).Children.push_back(&Record(child));
    });
}

QsStatus QsXmlNode_TakeChild(QsXmlNode* node, std::int32_t index, QsXmlNode** child) {
    return Call(
        [&] {
            std::vector<XMLNode*>& children = Record(node).Children;
            *child = HandleOf(QsCApi::At(children, index));
            children.erase(children.begin() + index);
        },
        child);
}
