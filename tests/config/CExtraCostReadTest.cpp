// The reader of the configuration files as an object: what it keeps, what it frees, and many threads at once.
#include <list>
#include <map>
#include <random>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/config/CExtraCostRead.h"
#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/platform/ExecutableFolder.h"

#include "tests/support/Rounds.h"
#include "tests/support/StartLine.h"
#include "tests/support/TemporaryFolder.h"

using Fields = std::list<QS_ProjectOverView::stuColInfo*>;
using Names = std::list<CString>;

namespace {

/// The executable's folder is a temporary one meanwhile.
class Configuration : public testing::Test {
protected:
    Configuration() {
        // Asked for once in a process, and other tests may ask as well.
        static_cast<void>(DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory());
        m_before = QsPlatform::ExecutableFolder();
        QsPlatform::SetExecutableFolder(FromNativePath(m_folder.Path()));
    }
    ~Configuration() override { QsPlatform::SetExecutableFolder(m_before); }

    void LayMarks(std::string_view contents) { m_folder.Write("Config/MarkConfig.xml", contents); }
    Names List(const CString& group, bool billMode = true) {
        Names names;
        m_reader.GetMarkList(u"no such folder", billMode, group, names);
        return names;
    }

    TemporaryFolder m_folder;
    CString m_before;
    CExtraCostRead m_reader;
};

constexpr const char* FullMarks =
    "<r><QdMode><MesureItem><m Code=\"1\" Name=\"a\"/><m Code=\"1\" Name=\"b\"/></MesureItem><FeeTax><m "
    "Name=\"c\"/></FeeTax><FeeSummary><m Name=\"d\"/></FeeSummary><OtherItemSummary><m Name=\"e\"/>"
    "</OtherItemSummary><OtherItemPJTemPrice><m Name=\"f\"/></OtherItemPJTemPrice></QdMode>"
    "<DeMode><MesureItem><m Code=\"2\" Name=\"z\"/></MesureItem></DeMode></r>";

TEST_F(Configuration, TheModeOfTheFirstLoadCounts) {
    LayMarks(FullMarks);
    EXPECT_EQ(List(u"MesureItem"), (Names{u"a", u"b"}));
    EXPECT_EQ(List(u"MesureItem", false), (Names{u"a", u"b"}));
    LayMarks("<r/>");
    EXPECT_EQ(List(u"FeeTax"), (Names{u"c"})) << "loaded once";
    std::map<CString, CString> marks = {{u"0", u"old"}};
    m_reader.GetMarkMap(u"", true, u"MesureItem", marks);
    EXPECT_EQ(marks, (std::map<CString, CString>{{u"0", u"old"}, {u"1", u"a"}}));
    marks = {{u"1", u"mine"}};
    m_reader.GetMarkMap(u"", true, u"MesureItem", marks);
    EXPECT_EQ(marks.at(u"1"), u"mine");
}

TEST_F(Configuration, OnlyTheFiveGroupsHaveMarks) {
    LayMarks(FullMarks);
    Names all;
    for (const char16_t* group :
         {u"MesureItem", u"FeeTax", u"FeeSummary", u"OtherItemSummary", u"OtherItemPJTemPrice"})
        m_reader.GetMarkList(u"", true, group, all);
    EXPECT_EQ(all, (Names{u"a", u"b", u"c", u"d", u"e", u"f"})) << "appended";
    for (const char16_t* group : {u"", u"mesureitem", u"MeasureItem", u"FeeTax ", u"Mesure"})
        EXPECT_EQ(List(group), Names{});
    EXPECT_EQ(List(CString(u"FeeTax\0", 7)), Names{});
}

TEST_F(Configuration, WithAnEmptyGroupEveryCallLoadsAgain) {
    LayMarks(
        "<r><QdMode><MesureItem><m Name=\"a\"/></MesureItem><FeeTax/></QdMode>"
        "<DeMode><MesureItem><m Name=\"z\"/></MesureItem></DeMode></r>");
    EXPECT_EQ(List(u"MesureItem"), (Names{u"a"}));
    EXPECT_EQ(List(u"MesureItem"), (Names{u"a", u"a"}));
    EXPECT_EQ(List(u"no group"), Names{}) << "which loads as well";
    EXPECT_EQ(List(u"MesureItem", false), (Names{u"a", u"a", u"a", u"z"}));
}

TEST_F(Configuration, AMissingFileIsLookedForAgain) {
    EXPECT_EQ(List(u"FeeTax"), Names{});
    LayMarks("no XML");
    EXPECT_EQ(List(u"FeeTax"), Names{});
    LayMarks(FullMarks);
    EXPECT_EQ(List(u"FeeTax"), (Names{u"c"}));
}

/// Random files under random calls, and lists that only ever grow.
TEST_F(Configuration, RandomMarksAsByPlainMeans) {
    static const std::vector<CString> groups = {u"MesureItem", u"FeeTax", u"FeeSummary", u"OtherItemSummary",
                                                u"OtherItemPJTemPrice"};
    std::mt19937 random(94);
    const auto below = [&](unsigned count) { return static_cast<std::size_t>(random() % count); };
    for (int round = 0; round < Rounds(600); ++round) {
        CExtraCostRead reader;
        std::map<CString, Names> file[2];
        std::map<CString, Names> plain;
        for (int call = 0; call < 8; ++call) {
            if (call == 0 || below(4) == 0) {
                std::string contents = "<r>";
                for (const int mode : {0, 1}) {
                    file[mode].clear();
                    contents += mode == 0 ? "<DeMode>" : "<QdMode>";
                    for (const CString& group : groups) {
                        const std::string element(group.View().begin(), group.View().end());
                        contents += "<" + element + ">";
                        for (std::size_t left = below(8) == 0 ? 0 : below(3) + 1; left > 0; --left) {
                            const char name = static_cast<char>('a' + below(26));
                            contents += "<m Name=\"" + std::string(1, name) + "\"/>";
                            file[mode][group].push_back(CString(name));
                        }
                        contents += "</" + element + ">";
                    }
                    contents += mode == 0 ? "</DeMode>" : "</QdMode>";
                }
                LayMarks(contents + "</r>");
            }
            const std::size_t mode = below(2);
            bool isAnyEmpty = false;
            for (const CString& group : groups)
                isAnyEmpty = isAnyEmpty || plain[group].empty();
            if (isAnyEmpty) {
                for (const CString& group : groups)
                    plain[group].insert(plain[group].end(), file[mode][group].begin(),
                                        file[mode][group].end());
            }
            const CString& group = groups[below(5)];
            Names names;
            reader.GetMarkList(u"", mode == 1, group, names);
            ASSERT_EQ(names, plain[group]) << round << " " << call;
        }
    }
}

TEST_F(Configuration, TheOfferedFieldsAreKept) {
    m_folder.Write("FieldChoose.cos",
                   "<r><f Code=\"1\" BelongType=\"工程信息\"/><f/><f Code=\"2\" "
                   "BelongType=\"工程特征内容\"/></r>");
    Fields first;
    m_reader.GetProjOverViewInfo(first);
    ASSERT_EQ(first.size(), 2u);
    EXPECT_EQ(first.back()->nIndex1, 3);
    m_folder.Write("FieldChoose.cos", "<r/>");
    Fields second = {nullptr, nullptr, nullptr};
    m_reader.GetProjOverViewInfo(second);
    EXPECT_EQ(second, first) << "the same fields, in place of what was there";
}

TEST_F(Configuration, AnOfferWithoutAFieldIsReadAgain) {
    QS_ProjectOverView::stuColInfo mine;
    Fields fields = {&mine};
    m_reader.GetProjOverViewInfo(fields);
    m_folder.Write("FieldChoose.cos", "<r>");
    m_reader.GetProjOverViewInfo(fields);
    EXPECT_EQ(fields, (Fields{&mine}));
    m_folder.Write("FieldChoose.cos", "<r><f BelongType=\"工程信息\"/></r>");
    m_reader.GetProjOverViewInfo(fields);
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_EQ(fields.front(), &mine);
    Fields later;
    m_reader.GetProjOverViewInfo(later);
    EXPECT_EQ(later, (Fields{fields.back()})) << "what a caller brought isn't kept";
}

TEST_F(Configuration, TheHistoryStandsBesideTheExecutable) {
    m_reader.WriteHistory(u"S", u"a");
    m_reader.WriteHistory(u"S", u"b");
    EXPECT_EQ(m_folder.Read("HistoryInput.ini"), "[S]\r\n1=b\r\n2=a\r\n");
    Names names = {u"x"};
    m_reader.GetHistory(u"S", names);
    EXPECT_EQ(names, (Names{u"b", u"a"}));
}

TEST_F(Configuration, BlocksAreKeptAndFreed) {
    CExtraCostRead reader;
    EXPECT_EQ(reader.GetExtraCostDataByKey(u"k"), nullptr);
    void* const first = ::operator new(8);
    void* const second = ::operator new(100);
    reader.SetExtraCostData(u"k", first);
    EXPECT_EQ(reader.GetExtraCostDataByKey(u"k"), first);
    EXPECT_EQ(reader.GetExtraCostDataByKey(u"K"), nullptr);
    reader.SetExtraCostData(u"k", second);
    EXPECT_EQ(reader.GetExtraCostDataByKey(u"k"), second);
    ::operator delete(first);  // replaced, so still the caller's
    reader.SetExtraCostData(u"", nullptr);
    EXPECT_EQ(reader.GetExtraCostDataByKey(u""), nullptr);
    reader.SetExtraCostData(u"once more", second);
}

TEST_F(Configuration, WithoutALibraryThereAreNoExtraCosts) {
    for (const char16_t* family : {u"", u"F"}) {
        for (const char16_t* library : {u"", u"x.mdb", u"x"}) {
            EXPECT_FALSE(m_reader.InitOverHeight(library, family));
            EXPECT_EQ(m_reader.GetOverHeightList(library, family), nullptr);
            EXPECT_EQ(m_reader.GetExtraCostTypeList(library, family), nullptr);
            EXPECT_EQ(m_reader.GetExtraCostCalType(library, u"t", family), eExtraCost_Unknown);
        }
    }
}

TEST_F(Configuration, AnyThreadMayAsk) {
    LayMarks(FullMarks);
    m_folder.Write("FieldChoose.cos", "<r><f BelongType=\"工程信息\"/></r>");
    constexpr int threadCount = 8;
    StartLine together(threadCount);
    std::vector<std::thread> threads;
    std::vector<int> right(threadCount, 0);
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&, number] {
            together.Cross();
            CString key;
            key.Format(u"%d", number);
            for (int round = 0; round < 20; ++round) {
                Fields fields;
                m_reader.GetProjOverViewInfo(fields);
                Names history;
                m_reader.WriteHistory(key, key + u"x");
                m_reader.GetHistory(key, history);
                Names marks;
                m_reader.GetMarkList(u"", true, u"FeeTax", marks);
                m_reader.SetExtraCostData(key, nullptr);
                right[static_cast<std::size_t>(number)] +=
                    fields.size() == 1 && history == Names{key + u"x"} && marks == Names{u"c"} &&
                    m_reader.GetExtraCostDataByKey(key) == nullptr &&
                    m_reader.GetOverHeightList(key, u"") == nullptr;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, std::vector<int>(threadCount, 20));
    for (int number = 0; number < threadCount; ++number) {
        CString key;
        key.Format(u"%d", number);
        CExtraCostRead other;
        Names history;
        other.GetHistory(key, history);
        EXPECT_EQ(history, (Names{key + u"x"})) << "a write was lost";
    }
}

}  // namespace
