/// @file
/// IQsUtils1, the second of the two facades.
#pragma once

#include <cstddef>
#include <list>
#include <map>

#include "QsUtils/config/ExtraCostType.h"
#include "QsUtils/config/ProjectOverview.h"
#include "QsUtils/material/CommonMaterialKey.h"
#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Static functions that every module of the product shares, continued from `IQsUtils`; the same rules hold.
class QSUTILS_API IQsUtils1 {
public:
    IQsUtils1();
    IQsUtils1(const IQsUtils1&);             ///< There is nothing to copy.
    IQsUtils1& operator=(const IQsUtils1&);  ///< There is nothing to copy.
    virtual ~IQsUtils1();

    /// How many characters the text has after a way through the ANSI code page and back.
    static int GetCharCount(const CString& text);

    /// Whether a rate of price transfer is 0 or more; a text without a number counts as 0.
    static bool IsValidRateOfTransPrice(const CString& text);
    /// The number that a rate of price transfer begins with; "免税" and a text without a number are 0.
    static double GetFormatedRateOfTransPrice(const CString& text);

    /// How many decimals a quantity in this unit takes, by the file GB50500-2008.xml beside the executable,
    /// which is read at the first call. The unit is looked for as it stands; one that the file lacks takes 2
    /// decimals if the file states a default, whatever it states, and 0 if it doesn't. Without a good file
    /// every unit takes 2.
    static int GetUnitMantissa(CString const& strUnit);

    /// The canonical indicator unit of a unit: "kg" is counted in "吨". False, with the output left alone,
    /// for a unit that has none.
    static bool GetIndicatorsUnit(CString const& strUnit, CString& strIndicatorUnit);
    /// How many of the second unit make one of the first: "吨" and "公斤" give 1000. Also for a second unit
    /// with a multiple in front: "m2" and "100m2" give 0.01. False, with 1.0, for units of different kinds.
    static bool GetIndicatorsFactor(CString const& strFirst, CString const& strSecond, double& dFactor);

    /// `IQsUtils::FindPath` with a memory: a find is remembered by the exact folder, name and tail, and given
    /// again without a look at the disk. What isn't found is searched for anew. The last find of a file name
    /// is also where the extra costs below look for a library of that name. Any thread.
    static void FindPath(CString& strPath, CString const& strFolder, CString const& strFileName,
                         CString const& strTail);

    /// The digest of a material's identity, as 32 lower-case hexadecimal digits: its ten fields joined by
    /// tabs, the flags as "1" and "0", through `IQsUtils::GetStreamMD5`. `pKey` must not be null.
    static CString GenerateMaterialMD5(CommonMaterialKey* pKey);

    /// @name Extra costs of a cost library
    /// They come from the ".ec" file beside it; see docs/config-data.md. `strLibFile` is the name of a
    /// library file without its folder, and `strFamily` the family in which it is looked for. A file is read
    /// once; what is handed out belongs to the library, stays where it is until the module ends, and is
    /// filled anew only by an `InitOverHeight` that finds the library at another place.
    /// @{

    /// Makes sure that the file of the library is read. False when there is no such library or file.
    static bool InitOverHeight(CString const& strLibFile, CString const& strFamily);
    /// The names of the over-height options, in the order of the file; null when there is no file, when it is
    /// no XML, and when another library's name has led to the same file before.
    static std::list<CString> const* GetOverHeightList(CString const& strLibFile, CString const& strFamily);
    /// The coefficient texts by the names of the extra cost types; null likewise.
    static std::map<CString, CString> const* GetExtraCostTypeList(CString const& strLibFile,
                                                                  CString const& strFamily);
    /// How a type applies its coefficient; `eExtraCost_Unknown` when nothing is known of it.
    static eExtraCost_CoefficientType GetExtraCostCalType(CString const& strLibFile,
                                                          CString const& strTypeName,
                                                          CString const& strFamily);
    /// @}

    /// @name The host's own data, by any text
    /// @{

    /// Keeps a block under a key, in place of what is there, which isn't freed. The block belongs to the
    /// library from now on, which frees it as plain memory when the module ends: it must come from
    /// `AllocateExtraCostData`, or from an `operator new` that shares this module's heap, and hold nothing
    /// that wants a destructor. Null may be kept.
    static void SetExtraCostData(CString const& strKey, void* pData);
    /// The block that is kept under a key; null when there is none.
    static void* GetExtraCostDataByKey(CString const& strKey);
    /// A block for `SetExtraCostData`, uninitialised and aligned for any ordinary type. It is the caller's
    /// until it is set. Raises `std::bad_alloc`.
    static void* AllocateExtraCostData(std::size_t nBytes);
    /// @}

    /// @name The overview of a project
    /// See docs/config-data.md.
    /// @{

    /// The fields that the product offers, from the file FieldChoose.cos beside the executable. It is read at
    /// the first call that finds a field in it: that one appends them to the list, and later ones replace the
    /// list by them. They belong to the library; callers neither change nor delete them.
    static void GetProjOverViewInfo(std::list<QS_ProjectOverView::stuColInfo*>& listInfo);
    /// Appends the fields of a project's XML file, as new records that the caller deletes. A missing or bad
    /// file has none.
    static void GetProjOverViewInfo(CString const& strFile,
                                    std::list<QS_ProjectOverView::stuColInfo*>& listInfo);
    /// Appends the fields to a project's XML file, which must exist, as one more overview: readers go on
    /// seeing the first. False when the file can't be opened, which is also shown to the user. True as well
    /// when it can't be written, and then it stays as it was.
    static bool CreateProjOverViewInfo(CString const& strFile,
                                       std::list<QS_ProjectOverView::stuColInfo*> const& listInfo);
    /// @}

    /// @name What users typed last
    /// It stands in the file HistoryInput.ini beside the executable. A section is an input field, by any
    /// name.
    /// @{

    /// Makes a value the most recent one of its section; ten are kept, of which nine outlast the process. An
    /// empty value and the most recent one change nothing.
    static void WriteHistory(CString const& strSection, CString const& strValue);
    /// The values of a section, most recent first. The first call for a section appends them to the list and
    /// keeps the whole of it; later ones replace the list by what is kept.
    static void GetHistory(CString const& strSection, std::list<CString>& listHistory);
    /// @}

    /// @name The marks that items can bear
    /// They come from the file MarkConfig.xml in a folder of the bid and tender templates, else in the folder
    /// Config beside the executable; see docs/config-data.md. Groups are "MesureItem", "FeeTax",
    /// "FeeSummary", "OtherItemSummary" and "OtherItemPJTemPrice"; others have no marks. What the first call
    /// finds, for its folder and mode, counts for all; the file is loaded once more, behind what is there, as
    /// long as a group has no mark.
    /// @{

    /// Adds the names of a group's marks by their codes; a code that the map holds keeps its name.
    static void GetMarkMap(CString const& strFolder, bool bQdMode, CString const& strGroup,
                           std::map<CString, CString>& mapMark);
    /// Appends the names of a group's marks.
    static void GetMarkList(CString const& strFolder, bool bQdMode, CString const& strGroup,
                            std::list<CString>& listMark);

    /// @}

    /// The version number of the installed spreadsheet, "16" for instance; empty when there is none. On Linux
    /// that is one in the user's Wine prefix; see docs/open-budgets.md.
    static CString GetExcelInstallVersion();

    /// @name Logs
    /// A failure to write is told to nobody.
    /// @{

    /// Appends "<date> <time>\t<text>" to a file, in the ANSI code page; a record ends in CR CR LF. The file
    /// is created when it is missing, its folder isn't. Nothing happens for an empty text or path. Callers on
    /// several threads that share a file take turns by themselves. Raises `CAtlException` when the time can't
    /// be told.
    static void RecordLogInfo(const CString& text, const CString& filePath);
    /// Writes a line to the module's log, `Log\Tallyman.log` beside the executable (see docs/log.md). The
    /// text brings its level along: "[INFO]: ...", "[ERROR]: ...". Any thread may call it.
    static void LogError(const CString& text);
    /// @}
};
