// Hosts with an application of their own, without one, and without a display, each a process of its own.
#include <filesystem>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/ChildProcess.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// A copy of the sample, which dialogs may change.
class SampleCopy {
public:
    SampleCopy() {
        std::filesystem::copy(SAMPLE_INSTALLATION, Folder(), std::filesystem::copy_options::recursive);
    }
    std::filesystem::path Folder() const { return m_root.File("installation"); }

private:
    TemporaryFolder m_root;
};

/// A screen that nobody sees, for all tests of this process.
class Screen : public testing::Environment {
public:
    void SetUp() override {
        ProgramCall call{"/usr/bin/Xvfb",
                         {"-displayfd", "1", "-noreset", "-screen", "0", "1024x768x24", "-nolisten", "tcp"},
                         {},
                         {}};
        m_server = std::make_unique<RunningProgram>(call);
        m_name = ":" + m_server->ReadLine();
    }
    void TearDown() override {
        if (m_server != nullptr)
            m_server->Kill();
        m_server.reset();
    }
    const std::string& Name() const { return m_name; }

private:
    std::unique_ptr<RunningProgram> m_server;
    std::string m_name;
};

Screen* const theScreen = [] {
    auto screen = std::make_unique<Screen>();
    testing::AddGlobalTestEnvironment(screen.get());
    return screen.release();  // the framework's from now on
}();

using Environment = std::vector<std::pair<std::string, std::string>>;

/// Qt keeps to itself what a platform lacks.
Environment WithoutDisplay() {
    return {{"DISPLAY", ""},
            {"WAYLAND_DISPLAY", ""},
            {"QT_QPA_PLATFORM", ""},
            {"QT_LOGGING_RULES", "*.warning=false"}};
}

Environment On(const std::string& platform) {
    Environment environment = WithoutDisplay();
    if (platform == "xcb")
        environment[0].second = theScreen->Name();
    environment[2].second = platform;
    return environment;
}

ProgramResult RunPlain(std::vector<std::string> actions, const Environment& environment,
                       const std::filesystem::path& program = PLAIN_DIALOG_HOST) {
    return RunProgram({program, std::move(actions), environment, {}});
}

// --- Dialogs that are used

/// By the kind of host and the platform.
class DialogHosts : public testing::TestWithParam<std::tuple<std::string, std::string>> {
protected:
    ProgramResult Run(const std::string& action, const std::string& argument = {}) const {
        const auto& [mode, platform] = GetParam();
        return RunProgram(
            {DIALOG_HOST, {mode, m_sample.Folder().string(), action, argument}, On(platform), {}});
    }
    std::string Path(const char* file) const { return (m_sample.Folder() / file).string(); }

    SampleCopy m_sample;
};

constexpr const char* rows =
    "一般计税\t墨衡清单定额库\\上海\\2016预算定额\\取费模板\\费用汇总模板\\一般计税.fyt\n"
    "本单位一般计税\t墨衡造价V7.1\\模板\\费用汇总模板\\本单位一般计税.fyt\n";

TEST_P(DialogHosts, ARowIsPickedAndConfirmed) {
    const ProgramResult own = Run("pick", "1");
    EXPECT_EQ(own.out, rows + ("picked: [" + Path("模板/费用汇总模板/本单位一般计税.fyt") + "]\n"));
    EXPECT_EQ(own.status, 0);
    EXPECT_EQ(own.err, "");
    const ProgramResult library = Run("pick", "0");
    EXPECT_EQ(
        library.out,
        rows + ("picked: [" + Path("Library/上海/2016预算定额/取费模板/费用汇总模板/一般计税.fyt") + "]\n"));
}

TEST_P(DialogHosts, WithoutARowAMessageIsShownAndTheDialogStays) {
    const ProgramResult result = Run("nothing");
    EXPECT_EQ(result.out, "message: 墨衡造价\nopen: 1\npicked: []\n");
    EXPECT_EQ(result.status, 0);
}

TEST_P(DialogHosts, CancellingGivesNothing) {
    EXPECT_EQ(Run("cancel", "1").out, std::string(rows) + "picked: []\n");
}

TEST_P(DialogHosts, AFolderIsChosen) {
    const ProgramResult result = Run("folder", Path("Library"));
    EXPECT_EQ(result.out, "folder: [" + Path("Library") + "]\n");
    EXPECT_EQ(result.status, 0);
}

TEST_P(DialogHosts, ATipIsShownAfterItsDelayAndClosed) {
    const ProgramResult result = Run("tip");
    EXPECT_EQ(result.out, "tip at 40\nclosed\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
}

/// By the kind of host.
class HostsOfOneKind : public testing::TestWithParam<std::string> {
protected:
    ProgramResult Run(const std::string& action, const std::string& argument = {},
                      const std::string& platform = "offscreen") const {
        return RunProgram(
            {DIALOG_HOST, {GetParam(), m_sample.Folder().string(), action, argument}, On(platform), {}});
    }
    std::string Own() const {
        return "picked: [" + (m_sample.Folder() / "模板/费用汇总模板/本单位一般计税.fyt").string() + "]\n";
    }

    SampleCopy m_sample;
};

class HostsWithAnApplication : public HostsOfOneKind {};

TEST_P(HostsWithAnApplication, QuittingCancelsWhatIsOpen) {
    for (const char* action : {"quit", "quit-at-message"}) {
        const ProgramResult result = Run(action);
        EXPECT_EQ(result.out, "picked: []\n") << action;
        EXPECT_EQ(result.err, "") << action;
        EXPECT_EQ(result.status, 0) << action;
    }
}

TEST_P(HostsWithAnApplication, AFailureThatTheHostCatchesIsNoMatterToTheDialog) {
    const ProgramResult result = Run("fail");
    EXPECT_EQ(result.out.substr(0, result.out.find("picked")), "caught: a failure of the host's\n");
    EXPECT_NE(result.out.find("picked: [/"), result.out.npos);
    EXPECT_EQ(result.status, 0);
}

INSTANTIATE_TEST_SUITE_P(AllKinds, HostsWithAnApplication, testing::Values("own", "worker"),
                         [](const auto& kind) { return kind.param; });

class HostsOfSeveralThreads : public HostsOfOneKind {};

TEST_P(HostsOfSeveralThreads, EachThreadHasItsOwnDialog) {
    for (const char* platform : {"offscreen", "xcb"}) {
        const ProgramResult result = Run("threads", "4", platform);
        EXPECT_EQ(result.out, Own() + Own() + Own() + Own());
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, HostsOfSeveralThreads, testing::Values("worker", "none"),
                         [](const auto& kind) { return kind.param; });

class HostsWithoutAnApplication : public HostsOfOneKind {};

TEST_P(HostsWithoutAnApplication, AHostMayEndWhileADialogIsOpen) {
    for (const char* platform : {"offscreen", "xcb"}) {
        const ProgramResult result = Run("leave", {}, platform);
        EXPECT_EQ(result.out, "leaving\n");
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, HostsWithoutAnApplication, testing::Values("none"),
                         [](const auto& kind) { return kind.param; });

TEST(DialogOfAnotherThread, EndsWithTheApplication) {
    const SampleCopy sample;
    for (int round = 0; round < 5; ++round) {
        const ProgramResult result =
            RunProgram({DIALOG_HOST, {"worker", sample.Folder().string(), "quit"}, On("offscreen"), {}});
        EXPECT_EQ(result.out, "picked: []\n");
        EXPECT_EQ(result.status, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, DialogHosts,
                         testing::Combine(testing::Values("own", "worker", "none"),
                                          testing::Values("xcb", "offscreen")),
                         [](const auto& kind) {
                             return std::get<0>(kind.param) + "_" + std::get<1>(kind.param);
                         });

// --- Dialogs that can't be shown

constexpr const char* noDisplay = "QsUtils: no dialog can be shown: there is no display.\n";

TEST(PlainHost, WithoutADisplayDialogsAnswerAsIfCancelled) {
    const ProgramResult result = RunPlain({"fee", "report", "folder"}, WithoutDisplay());
    EXPECT_EQ(result.out, "fee: []\nreport: []\nfolder: []\n");
    EXPECT_EQ(result.err, std::string(noDisplay) + noDisplay + noDisplay);
    EXPECT_EQ(result.status, 0);
}

TEST(PlainHost, WithoutADisplayTheTipSaysSoOnceAndDoesNothing) {
    const ProgramResult result = RunPlain({"tip", "tip", "tip", "qt"}, WithoutDisplay());
    EXPECT_EQ(result.out, "longer: 0\nlonger: 0\nlonger: 0\nno Qt\n");
    EXPECT_EQ(result.err, noDisplay);
    EXPECT_EQ(result.status, 0);
}

TEST(PlainHost, ADisplayThatDoesntAnswerIsNone) {
    Environment environment = WithoutDisplay();
    environment[0].second = ":48761";
    const ProgramResult result = RunPlain({"fee"}, environment);
    EXPECT_EQ(result.out, "fee: []\n");
    EXPECT_EQ(result.err, "QsUtils: no dialog can be shown: the display can't be used (xcb).\n");
    EXPECT_EQ(result.status, 0);
}

TEST(PlainHost, QtComesWithTheFirstDialogAndNeverBefore) {
    const ProgramResult result = RunPlain({"texts", "close", "qt", "tip", "qt"}, On("offscreen"));
    EXPECT_EQ(result.out, "1.50\nno Qt\nlonger: 1\nQt is there\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
}

TEST(PlainHost, ItsLocaleStays) {
    EXPECT_EQ(RunPlain({"tip", "locale"}, On("offscreen")).out, "longer: 1\nlocale: C\n");
}

TEST(PlainHost, ItEndsCleanlyWithTheTipShown) {
    for (int round = 0; round < 5; ++round)
        EXPECT_EQ(RunPlain({"tip"}, On("xcb")).status, 0);
}

TEST(PlainHost, QtSaysNothingAtItsEnd) {
    const SampleCopy sample;
    Environment environment = On("xcb");
    environment.pop_back();  // the rules by which Qt keeps its warnings to itself
    environment.emplace_back("XDG_RUNTIME_DIR", (sample.Folder() / "Library").string());
    std::filesystem::permissions(sample.Folder() / "Library", std::filesystem::perms::owner_all);
    const ProgramResult result =
        RunProgram({DIALOG_HOST, {"none", sample.Folder().string(), "cancel", "1"}, environment, {}});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
}

TEST(ReloadingHost, TheLibraryLeavesEachTimeAndFindsQtAgain) {
    for (const char* platform : {"offscreen", "xcb"}) {
        const ProgramResult result = RunProgram({RELOAD_HOST, {QSUTILS_MODULE, "50"}, On(platform), {}});
        EXPECT_EQ(result.out, "gone 50 times\n");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
    }
}

TEST(ReloadingHost, TheLibraryLeavesAfterItsDialogs) {
    for (const char* kind : {"own", "none"}) {
        const ProgramResult result =
            RunProgram({PLUGIN_HOST, {kind, DIALOG_PLUGIN, QSUTILS_MODULE, "10"}, On("offscreen"), {}});
        EXPECT_EQ(result.out, "gone 10 times\n") << kind;
        EXPECT_EQ(result.status, 0) << kind;
        EXPECT_EQ(result.err, "") << kind;
    }
}

/// The library in a folder of its own, with or without its views.
class MovedLibrary : public testing::Test {
protected:
    void SetUp() override {
        const std::filesystem::path library(QSUTILS_MODULE);
        std::filesystem::copy_file(std::filesystem::canonical(library), m_root.File("libQsUtils.so.1"));
    }
    ProgramResult Run(std::vector<std::string> actions) const {
        Environment environment = On("offscreen");
        environment.emplace_back("LD_LIBRARY_PATH", m_root.Path().string());
        return RunPlain(std::move(actions), environment);
    }

    std::filesystem::path ViewsModule() const { return m_root.File("qsutils-1/QsUtilsQt.so"); }

    TemporaryFolder m_root;
};

TEST_F(MovedLibrary, WithoutItsModuleDialogsAnswerAsIfCancelled) {
    const ProgramResult result = Run({"tip", "fee", "folder", "qt"});
    const std::string missing =
        "QsUtils: no dialog can be shown: " + ViewsModule().string() + " can't be loaded.\n";
    EXPECT_EQ(result.out, "longer: 0\nfee: []\nfolder: []\nno Qt\n");
    EXPECT_EQ(result.err, missing + missing + missing);
    EXPECT_EQ(result.status, 0);
}

TEST_F(MovedLibrary, TheModuleIsFoundBelowItsFolder) {
    std::filesystem::create_directory(ViewsModule().parent_path());
    std::filesystem::copy_file(QT_VIEWS_MODULE, ViewsModule());
    const ProgramResult result = Run({"tip", "qt"});
    EXPECT_EQ(result.out, "longer: 1\nQt is there\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(MovedLibrary, AModuleOfAnotherKindIsNone) {
    m_root.Write("qsutils-1/QsUtilsQt.so", "no module");
    EXPECT_EQ(Run({"fee"}).out, "fee: []\n");
    std::filesystem::remove(ViewsModule());
    std::filesystem::copy_file(std::filesystem::canonical(QSUTILS_MODULE), ViewsModule());
    const ProgramResult result = Run({"fee"});
    EXPECT_EQ(result.out, "fee: []\n");
    EXPECT_EQ(result.err,
              "QsUtils: no dialog can be shown: the module of the views is of another version.\n");
}

}  // namespace
