// What users typed last, in one process and across several.
#include <algorithm>
#include <list>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/config/InputHistory.h"
#include "QsUtils/platform/CodePage.h"

#include "tests/support/Rounds.h"
#include "tests/support/TemporaryFolder.h"

using QsConfig::HistoryMap;
using Entries = std::list<CString>;

namespace {

CString Number(int number) {
    CString text;
    text.Format(u"%d", number);
    return text;
}

class InputHistory : public testing::Test {
protected:
    void Write(const CString& section, const CString& value) {
        QsConfig::WriteHistory(m_kept, m_path, section, value);
    }
    Entries Get(const CString& section) {
        Entries entries;
        QsConfig::GetHistory(m_kept, m_path, section, entries);
        return entries;
    }
    void Restart() { m_kept.clear(); }
    std::string File() const { return m_folder.Read("HistoryInput.ini"); }
    void Lay(std::string_view contents) { m_folder.Write("HistoryInput.ini", contents); }

    TemporaryFolder m_folder;
    CString m_path = m_folder.Text("HistoryInput.ini");
    HistoryMap m_kept;
};

TEST_F(InputHistory, TheNewestComesFirst) {
    Write(u"工程名称", u"一号楼");
    Write(u"工程名称", u"二号楼");
    EXPECT_EQ(Get(u"工程名称"), (Entries{u"二号楼", u"一号楼"}));
    EXPECT_EQ(File(), QsPlatform::EncodeAnsi(std::u16string_view(u"[工程名称]\r\n1=二号楼\r\n2=一号楼\r\n")));
}

TEST_F(InputHistory, TenAreKept) {
    for (int number = 1; number <= 11; ++number)
        Write(u"S", Number(number));
    EXPECT_EQ(Get(u"S"), (Entries{u"11", u"10", u"9", u"8", u"7", u"6", u"5", u"4", u"3", u"2"}));
    EXPECT_NE(File().find("\r\n10=2\r\n"), std::string::npos);
    EXPECT_EQ(File().find("\r\n0="), std::string::npos);
    EXPECT_EQ(File().find("\r\n11="), std::string::npos);
}

TEST_F(InputHistory, NineOfThemOutlastTheProcess) {
    for (int number = 1; number <= 10; ++number)
        Write(u"S", Number(number));
    Restart();
    EXPECT_EQ(Get(u"S"), (Entries{u"10", u"9", u"8", u"7", u"6", u"5", u"4", u"3", u"2"}));
    // The tenth key is written over by the next value.
    Write(u"S", u"11");
    EXPECT_EQ(Get(u"S").size(), 10u);
    EXPECT_NE(File().find("\r\n10=2\r\n"), std::string::npos);
}

TEST_F(InputHistory, AStaleKeyStays) {
    Lay("[S]\r\n1=a\r\n3=c\r\n9=i\r\n10=j\r\n");
    EXPECT_EQ(Get(u"S"), (Entries{u"a", u"c", u"i"}));
    Write(u"S", u"n");
    EXPECT_EQ(File(), "[S]\r\n1=n\r\n3=c\r\n9=i\r\n10=j\r\n2=a\r\n4=i\r\n");
    Restart();
    EXPECT_EQ(Get(u"S"), (Entries{u"n", u"a", u"c", u"i", u"i"}));
}

TEST_F(InputHistory, KeyZeroIsReadAndNeverWritten) {
    Lay("[S]\r\n0=z\r\n1=a\r\n");
    EXPECT_EQ(Get(u"S"), (Entries{u"z", u"a"}));
    Write(u"S", u"n");
    EXPECT_EQ(File(), "[S]\r\n0=z\r\n1=n\r\n2=z\r\n3=a\r\n");
    Restart();
    EXPECT_EQ(Get(u"S"), (Entries{u"z", u"n", u"z", u"a"}));
}

TEST_F(InputHistory, TheFirstEntryAgainChangesNothing) {
    Write(u"S", u"a");
    Lay("[S]\r\n1=other\r\n");
    Write(u"S", u"a");
    EXPECT_EQ(File(), "[S]\r\n1=other\r\n");
    EXPECT_EQ(Get(u"S"), (Entries{u"a"}));
}

TEST_F(InputHistory, AnEntryFurtherOnMovesToTheFront) {
    for (const char16_t* value : {u"d", u"c", u"b", u"a"})
        Write(u"S", value);
    Write(u"S", u"c");
    EXPECT_EQ(Get(u"S"), (Entries{u"c", u"a", u"b", u"d"}));
    EXPECT_EQ(File(), "[S]\r\n1=c\r\n2=a\r\n3=b\r\n4=d\r\n");
}

TEST_F(InputHistory, OnlyTheFirstOccurrenceMoves) {
    Lay("[S]\r\n1=a\r\n2=b\r\n3=b\r\n");
    Write(u"S", u"b");
    EXPECT_EQ(Get(u"S"), (Entries{u"b", u"a", u"b"}));
}

TEST_F(InputHistory, CaseCounts) {
    Write(u"S", u"abc");
    Write(u"S", u"ABC");
    EXPECT_EQ(Get(u"S"), (Entries{u"ABC", u"abc"}));
    Write(u"s", u"x");
    EXPECT_EQ(Get(u"S"), (Entries{u"ABC", u"abc"})) << "another section, though the same one of the file";
    Restart();
    EXPECT_EQ(Get(u"S"), Get(u"s"));
}

TEST_F(InputHistory, AnEmptyValueDoesNothing) {
    Write(u"S", u"");
    EXPECT_FALSE(m_folder.Has("HistoryInput.ini"));
    EXPECT_TRUE(m_kept.empty());
}

TEST_F(InputHistory, AnUnknownSectionIsKeptAsEmpty) {
    EXPECT_EQ(Get(u"S"), Entries{});
    EXPECT_FALSE(m_folder.Has("HistoryInput.ini"));
    Lay("[S]\r\n1=a\r\n");
    EXPECT_EQ(Get(u"S"), Entries{});
}

TEST_F(InputHistory, TheFileIsReadOnceForASection) {
    Lay("[S]\r\n1=a\r\n[T]\r\n1=b\r\n");
    EXPECT_EQ(Get(u"S"), (Entries{u"a"}));
    Lay("[S]\r\n1=x\r\n[T]\r\n1=y\r\n");
    EXPECT_EQ(Get(u"S"), (Entries{u"a"}));
    EXPECT_EQ(Get(u"T"), (Entries{u"y"}));
}

TEST_F(InputHistory, AListThatHoldsSomethingGrowsOnceAndIsThenReplaced) {
    Lay("[S]\r\n1=a\r\n");
    Entries entries = {u"old"};
    QsConfig::GetHistory(m_kept, m_path, u"S", entries);
    EXPECT_EQ(entries, (Entries{u"old", u"a"}));
    entries = {u"other"};
    QsConfig::GetHistory(m_kept, m_path, u"S", entries);
    EXPECT_EQ(entries, (Entries{u"old", u"a"}));
    Write(u"S", u"n");
    EXPECT_EQ(Get(u"S"), (Entries{u"n", u"old", u"a"}));
}

TEST_F(InputHistory, ValuesAreCutWhenTheyAreRead) {
    const CString text(u'x', 200);
    Write(u"S", text);
    EXPECT_EQ(Get(u"S"), (Entries{text}));
    Restart();
    EXPECT_EQ(Get(u"S"), (Entries{text.Left(127)}));
}

TEST_F(InputHistory, AFileThatCantBeWrittenLeavesTheProcessItsEntries) {
    m_path = m_folder.Text("no folder/HistoryInput.ini");
    Write(u"S", u"a");
    Write(u"S", u"b");
    EXPECT_EQ(Get(u"S"), (Entries{u"b", u"a"}));
    Restart();
    EXPECT_EQ(Get(u"S"), Entries{});
}

TEST_F(InputHistory, OtherPartsOfTheFileStay) {
    Lay("; mine\r\n[A]\r\n1 = x\r\n\r\n[S]\r\n1=a\r\nother=1\r\n");
    Write(u"S", u"b");
    EXPECT_EQ(File(), "; mine\r\n[A]\r\n1 = x\r\n\r\n[S]\r\n1=b\r\nother=1\r\n2=a\r\n");
}

/// The same by plain means: the values of the file by number, and the lists of the process.
class PlainHistory {
public:
    std::vector<CString>& Get(const CString& section) {
        if (!m_kept.contains(section)) {
            for (int number = 0; number <= 9; ++number) {
                const CString value = m_file[section][number].Left(127);
                if (!value.IsEmpty())
                    m_kept[section].push_back(value);
            }
        }
        return m_kept[section];
    }
    void Write(const CString& section, const CString& value) {
        std::vector<CString>& entries = Get(section);
        if (value.IsEmpty() || (!entries.empty() && entries.front() == value))
            return;
        if (const auto at = std::find(entries.begin(), entries.end(), value); at != entries.end())
            entries.erase(at);
        entries.insert(entries.begin(), value);
        if (entries.size() > 10)
            entries.pop_back();
        for (std::size_t i = 0; i < entries.size(); ++i)
            m_file[section][static_cast<int>(i) + 1] = entries[i];
    }
    void Restart() { m_kept.clear(); }

private:
    std::map<CString, std::map<int, CString>> m_file;
    std::map<CString, std::vector<CString>> m_kept;
};

TEST_F(InputHistory, RandomUseAsByPlainMeans) {
    std::mt19937 random(93);
    const auto below = [&](unsigned count) { return static_cast<int>(random() % count); };
    PlainHistory plain;
    for (int round = 0; round < Rounds(1'500); ++round) {
        const CString section = u"字段" + Number(below(4));
        const int what = below(20);
        if (what == 0) {
            Restart();
            plain.Restart();
        } else if (what < 4) {
            const std::vector<CString>& expected = plain.Get(section);
            ASSERT_EQ(Get(section), Entries(expected.begin(), expected.end())) << round;
        } else {
            CString value = below(15) == 0 ? CString() : u"值" + Number(below(18));
            if (below(10) == 0)
                value += CString(u'x', 120 + below(10));
            Write(section, value);
            plain.Write(section, value);
        }
    }
}

}  // namespace
