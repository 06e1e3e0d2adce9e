// The folder of the module: here that of the program, which holds the objects itself.
#include <gtest/gtest.h>

#include "QsUtils/platform/ModuleFolder.h"
#include "QsUtils/platform/Process.h"

namespace {

TEST(ModuleFolder, ItIsTheProgramsForWhatIsPartOfIt) {
    const CString program = QsPlatform::ExecutablePath();
    EXPECT_EQ(QsPlatform::ModuleFolder(), program.Left(program.ReverseFind(u'\\') + 1));
    EXPECT_EQ(QsPlatform::ModuleFolder().Right(1), u"\\");
}

}  // namespace
