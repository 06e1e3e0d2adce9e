// Marks in files.
#include <gtest/gtest.h>

#include "QsUtils/config/MarkFile.h"

#include "tests/support/TemporaryFolder.h"

using QsConfig::MarkList;

namespace {

class MarkFile : public testing::Test {
protected:
    void Read(std::string_view contents, bool billMode = true) {
        m_folder.Write("MarkConfig.xml", contents);
        QsConfig::ReadMarks(m_folder.Text("MarkConfig.xml"), billMode, m_lists);
    }
    std::size_t Count() const {
        std::size_t count = 0;
        for (const MarkList& list : m_marks)
            count += list.size();
        return count;
    }

    TemporaryFolder m_folder;
    std::array<MarkList, 5> m_marks;
    QsConfig::MarkLists m_lists = {&m_marks[0], &m_marks[1], &m_marks[2], &m_marks[3], &m_marks[4]};
};

TEST_F(MarkFile, EachGroupOfAMode) {
    constexpr const char* contents =
        "<any><QdMode><OtherItemPJTemPrice><m Code=\"5\" Name=\"e\"/></OtherItemPJTemPrice>"
        "<MesureItem><m Code=\"1\" Name=\"安全文明\"/><n Code=\"1\" Name=\"b\"/><o/></MesureItem>"
        "<FeeTax><m Code=\"2\"/></FeeTax><FeeSummary><m Name=\"c\"/></FeeSummary>"
        "<OtherItemSummary><m Code=\"4\" Name=\"d\"><x Code=\"9\"/></m></OtherItemSummary></QdMode>"
        "<DeMode><MesureItem><m Code=\"q\" Name=\"Q\"/></MesureItem></DeMode></any>";
    Read(contents);
    EXPECT_EQ(m_marks[0], (MarkList{{u"1", u"安全文明"}, {u"1", u"b"}, {u"", u""}}));
    EXPECT_EQ(m_marks[1], (MarkList{{u"2", u""}}));
    EXPECT_EQ(m_marks[2], (MarkList{{u"", u"c"}}));
    EXPECT_EQ(m_marks[3], (MarkList{{u"4", u"d"}}));
    EXPECT_EQ(m_marks[4], (MarkList{{u"5", u"e"}}));
    Read(contents, false);
    EXPECT_EQ(m_marks[0].size(), 4u);
    EXPECT_EQ(m_marks[0].back(), MarkList::value_type(u"q", u"Q"));
    EXPECT_EQ(Count(), 8u);
}

TEST_F(MarkFile, OnlyTheFirstModeAndTheFirstGroupOfANameCount) {
    Read(
        "<r><QdMode><FeeTax><m Code=\"1\"/></FeeTax><FeeTax><m Code=\"2\"/></FeeTax></QdMode>"
        "<QdMode><FeeSummary><m Code=\"3\"/></FeeSummary></QdMode></r>");
    EXPECT_EQ(m_marks[1], (MarkList{{u"1", u""}}));
    EXPECT_EQ(Count(), 1u);
}

TEST_F(MarkFile, BadFilesAndAMissingModeAddNothing) {
    for (const char* contents :
         {"", "x", "<r><QdMode><FeeTax><m/></FeeTax></QdMode>", "<r/>",
          "<QdMode><FeeTax><m/></FeeTax></QdMode>", "<r><DeMode><FeeTax><m/></FeeTax></DeMode></r>",
          "<r><qdMode><FeeTax><m/></FeeTax></qdMode></r>", "<r><QdMode><feetax><m/></feetax></QdMode></r>",
          "<r><QdMode/></r>"})
        Read(contents);
    QsConfig::ReadMarks(m_folder.Text("none.xml"), true, m_lists);
    EXPECT_EQ(Count(), 0u);
}

}  // namespace
