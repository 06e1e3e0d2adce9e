// A process that may be killed is this program once more, with arguments of its own.
#include <cstdlib>
#include <string>

#include <windows.h>
#include <gtest/gtest.h>

#include "tests/backup/faults/Operations.h"
#include "tests/backup/faults/Point.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Escapes.h"

namespace {

constexpr const char* Apart = "--apart";

std::filesystem::path theProgram;

}  // namespace

bool CarryApart(Operation operation, const CString& project, const FaultPoints::Plan& plan) {
    const ProgramCall call{theProgram,
                           {Apart, std::to_string(static_cast<int>(operation)), Escaped(project.View()),
                            FaultPoints::TextOf(plan)},
                           {},
                           {}};
    const ProgramResult result = RunProgram(call);
    EXPECT_TRUE(result.status == 0 || result.status == FaultPoints::KilledStatus)
        << result.status << (result.isStarted ? "" : ", not started") << ": " << result.err;
    return result.status == 0;
}

int main(int argc, char** argv) {
    theProgram = std::filesystem::absolute(argv[0]);
    if (argc == 5 && std::string(argv[1]) == Apart) {
        FaultPoints::Arm(FaultPoints::PlanOf(argv[4]));
        Carry(static_cast<Operation>(std::atoi(argv[2])), CString(Unescaped(argv[3])));
        return 0;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
