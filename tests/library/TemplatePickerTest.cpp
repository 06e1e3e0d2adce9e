// The picker in an installation of this process: what it lists, and what it gives back.
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/platform/Folders.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/ui/CSelectTemplateDlg.h"
#include "QsUtils/ui/TemplateKinds.h"
#include "QsUtils/ui/TemplatePaths.h"
#include "QsUtils/ui/TemplateSource.h"

#include "tests/library/TestInstallation.h"
#include "tests/ui/FakeViews.h"

namespace {

using QsUi::PlacesOfTemplates;
using QsUi::TemplatePlaces;

using Rows = std::vector<std::pair<std::u16string, std::u16string>>;

constexpr const char16_t* family = u"北京";
constexpr const char16_t* section = u"2012";

/// Folders of the user's templates lie below "own" in the installation.
class TemplatePicker : public Libraries {
protected:
    void SetUp() override {
        Libraries::SetUp();
        IQsUtils::SetSoftVersion(u"7.1");
        std::filesystem::remove_all(TestInstallation::Folder() / "own");
    }
    void TearDown() override {
        IQsUtils::SetSoftVersion(u"");
        std::filesystem::remove_all(TestInstallation::Folder() / "own");
    }

    static void MakeOwn(const std::wstring& file) {
        TestInstallation::Make(TestInstallation::Directory().ToWide() + L"own\\" + file);
    }
    void MakeInLibrary(int kind, const std::wstring& file) {
        Make(kind, CString(family).ToWide(), CString(section).ToWide(), file);
    }
    CString OwnPath(const char16_t* file) { return TestInstallation::Directory() + u"own\\" + file; }
    CString LibraryPath(int kind, const std::wstring& file) {
        return PathOf(kind, CString(family).ToWide(), CString(section).ToWide(), file);
    }
    /// What is behind the libraries' root in the path of a file.
    std::u16string InLibrary(int kind, const std::wstring& file) {
        const CString root = DirectoryManager::GetLibraryDirectoryManager()->GetLibraryRootDirectory();
        return std::u16string(
            (CString(u"墨衡清单定额库\\") + LibraryPath(kind, file).Mid(root.GetLength())).View());
    }

    static Rows RowsOf(const QsUi::IPickerDialog& dialog) {
        Rows rows;
        for (std::size_t row = 0; row < dialog.RowCount(); ++row)
            rows.emplace_back(dialog.Cell(row, 0), dialog.Cell(row, 1));
        return rows;
    }
    static Rows Listed(int kind, bool isZero = false, int reportType = 0) {
        CSelectTemplateDlg dialog(kind, family, section);
        dialog.m_bZeroVariant = isZero;
        dialog.m_nReportType = reportType;
        EXPECT_TRUE(dialog.OnInitDialog());
        return RowsOf(dialog);
    }
    /// What an operation gives when the user confirms a row.
    CString Picked(std::size_t row, QsUi::TemplateKind kind = QsUi::FeeSummary, bool isZero = false,
                   int reportType = 0) {
        views.onPicker = [&](QsUi::IPickerDialog& dialog) { return !dialog.Confirm(row); };
        return QsUi::PickTemplate(&views, kind, family, section, isZero, reportType);
    }

    FakeViews views;
};

// --- Kinds

TEST_F(TemplatePicker, EachKindHasItsExtensionAndItsFolders) {
    struct Expected {
        int kind;
        bool isZero;
        const char16_t* extension;
        const char16_t* own;
        const wchar_t* library;
    };
    const Expected kinds[] = {
        {0, false, u".fyt", u"fyhz\\", L"费用汇总模板\\"},
        {0, true, u".zfyt", u"fyhz\\", L"费用汇总模板\\"},
        {2, false, u".gst", u"gfsj\\", L"规费税金模板\\"},
        {2, true, u".zgst", u"gfsj\\", L"规费税金模板\\"},
        {3, false, u".cst", u"csxm\\", L"措施项目模板\\"},
        {3, true, u".zcst", u"csxm\\", L"措施项目模板\\"},
        {4, false, u".flt", u"djzc\\", L"综合单价组成模板\\"},
        {4, true, u".flt", u"djzc\\", L"综合单价组成模板\\"},
    };
    for (const Expected& expected : kinds) {
        // The type of a report counts for no other kind.
        const TemplatePlaces places = PlacesOfTemplates(expected.kind, expected.isZero, 7, family, section);
        EXPECT_EQ(places.extension, expected.extension);
        EXPECT_EQ(places.ownFolder, OwnPath(expected.own));
        EXPECT_EQ(places.libraryFolder, LibraryPath(LibraryPath_FeeTemplate, expected.library));
        EXPECT_FALSE(places.isOwnFirst);
        EXPECT_TRUE(places.isOwnMade);
    }
}

TEST_F(TemplatePicker, TheTypeOfAReportGivesItsExtensionAndFolder) {
    const std::pair<const char16_t*, const wchar_t*> types[] = {
        {u".xbb", L"项目\\"}, {u".qbb", L"单位工程\\"}, {u".dbb", L"单位工程\\"}};
    for (int type = 0; type < 3; ++type) {
        const TemplatePlaces places = PlacesOfTemplates(1, true, type, family, section);
        EXPECT_EQ(places.extension, types[type].first);
        EXPECT_EQ(places.ownFolder, OwnPath(u"report\\") + CString(types[type].second));
        EXPECT_EQ(places.libraryFolder, LibraryPath(LibraryPath_ReportTemplate, types[type].second));
        EXPECT_TRUE(places.isOwnFirst);
        EXPECT_FALSE(places.isOwnMade);
    }
}

TEST_F(TemplatePicker, TheLibraryIsAskedWithFamilyAndSectionAndNoItem) {
    PlacesOfTemplates(0, false, 0, family, section);
    EXPECT_EQ(Calls(), std::vector<std::wstring>{L"path" + std::to_wstring(LibraryPath_FeeTemplate) +
                                                 L"[北京][2012][]"});
    PlacesOfTemplates(1, false, 0, family, section);
    EXPECT_EQ(Calls(), std::vector<std::wstring>{L"path" + std::to_wstring(LibraryPath_ReportTemplate) +
                                                 L"[北京][2012][]"});
}

TEST_F(TemplatePicker, KindsThatThereArentHaveNoTemplates) {
    MakeOwn(L"fyhz\\a.fyt");
    for (const int kind : {-1, 5, 1000})
        EXPECT_TRUE(Listed(kind).empty());
    for (const int type : {-1, 3, 1000})
        EXPECT_TRUE(Listed(1, false, type).empty());
}

// --- What is listed

TEST_F(TemplatePicker, TheLibrarysTemplatesComeFirst) {
    MakeOwn(L"fyhz\\一般.fyt");
    MakeOwn(L"fyhz\\sub\\deep\\b.fyt");
    MakeOwn(L"fyhz\\z.zfyt");
    MakeInLibrary(LibraryPath_FeeTemplate, L"费用汇总模板\\一般.fyt");
    MakeInLibrary(LibraryPath_FeeTemplate, L"费用汇总模板\\x.FYT.bak");
    MakeInLibrary(LibraryPath_FeeTemplate, L"elsewhere.fyt");
    EXPECT_EQ(Listed(0), (Rows{{u"一般", InLibrary(LibraryPath_FeeTemplate, L"费用汇总模板\\一般.fyt")},
                               {u"b", u"墨衡造价V7.1\\own\\fyhz\\sub\\deep\\b.fyt"},
                               {u"一般", u"墨衡造价V7.1\\own\\fyhz\\一般.fyt"}}));
    EXPECT_EQ(Listed(0, true), (Rows{{u"z", u"墨衡造价V7.1\\own\\fyhz\\z.zfyt"}}));
}

TEST_F(TemplatePicker, OwnReportsComeFirst) {
    MakeOwn(L"report\\项目\\own.xbb");
    MakeOwn(L"report\\单位工程\\own.qbb");
    MakeInLibrary(LibraryPath_ReportTemplate, L"项目\\library.xbb");
    MakeInLibrary(LibraryPath_ReportTemplate, L"单位工程\\library.dbb");
    EXPECT_EQ(Listed(1, false, 0),
              (Rows{{u"own", u"墨衡造价V7.1\\own\\report\\项目\\own.xbb"},
                    {u"library", InLibrary(LibraryPath_ReportTemplate, L"项目\\library.xbb")}}));
    EXPECT_EQ(Listed(1, false, 1), (Rows{{u"own", u"墨衡造价V7.1\\own\\report\\单位工程\\own.qbb"}}));
    EXPECT_EQ(Listed(1, false, 2),
              (Rows{{u"library", InLibrary(LibraryPath_ReportTemplate, L"单位工程\\library.dbb")}}));
}

TEST_F(TemplatePicker, TheUsersFolderIsMadeExceptThatOfReports) {
    EXPECT_TRUE(Listed(1).empty());
    EXPECT_FALSE(QsPlatform::IsFolder(OwnPath(u"report")));
    for (const int kind : {0, 2, 3, 4})
        EXPECT_TRUE(Listed(kind).empty());
    for (const char16_t* folder : {u"fyhz", u"gfsj", u"csxm", u"djzc"})
        EXPECT_TRUE(QsPlatform::IsFolder(OwnPath(folder))) << CString(folder);
}

TEST_F(TemplatePicker, ALibraryWithoutAFolderIsLookedForInTheCurrentOne) {
    script.noFolders.insert(std::to_wstring(LibraryPath_FeeTemplate) + L"[北京][2012][]");
    TestInstallation::Make((TestInstallation::Directory() + u"work\\").ToWide() + L"费用汇总模板\\x.fyt");
    const Rows rows = Listed(0);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].first, u"x");
}

// --- The way back

TEST_F(TemplatePicker, ConfirmingGivesTheFullPath) {
    MakeOwn(L"fyhz\\sub\\own.fyt");
    MakeInLibrary(LibraryPath_FeeTemplate, L"费用汇总模板\\sub\\library.fyt");
    EXPECT_EQ(Picked(0), LibraryPath(LibraryPath_FeeTemplate, L"费用汇总模板\\sub\\library.fyt"));
    EXPECT_EQ(Picked(1), OwnPath(u"fyhz\\sub\\own.fyt"));
}

TEST_F(TemplatePicker, EveryKindPicksItsOwn) {
    MakeOwn(L"report\\单位工程\\r.dbb");
    MakeOwn(L"gfsj\\g.zgst");
    MakeOwn(L"csxm\\c.cst");
    MakeOwn(L"djzc\\d.flt");
    EXPECT_EQ(Picked(0, QsUi::Report, false, 2), OwnPath(u"report\\单位工程\\r.dbb"));
    EXPECT_EQ(Picked(0, QsUi::FeesAndTaxes, true), OwnPath(u"gfsj\\g.zgst"));
    EXPECT_EQ(Picked(0, QsUi::Measures), OwnPath(u"csxm\\c.cst"));
    EXPECT_EQ(Picked(0, QsUi::UnitPriceComposition), OwnPath(u"djzc\\d.flt"));
}

TEST_F(TemplatePicker, WithoutACurrentRowItSaysSoAndStaysOpen) {
    MakeOwn(L"fyhz\\a.fyt");
    views.onPicker = [&](QsUi::IPickerDialog& dialog) {
        for (const std::size_t row : {QsUi::NoRow, std::size_t{1}}) {
            const auto message = dialog.Confirm(row);
            EXPECT_TRUE(message.has_value());
            EXPECT_EQ(message->text, u"请选择一个模板！");
            EXPECT_EQ(message->caption, u"墨衡造价");
        }
        return false;
    };
    EXPECT_EQ(QsUi::PickTemplate(&views, QsUi::FeeSummary, family, section, false, 0), u"");
}

TEST_F(TemplatePicker, CancellingGivesNothing) {
    MakeOwn(L"fyhz\\a.fyt");
    views.onPicker = [](QsUi::IPickerDialog&) { return false; };
    EXPECT_EQ(QsUi::PickTemplate(&views, QsUi::FeeSummary, family, section, false, 0), u"");
    EXPECT_EQ(QsUi::PickTemplate(nullptr, QsUi::FeeSummary, family, section, false, 0), u"");
}

TEST_F(TemplatePicker, WithoutViewsNoFolderIsMade) {
    QsUi::PickTemplate(nullptr, QsUi::FeeSummary, family, section, false, 0);
    EXPECT_FALSE(QsPlatform::IsFolder(OwnPath(u"fyhz")));
}

TEST_F(TemplatePicker, AVersionThatChangesMeanwhileLosesTheUsersTemplates) {
    MakeOwn(L"fyhz\\a.fyt");
    views.onPicker = [](QsUi::IPickerDialog& dialog) {
        IQsUtils::SetSoftVersion(u"8");
        return !dialog.Confirm(0);
    };
    EXPECT_EQ(QsUi::PickTemplate(&views, QsUi::FeeSummary, family, section, false, 0), u"");
}

TEST_F(TemplatePicker, SourceTextsLeadBack) {
    const QsUi::TemplateSources sources;
    const CString own = TestInstallation::Directory() + u"x\\y.fyt";
    EXPECT_EQ(sources.OwnSource(own), u"墨衡造价V7.1\\x\\y.fyt");
    EXPECT_EQ(sources.PathBehind(u"墨衡造价V7.1\\x\\y.fyt"), own);
    EXPECT_EQ(sources.PathBehind(u"墨衡造价V7.1x\\y.fyt"), u"");
    EXPECT_EQ(sources.PathBehind(u"墨衡清单定额库\\a"),
              DirectoryManager::GetLibraryDirectoryManager()->GetLibraryRootDirectory() + u"a");
    EXPECT_EQ(sources.PathBehind(u"a墨衡清单定额库\\a"), u"");
    EXPECT_EQ(sources.PathBehind(u""), u"");
}

TEST_F(TemplatePicker, AChangedVersionIsTheWholeWordOrNone) {
    MakeOwn(L"fyhz\\a.fyt");
    const auto pickedAfter = [&](const char16_t* before, const char16_t* after) {
        IQsUtils::SetSoftVersion(before);
        views.onPicker = [after](QsUi::IPickerDialog& dialog) {
            IQsUtils::SetSoftVersion(after);
            return !dialog.Confirm(0);
        };
        return QsUi::PickTemplate(&views, QsUi::FeeSummary, family, section, false, 0);
    };
    EXPECT_EQ(pickedAfter(u"7.1", u"7"), u"");
    EXPECT_EQ(pickedAfter(u"7", u"7.1"), u"");
    EXPECT_EQ(pickedAfter(u"7.1", u""), u"");
    EXPECT_EQ(pickedAfter(u"7.1", u"7.1"), OwnPath(u"fyhz\\a.fyt"));
    EXPECT_EQ(pickedAfter(u"", u""), OwnPath(u"fyhz\\a.fyt")) << "no version is one too";
    EXPECT_EQ(pickedAfter(u"%s%n", u"%s%n"), OwnPath(u"fyhz\\a.fyt")) << "it is no format";
}

TEST_F(TemplatePicker, AChangedVersionIsNoMatterToTheLibrarysTemplates) {
    MakeInLibrary(LibraryPath_FeeTemplate, L"费用汇总模板\\l.fyt");
    views.onPicker = [](QsUi::IPickerDialog& dialog) {
        IQsUtils::SetSoftVersion(u"8");
        return !dialog.Confirm(0);
    };
    EXPECT_EQ(QsUi::PickTemplate(&views, QsUi::FeeSummary, family, section, false, 0),
              LibraryPath(LibraryPath_FeeTemplate, L"费用汇总模板\\l.fyt"));
}

TEST_F(TemplatePicker, ATitleLosesItsLastPointAlone) {
    MakeOwn(L"fyhz\\一般.2016.v2.fyt");
    MakeOwn(L"fyhz\\.fyt");
    MakeOwn(L"fyhz\\a.fyt.fyt");
    EXPECT_EQ(Listed(0), (Rows{{u"", u"墨衡造价V7.1\\own\\fyhz\\.fyt"},
                               {u"a.fyt", u"墨衡造价V7.1\\own\\fyhz\\a.fyt.fyt"},
                               {u"一般.2016.v2", u"墨衡造价V7.1\\own\\fyhz\\一般.2016.v2.fyt"}}));
    EXPECT_EQ(Picked(2), OwnPath(u"fyhz\\一般.2016.v2.fyt"));
}

TEST_F(TemplatePicker, WithoutFamilyAndSectionTheLibraryIsAskedAllTheSame) {
    MakeOwn(L"fyhz\\a.fyt");
    views.onPicker = [](QsUi::IPickerDialog& dialog) { return !dialog.Confirm(0); };
    EXPECT_EQ(QsUi::PickTemplate(&views, QsUi::FeeSummary, u"", u"", false, 0), OwnPath(u"fyhz\\a.fyt"));
    EXPECT_EQ(Calls(),
              std::vector<std::wstring>{L"path" + std::to_wstring(LibraryPath_FeeTemplate) + L"[][][]"});
}

TEST_F(TemplatePicker, AFileInThePlaceOfTheUsersFolderDoesNoHarm) {
    MakeOwn(L"fyhz");
    EXPECT_TRUE(Listed(0).empty());
    EXPECT_FALSE(QsPlatform::IsFolder(OwnPath(u"fyhz")));
}

// --- Source texts of other installations

TEST(TemplateSources, RelativePartsOfTheExecutablesFolderAreCutAsTheyResolve) {
    const QsUi::TemplateSources sources(
        QsUi::TemplateRoots{u"7.1", u"C:\\a\\..\\product\\", u"C:\\Library\\"});
    const CString source = sources.OwnSource(u"C:\\product\\own\\x.fyt");
    EXPECT_EQ(source, u"墨衡造价V7.1\\own\\x.fyt");
    EXPECT_EQ(sources.PathBehind(source), u"C:\\a\\..\\product\\own\\x.fyt")
        << "the way back begins with the folder as it is";
}

TEST(TemplateSources, AFolderThatCantBeResolvedCountsForTheUsersTemplatesAlone) {
    const QsUi::TemplateSources sources(QsUi::TemplateRoots{u"7.1", u"C:\\.\\product\\", u"C:\\Library\\"});
    EXPECT_THROW(sources.OwnSource(u"C:\\product\\x.fyt"), std::out_of_range);
    EXPECT_EQ(sources.LibrarySource(u"C:\\Library\\x.fyt"), u"墨衡清单定额库\\x.fyt");
    EXPECT_EQ(sources.PathBehind(u"墨衡清单定额库\\x.fyt"), u"C:\\Library\\x.fyt");
    EXPECT_EQ(sources.PathBehind(u"墨衡造价V7.1\\x.fyt"), u"C:\\.\\product\\x.fyt");
}

TEST(TemplateSources, WithoutALibraryRootTheWholePathIsTheRelativePart) {
    const QsUi::TemplateSources sources(QsUi::TemplateRoots{u"7.1", u"C:\\product\\", u""});
    const CString source = sources.LibrarySource(u"C:\\work\\费用汇总模板\\x.fyt");
    EXPECT_EQ(source, u"墨衡清单定额库\\C:\\work\\费用汇总模板\\x.fyt");
    EXPECT_EQ(sources.PathBehind(source), u"C:\\work\\费用汇总模板\\x.fyt");
}

TEST(TemplateSources, APathThatIsShorterThanItsRootLeavesNothing) {
    const QsUi::TemplateSources sources(QsUi::TemplateRoots{u"", u"C:\\product\\", u"C:\\Library\\"});
    EXPECT_EQ(sources.OwnSource(u"C:\\x"), u"墨衡造价V\\");
    EXPECT_EQ(sources.LibrarySource(u"C:\\x"), u"墨衡清单定额库\\");
    EXPECT_EQ(sources.PathBehind(u"墨衡造价V\\"), u"C:\\product\\");
}

TEST_F(TemplatePicker, TwoFixedFilesStandBesideTheExecutable) {
    EXPECT_EQ(QsUi::GetProjectDbTemplate(), TestInstallation::Directory() + u"project.db");
    EXPECT_EQ(QsUi::GetZhengTiReport(), TestInstallation::Directory() + u"ZhengTiReport.xml");
    EXPECT_EQ(IQsUtils::GetProjectDbTemplate(), QsUi::GetProjectDbTemplate());
    EXPECT_EQ(IQsUtils::GetZhengTiReport(), QsUi::GetZhengTiReport());
}

TEST_F(TemplatePicker, TheFieldsAreThoseOfItsCaller) {
    const CSelectTemplateDlg dialog(3, family, section);
    EXPECT_EQ(dialog.m_nTemplateKind, 3);
    EXPECT_EQ(dialog.m_strFamily, family);
    EXPECT_EQ(dialog.m_strSection, section);
    EXPECT_EQ(dialog.m_strSelectedPath, u"");
    EXPECT_FALSE(dialog.m_bZeroVariant);
    EXPECT_EQ(dialog.m_nReportType, 0);
    EXPECT_EQ(dialog.m_wndGrid.currentRow, QsUi::NoRow);
}

}  // namespace
