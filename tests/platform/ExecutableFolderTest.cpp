#include <filesystem>

#include <gtest/gtest.h>

#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Process.h"

namespace {

TEST(ExecutableFolder, IsThatOfTheExecutableWithoutABackslashAtItsEnd) {
    const CString folder = QsPlatform::ExecutableFolder();
    ASSERT_FALSE(folder.IsEmpty());
    EXPECT_NE(folder.Right(1), u"\\");
    EXPECT_EQ(ToNativePath(folder), ToNativePath(QsPlatform::ExecutablePath()).parent_path());
    EXPECT_TRUE(std::filesystem::is_directory(ToNativePath(folder)));
}

}  // namespace
