/// @file
/// IQsUtils, the first of the two facades.
#pragma once

#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "QsUtils/platform/Api.h"
#include "QsUtils/platform/Handles.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/text/CStringArray.h"
#include "QsUtils/ui/YsType.h"

/// Static functions that every module of the product shares. The class has no fields; nobody needs an object
/// of it. Unless a function says otherwise it keeps no state, changes only its own arguments, raises nothing
/// but memory exhaustion, and may be called from any thread.
class QSUTILS_API IQsUtils {
public:
    IQsUtils();
    IQsUtils(const IQsUtils&);             ///< There is nothing to copy.
    IQsUtils& operator=(const IQsUtils&);  ///< There is nothing to copy.
    virtual ~IQsUtils();

    /// @name Soft version
    /// @{

    /// The version text that the host has set; empty until then. For one thread at a time.
    static CString GetSoftVersion();
    /// Sets it, without a check.
    static void SetSoftVersion(const CString& version);
    /// The text itself.
    static CString m_strSoftVersion;
    /// @}

    /// @name Segments and strings
    /// Separators may have any length unless they are one character.
    /// @{

    /// Removes the first segment of `text` and the separator behind it: "a/b/c" becomes "b/c". False, with
    /// `text` unchanged, when the separator doesn't occur or the text is empty; true for an empty separator.
    static bool CutFirstSegment(CString& text, const CString& sep);
    /// Removes the last segment and the separator before it: "a/b/c" becomes "a/b". False, with `text`
    /// unchanged, when the separator doesn't occur; true for an empty text or separator.
    static bool CutLastSegment(CString& text, const CString& sep);
    /// Keeps only the first segment: "a/b/c" becomes "a". False, with `text` unchanged, when the separator
    /// doesn't occur; true for an empty text or separator.
    static bool GetFirstSegment(CString& text, const CString& sep);
    /// Keeps only the last segment: "a/b/c" becomes "c". False, with `text` unchanged, when the separator
    /// doesn't occur or the text is empty; true for an empty separator.
    static bool GetLastSegment(CString& text, const CString& sep);
    /// The index of the first element equal to `text`; -1 when there is none or `text` is empty.
    static int FindInCStringArray(const CString& text, const CStringArray& array);
    /// Whether any element equals `text` without regard to case; an empty element equals an empty text.
    static bool StringArrayContains(const CStringArray& array, const wchar_t* text);
    /// How often `sub` occurs, from the left and without overlap. `positions` is replaced by the ascending
    /// positions when there is a match, and left alone when there is none.
    static int FindSpecStringCount(const CString& text, const CString& sub, CUIntArray& positions);
    /// Appends the pieces of `text` between separators to `out`; a last empty piece is left out.
    static void Split(const CString& text, CStringArray& out, wchar_t sep);
    /// Replaces `out` by the pieces of `text`; a last empty piece is left out. An empty separator leaves
    /// `out` as it was.
    static void TransStrToAry(const CString& text, const CString& sep, std::vector<CString>& out);
    /// Replaces `out` by the elements joined with `sep`.
    static void TransAryToStr(const std::vector<CString>& array, CString& out, const CString& sep);
    /// Leaves every text as it is; the comparisons of item codes pass through it.
    static void ChangeSBCtoDBC(CString& text);
    /// Cuts the part marked by the first "&" out of `text` and returns it. The part ends before the first of
    /// "@#?$| "; its first character is dropped unless "&!" occurs in the text.
    static CString TakeOutJxxzString(CString& text);
    /// Decodes a narrow text up to its first NUL from the ANSI code page.
    static std::wstring AnsiToUnicode(const std::string& text);
    /// Encodes a wide text up to its first NUL in the ANSI code page; "?" stands for what it lacks.
    static std::string UnicodeToAnsi(const std::wstring& text);
    /// The text up to its first NUL.
    static std::wstring CStringToWstring(CString& text);
    /// @}

    /// @name Numbers
    /// @{

    /// Reads a whole number: white space around it, a sign, digits. True, with `value` written, only when the
    /// whole text has that form; a number out of range saturates.
    static bool ParseToInteger(const CString& text, int& value);
    /// Reads a decimal number without exponent: white space around it, a sign, digits, a point between
    /// digits. True, with `value` written, only when the whole text has that form.
    static bool ParseToDouble(const CString& text, double& value);
    /// Whether the text holds nothing but digits, points and one leading "-", in whatever arrangement.
    static bool bIsNum(const CString& text);
    /// `value` with `decimals` decimals, rounded as IEEE 754 says, and without trailing zeros when
    /// `trimZeros`. Below 0 and above 6 the text has six decimals and keeps its zeros.
    static CString DoubleToCString(double value, int decimals, bool trimZeros);
    /// @}

    /// @name Chinese numerals
    /// @{

    /// An amount of money in capital numerals with yuan, jiao and fen: 12.34 is "壹拾贰元叁角肆分".
    static CString NumToRMBStr(double value);
    /// An int in ordinary numerals: 105 is "一百零五". Every negative value is "负数".
    static CString TransIntToUpper(int value);
    /// @}

    /// @name Order of codes
    /// @{

    /// Compares quota codes as texts and numbers in turn, so that "2-9" stands before "2-10": -1, 0 or 1.
    /// A code of 500 units or more gives -1 against any other, also against itself.
    static int CompareDECode(const CString& a, const CString& b);
    /// Compares bill codes: the shorter first, then by the system's word compare. Negative, 0 or positive.
    static int CompareQDCode(const CString& a, const CString& b);
    /// Compares by the numbers that two texts begin with, then as texts; as texts alone unless both begin
    /// with a digit. Negative, 0 or positive.
    static int CompareStringW(const CString& a, const CString& b);
    /// Compares part by part between separators, and within "/" between "-". Texts with a different number of
    /// parts and equal common ones are equal. Negative, 0 or positive.
    static int CompareStringW(const CString& a, const CString& b, wchar_t sep);
    /// Whether the number that `a` begins with is below that of `b`: a strict weak order.
    static bool SortItem(const CString& a, const CString& b);
    /// Sorts codes, each with its item, by `CompareDECode`. The order of items that compare equal is that of
    /// one fixed partition sort (see docs/codes.md), the same in every release. The pointers are not read.
    static void SortDeItemCodes(std::vector<std::pair<CString, void*>>& items);
    /// The same by `CompareQDCode`.
    static void SortQdItemCodes(std::vector<std::pair<CString, void*>>& items);
    /// The same by `CompareStringW` with "/".
    static void SortItemCodes(std::vector<std::pair<CString, void*>>& items);
    /// @}

    /// @name Majors
    /// They stand in the file MajorCode.ini beside the executable, which is read at the first of these calls.
    /// A missing file, like an unknown key, gives an empty text. See docs/majors.md.
    /// @{

    /// The code of a major: "建筑工程" is "T". A name that the product doesn't know is looked up in the file.
    static void GetMajorCodeByName(const CString& name, CString& code);
    /// The major of a code. A code that the product doesn't know is looked up in the file among the names.
    static void GetMajorByCode(const CString& code, CString& name);
    /// Appends the names of majors that have a code, in ascending order of their units.
    static void GetAllMajorName(CStringArray& names);
    /// @}

    /// @name Variables in formulas
    /// @{

    /// Whether the text of a formula holds a variable.
    static bool IsVariable(const CString& text);
    /// Appends the variables of a formula to `out`, in their order; with `unique` not those that it holds.
    /// False, with `out` left alone, when `IsVariable` is false.
    static bool FindVariable(const CString& text, std::list<CString>& out, bool unique);
    /// Adds the variables of a formula to `out`, each under the index of its last unit.
    static bool FindVariable(const CString& text, std::map<int, CString>& out);
    /// Whether the project amount, "Q" or "[Q]" in either case, is among the variables.
    static bool IsIncludeQ(const CString& text);
    /// Puts `amount`, without trailing zeros behind its point, in place of the project amount.
    static void ReplaceQWithProjectAmount(CString& text, const CString& amount);
    /// Puts `value` in place of each variable that equals `variable`, in the exact case.
    static void ReplaceVarString(CString& text, const CString& variable, const CString& value);
    /// @}

    /// @name Paths, folders and versions
    /// Paths have backslashes on every system; a failure shows in the result alone. See docs/files.md.
    /// @{

    /// Makes a folder and all folders above it that are missing: 1 if it exists at the end, 0 if not.
    static int CreateFolderAllPath(const CString& path);
    /// Copies what is in a folder into `target`: files over files, subfolders in place of those of their
    /// names, which are emptied first. With `clearTarget` so is `target` itself, which is made when it isn't
    /// there. Takes the read-only mark off everything in `source`. What can't be copied is left out and not
    /// told. Every file is put in place whole.
    static void CopyFolderAllFiles(const CString& source, const CString& target, bool clearTarget);
    /// Removes a folder with all that is in it; true when it is gone. Files that are marked as read-only
    /// stay, and so do the folders that hold them. Links are removed and not followed.
    static bool DeleteDirectory(const CString& path);
    /// Which of two dotted versions is bigger: 1 for `a`, -1 for `b`, 0 when they count as equal, by the
    /// first two numbers or the first three. A version without a point has 0 as its first number and itself
    /// as its second.
    static int VersionBig(const CString& a, const CString& b, bool withThirdPart);
    /// Whether a file or a folder of this path exists, or any that a pattern matches; false for a path that
    /// ends in a backslash.
    static bool IsFileExist(const CString& path);
    /// Whether an existing file can't be opened for reading and writing by one alone: somebody holds it, it
    /// is marked as read-only, or the right is missing. False for a file that doesn't exist.
    static bool IsFileOpen(const CString& path);
    /// The name of a file without its folder and its extension: "C:\a\b.tar.gz" gives "b.tar".
    static CString PickFileNameFromPath(const CString& path);
    /// Takes ".." and the part before it out of a path: "C:\a\..\b" gives "C:\b". A path without "." comes
    /// back as it is. Raises `std::out_of_range` for a path that has a part "." or a last part ".." with a
    /// part to take out.
    static CString RemoveRelativeDirectoryFromPath(const CString& path);
    /// Looks for a file or a folder of the exact name `fileName` in `folder`, which ends in a backslash, and
    /// below it, depth first and in the order of names; `found` is its full path, or empty. With a `tail`,
    /// only below a folder of that name. A find is lost when the entry behind it is a folder, and the search
    /// goes on there.
    static void FindPath(CString& found, const CString& folder, const CString& fileName, const CString& tail);
    /// The folder in which file dialogs start: the value InitPath of section Path in SystemConfig.ini beside
    /// the executable, at most 499 units and not checked; without it the folder "工程文件" there. The file is
    /// read by every call.
    static CString GetInitPath();
    /// @}

    /// @name Save backup
    /// The working copy of a project stands below "tempfile\" beside the executable.
    /// `strProjectFile` is the full path of the project file; beside it stand the database, with the
    /// extension ".mdb", and the folder of graphics, without any. Nothing tells of a failure; docs/backup.md
    /// says what is whole then. Projects of one file name share one place, which is for one call at a
    /// time.
    /// @{

    /// The project's folder in the backup, which is made; empty when the executable's folder isn't known.
    static void GetCurBackUpPath(CString& strPath, CString const& strProjectFile);
    /// The working copy of the database in that folder, whether or not it exists.
    static void GetCurBackUpDataBasePath(CString& strPath, CString const& strProjectFile);
    /// A project is opened: its database and its graphic folder are copied into the backup.
    static void InitBackUpInfo(CString const& strProjectFile);
    /// A project is saved: the working copy goes back to its database, and the graphic folder into the backup
    /// if it has been changed.
    static void OnBackUpSaveFile(CString const& strProjectFile);
    /// The graphic folder has been changed.
    static void UpdateGraphicFileVer(CString const& strProjectFile);
    /// A project is left without saving: the graphic folder, if it has been changed, becomes the saved one
    /// again.
    static void OnNotSaveGraphicFile(CString const& strProjectFile);
    /// @}

    /// @name Digest
    /// @{

    /// The MD5 digest (RFC 1321) of the text's UTF-16LE bytes, as 32 lower-case hexadecimal digits.
    static CString GetStreamMD5(CString const& strText);
    /// @}

    /// @name Open budgets
    /// @{

    /// Whether another program lists `strItem` as open under the budget key `strKey`: 1 or 0. Also 0 when no
    /// program has listed anything, or when its list can't be read; see docs/open-budgets.md.
    static int IsYsOpen(CString const& strKey, CString const& strItem);
    /// "Normal", "SongShen" or "ShenDing"; "Normal" for any other value as well.
    static CString YsTypeToString(eYsType eType);
    /// The kind of that text, in the exact case; `eYsType_Normal` for any other text.
    static eYsType StringToYsType(CString const& strType);
    /// @}

    /// @name Templates
    /// `family` and `section` are those of a `LibraryKey`. The pickers are modal and wait for the user;
    /// without a display they answer as if cancelled. See docs/dialogs.md.
    /// @{

    /// The file "project.db" beside the executable, whether or not it exists.
    static CString GetProjectDbTemplate();
    /// The file "ZhengTiReport.xml" beside the executable, whether or not it exists.
    static CString GetZhengTiReport();
    /// Lets the user pick a template of a fee summary (费用汇总), of the user's own or of the cost library:
    /// the full path, or the empty text when nothing was picked. `isZeroVariant` asks for the extension with
    /// the letter z.
    static CString GetFeeTemplatePath(const CString& family, const CString& section, bool isZeroVariant);
    /// The same for a report; `reportType` is 0 for the project, 1 and 2 for a unit project by bill and by
    /// quota.
    static CString GetReportTemplatePath(const CString& family, const CString& section, int reportType);
    /// The same for statutory fees and taxes (规费税金).
    static CString GetGfsjTemplatePath(const CString& family, const CString& section, bool isZeroVariant);
    /// The same for measures (措施项目).
    static CString GetCsxmTemplatePath(const CString& family, const CString& section, bool isZeroVariant);
    /// The same for the composition of unit prices (单价组成).
    static CString GetDjzcTemplatePath(const CString& family, const CString& section);
    /// @}

    /// @name Folder browser
    /// @{

    /// Lets the user choose a folder: its path, or the empty text when the user has cancelled, when the
    /// choice isn't in the file system, and without a display. Waits for the user.
    static CString SelectFolder();
    /// @}

    /// @name Threads
    /// @{

    /// Starts a thread that runs `routine(parameter)` at once, writes its id to `id`, which may be null, and
    /// tells the log with `name`. The handle is the caller's, who waits for it and closes it in any order;
    /// closed early it leaves nothing behind either. Null, with the id 0, when there is no thread to be had
    /// and for a null routine.
    static HANDLE StartThread(QsThreadRoutine routine, void* parameter, CString name, std::uint32_t* id);
    /// @}

private:
    /// As `RemoveRelativeDirectoryFromPath`, for every path.
    static CString RemoveRelativeDirectory(const CString& path);
};
