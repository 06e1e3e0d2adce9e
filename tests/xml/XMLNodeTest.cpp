#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "QsUtils/xml/XMLNode.h"

#include "tests/support/SmallStack.h"

namespace {

XMLNode* Child(const wchar_t* name) {
    auto* node = new XMLNode;
    node->Name = name;
    return node;
}

TEST(XMLNodeTree, FindsTheFirstChildOfAName) {
    XMLNode root;
    root.Children = {Child(L"b"), Child(L"a"), nullptr, Child(L"a")};
    root.Children[0]->Children = {Child(L"deep")};
    EXPECT_EQ(root.FindChildNode(L"a"), root.Children[1]);
    EXPECT_EQ(root.FindChildNode(L"A"), nullptr);
    EXPECT_EQ(root.FindChildNode(L"aa"), nullptr);
    EXPECT_EQ(root.FindChildNode(L""), nullptr);
    EXPECT_EQ(root.FindChildNode(L"deep"), nullptr) << "only among the direct children";
}

TEST(XMLNodeTree, ANewRecordIsEmpty) {
    const XMLNode node;
    EXPECT_TRUE(node.Name.empty() && node.Text.empty() && node.Extra.empty());
    EXPECT_TRUE(node.Attributes.empty());
    EXPECT_TRUE(node.Children.empty());
    static_assert(!std::is_copy_constructible_v<XMLNode>, "two owners of one child");
    static_assert(!std::is_copy_assignable_v<XMLNode>);
}

TEST(XMLNodeTree, IsFreedWithoutRecursionHoweverItIsShaped) {
    RunOnSmallStack(std::size_t{256} << 10, [] {
        for (const int width : {1, 2, 3}) {
            auto root = std::make_unique<XMLNode>();
            XMLNode* last = root.get();
            for (int depth = 0; depth < 300'000; ++depth) {
                for (int i = 0; i < width; ++i)
                    last->Children.push_back(i == 1 ? nullptr : new XMLNode);
                last = last->Children[depth % 2 == 0 ? 0 : last->Children.size() - 1] != nullptr
                           ? last->Children[depth % 2 == 0 ? 0 : last->Children.size() - 1]
                           : last->Children[0];
            }
        }
    });
}

TEST(XMLNodeTree, APartCanBeTakenOutAndFreedAlone) {
    XMLNode root;
    root.Children = {Child(L"a"), Child(L"b")};
    root.Children[0]->Children = {Child(L"c")};
    const std::unique_ptr<XMLNode> part(root.Children[0]);
    root.Children.erase(root.Children.begin());
    EXPECT_EQ(part->Children.size(), 1u);
    EXPECT_EQ(root.Children.size(), 1u);
}

}  // namespace
