// The views of a process that has no screen, as these tests are run; where there is one, others look at them.
#include <gtest/gtest.h>

#include "QsUtils/platform/win32/Screen.h"
#include "QsUtils/ui/CFolderDialog.h"
#include "QsUtils/ui/Toolkit.h"

namespace {

TEST(OpenViews, ThereAreNoneWithoutAScreenAndTheReasonIsTold) {
    if (QsPlatform::HasScreen())
        GTEST_SKIP() << "there is a screen";
    const QsUi::OpenedViews opened = QsUi::OpenViews();
    EXPECT_EQ(opened.views, nullptr);
    EXPECT_EQ(opened.reason, u"QsUtils: no dialog can be shown: there is no screen.");
    QsUi::Toolkit toolkit;
    testing::internal::CaptureStderr();
    EXPECT_EQ(QsUi::SelectFolder(toolkit.ForDialog()), u"");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "QsUtils: no dialog can be shown: there is no screen.\n");
}

}  // namespace
