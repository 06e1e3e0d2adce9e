// The folder of the module: here that of the program, which holds the objects itself.
#include <gtest/gtest.h>

#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/ModuleFolder.h"

namespace {

TEST(ModuleFolder, ItIsTheProgramsForWhatIsPartOfIt) {
    EXPECT_EQ(QsPlatform::ModuleFolder(), QsPlatform::ExecutableDirectory());
    EXPECT_EQ(QsPlatform::ModuleFolder().Right(1), u"\\");
}

}  // namespace
