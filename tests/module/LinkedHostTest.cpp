// A host linked with the module, as executables of the product are.
#include <memory>
#include <type_traits>

#include <QsUtils/QsUtils.h>
#include <gtest/gtest.h>

namespace {

TEST(LinkedHost, TheVersionTextIsOneObjectForHostAndModule) {
    EXPECT_TRUE(IQsUtils::GetSoftVersion().IsEmpty());
    IQsUtils::m_strSoftVersion = u"V1";
    EXPECT_EQ(IQsUtils::GetSoftVersion(), u"V1");
    IQsUtils::SetSoftVersion(u"a version text that is too long for the object itself");
    EXPECT_EQ(IQsUtils::m_strSoftVersion, u"a version text that is too long for the object itself");
    IQsUtils::SetSoftVersion(CString());
    EXPECT_TRUE(IQsUtils::GetSoftVersion().IsEmpty());
}

TEST(LinkedHost, FacadesCanBeMadeCopiedAndDerivedFrom) {
    IQsUtils first;
    IQsUtils second(first);
    second = first;
    IQsUtils1 third;
    IQsUtils1 fourth(third);
    fourth = third;
    struct Derived : IQsUtils {
        explicit Derived(bool& gone) : m_gone(gone) {}
        ~Derived() override { m_gone = true; }
        bool& m_gone;
    };
    bool gone = false;
    { const std::unique_ptr<IQsUtils> derived = std::make_unique<Derived>(gone); }
    EXPECT_TRUE(gone);
    static_assert(sizeof(IQsUtils) == sizeof(void*), "a facade has no fields");
    static_assert(sizeof(IQsUtils1) == sizeof(void*), "a facade has no fields");
}

TEST(LinkedHost, AnExceptionIsCaughtAsItsTypeAndAsItsBase) {
    EXPECT_THROW(static_cast<void>(CString(u"abc").GetAt(4)), CAtlException);
    EXPECT_THROW(static_cast<void>(CString(u"abc").GetAt(-1)), std::exception);
    EXPECT_THROW(CString(u"abc").SetAt(3, u'd'), CAtlException);
    EXPECT_THROW(CStringArray().GetAt(0), CAtlException);
}

TEST(LinkedHost, ANodeMadeInTheModuleIsDeletedByTheHost) {
    std::int32_t error = -1;
    ExpressionAnalyse::IExpressionNode* root =
        ExpressionAnalyse::GetExpressionAnalyser()->AnalyseExpression(u"(1+A)*3", &error);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(error, 0);
    ExpressionAnalyse::IExpressionNode* group = root->GetLeftNode();
    root->SetLeftNode(nullptr);
    delete root;
    EXPECT_EQ(group->CalcValue(), 1);
    delete group;
}

TEST(LinkedHost, TheAnalyserIsAlwaysTheSame) {
    EXPECT_EQ(ExpressionAnalyse::GetExpressionAnalyser(), ExpressionAnalyse::GetExpressionAnalyser());
}

}  // namespace
