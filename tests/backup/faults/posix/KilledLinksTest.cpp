// Drawings that are links, to files that are marked as read-only.
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/backup/faults/BackUpFault.h"

namespace {

namespace fs = std::filesystem;

class LinkedFiles : public BackUpFault {
protected:
    void SetUp() override {
        for (const char* name : {"symbol", "frame"}) {
            m_library.Write(name, std::string("from the library: ") + name);
            fs::permissions(m_library.File(name), fs::perms::owner_write, fs::perm_options::remove);
        }
        m_project.decorate = [this] {
            for (const fs::path& folder : {m_project.Graphics(), m_project.SavedGraphics()}) {
                fs::remove(folder / "plan.dwg");
                fs::create_symlink(m_library.File("symbol"), folder / "plan.dwg");
            }
            fs::create_symlink(m_library.File("frame"), m_project.Graphics() / "a/frame");
            fs::create_symlink(m_library.File("frame"), m_project.SavedGraphics() / "a/b/frame");
            WriteBytes(m_project.SavedGraphics() / "a/frame", "a former frame");
        };
    }

    const TemporaryFolder m_library;
};

TEST_P(LinkedFiles, AKilledSave) {
    AllowOutcomesOf(Operation::Save);
    KillEverywhere(Operation::Save, Operation::Look);
}

TEST_P(LinkedFiles, AKilledDiscard) {
    AllowOutcomesOf(Operation::Discard);
    KillEverywhere(Operation::Discard, Operation::Look);
}

TEST_P(LinkedFiles, ACopyOfAMarkedFileIsRenewedByTheNextSave) {
    m_project.Reset();
    Carry(Operation::Open, m_project.Path());
    const fs::path symbol = m_library.File("symbol");
    fs::remove(symbol);
    m_library.Write("symbol", "a new symbol");
    Carry(Operation::Change, m_project.Path());
    Carry(Operation::Save, m_project.Path());
    EXPECT_EQ(BytesOf(m_project.SavedGraphics() / "plan.dwg"), "a new symbol");
}

INSTANTIATE_TEST_SUITE_P(Ways, LinkedFiles, AllWays(), NameOfWays);

}  // namespace
