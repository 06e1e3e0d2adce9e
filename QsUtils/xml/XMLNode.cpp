#include "QsUtils/xml/XMLNode.h"

// A tree may be deeper than the stack, and a destructor has no memory to ask for. On the way down the slot
// that held a child holds the way back up instead.
XMLNode::~XMLNode() {
    XMLNode* parent = nullptr;
    XMLNode* node = this;
    for (;;) {
        std::vector<XMLNode*>& children = node->Children;
        if (!children.empty()) {
            if (XMLNode* const child = children.back()) {
                children.back() = parent;
                parent = node;
                node = child;
            } else {
                children.pop_back();
            }
        } else if (node == this) {
            return;
        } else {
            delete node;  // without children by now
            node = parent;
            parent = node->Children.back();
            node->Children.pop_back();
        }
    }
}

XMLNode* XMLNode::FindChildNode(const std::wstring& name) const {
    for (XMLNode* const child : Children) {
        if (child != nullptr && child->Name == name)
            return child;
    }
    return nullptr;
}
