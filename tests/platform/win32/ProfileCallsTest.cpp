// The system's own calls, asked what the engine for profile files is held to.
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/platform/win32/Windows.h"

#include "tests/platform/Fixture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using QsPlatform::SystemUnits;

/// A file of its own for each question: the system remembers files by name and time.
class Question {
public:
    explicit Question(const std::string& field) {
        if (field != "(none)")
            m_folder.Write("a.ini", Fixture::Bytes(field));
    }

    CString Path() const { return m_folder.Text("a.ini"); }
    std::u16string Ask(const std::u16string& section, const std::u16string& key,
                       const std::u16string& fallback, std::size_t size) const {
        const std::u16string path(Path().View());
        std::u16string buffer(size + 1, u'\0');
        buffer.resize(::GetPrivateProfileStringW(SystemUnits(section.c_str()), SystemUnits(key.c_str()),
                                                 SystemUnits(fallback.c_str()), SystemUnits(buffer.data()),
                                                 static_cast<DWORD>(size), SystemUnits(path.c_str())));
        return buffer;
    }

private:
    TemporaryFolder m_folder;
};

TEST(ProfileCalls, ReadWhatIsRecorded) {
    for (const std::string& line : Fixture::Lines("profile_files.txt")) {
        const std::vector<std::string> fields = Fixture::Fields(line);
        if (fields.at(0) != "read")
            continue;
        const Question question(fields.at(1));
        EXPECT_EQ(CString(question.Ask(Fixture::Text(fields.at(2)), Fixture::Text(fields.at(3)),
                                       Fixture::Text(fields.at(4)), std::stoul(fields.at(5)))),
                  CString(Fixture::Text(fields.at(6))))
            << line;
    }
}

TEST(ProfileCalls, ReadWhatTheEngineHasWritten) {
    for (const std::string& line : Fixture::Lines("profile_files.txt")) {
        const std::vector<std::string> fields = Fixture::Fields(line);
        if (fields.at(0) != "write")
            continue;
        const Question question(fields.at(1));
        EXPECT_TRUE(QsPlatform::WriteProfileValue(question.Path(), Fixture::Text(fields.at(2)),
                                                  Fixture::Text(fields.at(3)), Fixture::Text(fields.at(4))));
        EXPECT_EQ(CString(question.Ask(Fixture::Text(fields.at(5)), Fixture::Text(fields.at(6)), u"(default)",
                                       128)),
                  CString(Fixture::Text(fields.at(7))))
            << line;
    }
}

}  // namespace
