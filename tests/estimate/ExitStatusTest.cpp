// The numbers that the program returns, on which scripts rely.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ArgumentFolder.h"
#include "TestSupport.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Devices.h"

namespace {

const std::string Good = std::string(Headings) + "010401001001,砖基础,,m3,10,100\n";
const std::string OneBadRow = Good + "4-1,a,,m3,?,1\n";

using Arguments = std::vector<std::string>;

void Expect(int status, const Arguments& arguments, const std::string& input = {}) {
    for (const auto language : {Estimate::Language::English, Estimate::Language::Chinese}) {
        const ProgramRun run = RunEstimate(arguments, input, language);
        EXPECT_EQ(run.status, status) << testing::PrintToString(arguments) << run.err;
        if (status > 0) {
            EXPECT_NE(run.err, "") << testing::PrintToString(arguments);
        }
    }
}

}  // namespace

TEST(ExitStatus, TheNumbersAreFixed) {
    EXPECT_EQ(static_cast<int>(Estimate::AllDone), 0);
    EXPECT_EQ(static_cast<int>(Estimate::SomeBad), 1);
    EXPECT_EQ(static_cast<int>(Estimate::CannotRun), 2);
}

TEST(ExitStatus, NullWhenAllIsDone) {
    Expect(0, {"--help"});
    Expect(0, {"--help-all"});
    Expect(0, {"--version"});
    Expect(0, {"price", "--help"});
    Expect(0, {"backup", "open", "--help"});
    Expect(0, {"price", "-"}, Good);
    Expect(0, {"price", "-"}, std::string(Headings) + "010401001001,a,,m3,10-2-3,1\n");
    Expect(0, {"price", "-"}, Headings);
    Expect(0, {"eval", "1+1"});
    Expect(0, {"eval"}, "");
    Expect(0, {"vars", "A"});
    Expect(0, {"capital", "1"});
    Expect(0, {"sort"}, "");
    Expect(0, {"unit", "t", "kg"});
}

TEST(ExitStatus, OneWhenSomeRowsOrArgumentsAreBad) {
    const ArgumentFolder folder;
    Expect(1, {"price", "-"}, OneBadRow);
    Expect(1, {"price", "-", "--json"}, OneBadRow);
    Expect(1, {"price", "-", "--vars", folder.Write("v.csv", "name,value\nA,x\n")}, Good);
    Expect(1, {"price", folder.Write("a.csv", Good), folder.Write("b.csv", OneBadRow)});
    Expect(1, {"eval", "1", "X"});
    Expect(1, {"capital", "1", "x"});
    Expect(1, {"capital", "--plain", "1.5"});
    Expect(1, {"unit", "t", "m3"});
    Expect(1, {"extra-costs", "none.zkx", "-f", "none"});
    Expect(1, {"marks", "taxes", "--folder", "none"});
}

TEST(ExitStatus, TwoForWrongUsage) {
    for (const Arguments& arguments : {Arguments{},
                                       {"unknown"},
                                       {"price"},
                                       {"price", "-", "--bom"},
                                       {"price", "-", "--nonsense"},
                                       {"backup"},
                                       {"backup", "shut"},
                                       {"sort", "-k", "x"},
                                       {"eval", "1", "--var", "A"},
                                       {"eval", "1", "-q", "x"},
                                       {"--installation", "/none", "unit", "t"},
                                       {"convert", "-", "-o", "x.txt"}})
        Expect(2, arguments);
}

TEST(ExitStatus, TwoWhenAnInputCannotBeRead) {
    const ArgumentFolder folder;
    Expect(2, {"price", folder.Path("none.csv")});
    Expect(2, {"price", folder.Path("")});
    Expect(2, {"price", "-", "--vars", folder.Path("none.csv")}, Good);
    Expect(2, {"price", "-"}, "no table\n");
    Expect(2, {"price", "-"}, std::string("a\0b", 3));
    Expect(2, {"price", folder.Write("p.xml", "<Other/>")});
    Expect(2, {"price", folder.Write("broken.xml", "<Project><Bill>")});
    Expect(2, {"price", folder.Write("a.csv", Good), folder.Path("none.csv")});
    Expect(2, {"convert", folder.Path("none.csv"), "-o", folder.Path("x.xml")});
    Expect(2, {"overview", folder.Path("none.xml")});
    Expect(2, {"eval", "1", "--vars", folder.Path("none.csv")});
    Expect(2, {"backup", "open", folder.Path("none.gcs")});
    Expect(2, {"price", "-", "--extra-costs", "none.zkx", "-f", "none"}, Good);
}

TEST(ExitStatus, TwoWhenAnOutputCannotBeWritten) {
    const ArgumentFolder folder;
    Expect(2, {"price", "-", "-o", folder.Path("none/x.txt")}, Good);
    Expect(2, {"convert", "-", "-o", folder.Path("none/x.xml")}, Good);
    Expect(2, {"convert", "-", "-o", folder.Path("x.xml"), "--vars-out", folder.Path("none/v.csv")}, Good);
    if (const auto device = FullDevice())
        Expect(2, {"price", "-", "-o", *device}, Good);
}

TEST(ExitStatus, TwoWhenAConversionWouldLoseSomething) {
    const ArgumentFolder folder;
    Expect(2, {"convert", "-", "-o", folder.Path("x.xml")}, Good + "4-1,a\x01,,m3,1,1\n");
}

TEST(ExitStatus, TwoWhenStandardOutputCannotBeWritten) {
    for (const Arguments& arguments :
         {Arguments{"capital", "1"}, {"--help"}, {"--version"}, {"price", "-"}}) {
        std::istringstream in(Good);
        std::ostream full(nullptr);
        std::ostringstream err;
        EXPECT_EQ(Estimate::Run(arguments, {in, full, err, false, Estimate::Language::Chinese}), 2);
        EXPECT_EQ(err.str(), "estimate: 无法写入标准输出\n") << arguments[0];
    }
}

TEST(ExitStatus, IsThatOfTheProcess) {
    const auto statusOf = [](const Arguments& arguments) {
        ProgramCall call;
        call.program = ESTIMATE_PROGRAM;
        call.arguments = arguments;
        return RunProgram(call).status;
    };
    EXPECT_EQ(statusOf({"eval", "1"}), 0);
    EXPECT_EQ(statusOf({"eval", "X"}), 1);
    EXPECT_EQ(statusOf({"eval"}), 0);
    EXPECT_EQ(statusOf({"unknown"}), 2);
}

TEST(ExitStatus, VersionsStandOneALine) {
    ProgramCall call;
    call.program = ESTIMATE_PROGRAM;
    call.arguments = {"--version"};
    const ProgramResult result = RunProgram(call);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "estimate " ESTIMATE_VERSION "\nQsUtils " + std::string(QsUtilsVersion()) + "\n");
    EXPECT_STREQ(QsUtilsVersion(), ESTIMATE_VERSION);  // both are built from one tree here
}
