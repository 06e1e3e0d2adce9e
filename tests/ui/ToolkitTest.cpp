// When views are looked for, and what is said when there are none.
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/ui/Toolkit.h"

#include "tests/ui/FakeViews.h"

namespace {

FakeViews views;
bool hasViews = false;
int searches = 0;

QsUi::OpenedViews Open() {
    ++searches;
    QsUi::OpenedViews opened;
    if (hasViews)
        opened.views = &views;
    else
        opened.reason = u"no views";
    return opened;
}

class ToolkitViews : public testing::Test {
protected:
    void SetUp() override {
        hasViews = false;
        searches = 0;
        testing::internal::CaptureStderr();
    }
    static std::string Said() {
        std::string said = testing::internal::GetCapturedStderr();
        std::erase(said, '\r');
        return said;
    }

    QsUi::Toolkit toolkit{Open};
};

TEST_F(ToolkitViews, TheyAreLookedForAtTheFirstDialogAndKept) {
    hasViews = true;
    EXPECT_EQ(searches, 0);
    EXPECT_EQ(toolkit.ForTip(), &views);
    EXPECT_EQ(toolkit.ForDialog(), &views);
    EXPECT_EQ(toolkit.ForTip(), &views);
    EXPECT_EQ(searches, 1);
    EXPECT_EQ(Said(), "");
}

TEST_F(ToolkitViews, EveryDialogSaysSoAndTheNextOneLooksAgain) {
    EXPECT_EQ(toolkit.ForDialog(), nullptr);
    EXPECT_EQ(toolkit.ForDialog(), nullptr);
    hasViews = true;
    EXPECT_EQ(toolkit.ForDialog(), &views);
    EXPECT_EQ(searches, 3);
    EXPECT_EQ(Said(), "no views\nno views\n");
}

TEST_F(ToolkitViews, TheTipSaysSoOnce) {
    for (int call = 0; call < 100; ++call)
        EXPECT_EQ(toolkit.ForTip(), nullptr);
    EXPECT_EQ(searches, 1);
    EXPECT_EQ(Said(), "no views\n");
    hasViews = true;
    EXPECT_EQ(toolkit.ForTip(), nullptr);
    toolkit.ForDialog();
    EXPECT_EQ(toolkit.ForTip(), &views) << "a dialog has found them meanwhile";
}

}  // namespace
