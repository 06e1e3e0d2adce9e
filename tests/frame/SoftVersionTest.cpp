#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils.h"

namespace {

TEST(SoftVersion, IsEmptyUntilAHostSetsIt) {
    // The first look at it, whatever other tests ran before: only this test sets it.
    EXPECT_EQ(IQsUtils::GetSoftVersion(), u"");
    IQsUtils::SetSoftVersion(u"V8.1.0.2019");
    EXPECT_EQ(IQsUtils::GetSoftVersion(), u"V8.1.0.2019");
    EXPECT_EQ(IQsUtils::m_strSoftVersion, u"V8.1.0.2019");
    CString copy = IQsUtils::GetSoftVersion();
    copy += u"x";
    EXPECT_EQ(IQsUtils::GetSoftVersion(), u"V8.1.0.2019");
    IQsUtils::SetSoftVersion(u"");
    EXPECT_EQ(IQsUtils::GetSoftVersion(), u"");
}

}  // namespace
