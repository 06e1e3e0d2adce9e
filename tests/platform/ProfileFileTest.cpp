#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/ProfileFile.h"

#include "tests/platform/Fixture.h"
#include "tests/platform/PlainProfile.h"
#include "tests/support/TemporaryFolder.h"

using QsPlatform::ProfileDocument;
using QsPlatform::ReadProfileValue;
using QsPlatform::SetProfileValue;
using QsPlatform::WriteProfileValue;

namespace {

const std::vector<std::string>& Answers() {
    static const std::vector<std::string> lines = Fixture::Lines("profile_files.txt");
    return lines;
}

CString Text(const std::string& field) {
    return CString(Fixture::Text(field));
}

/// Whether a quoted value, or default, just fits the buffer without its quotes. The calls that gave the
/// answers lose its last character then, and no other one's; ours keep it.
bool FitsWithoutQuotes(const std::vector<std::string>& fields) {
    const std::u16string fallback = Fixture::Text(fields.at(4));
    const std::string bytes = fields.at(1) == "(none)" ? "" : Fixture::Bytes(fields.at(1));
    const std::u16string raw =
        PlainProfile::Find(bytes, Fixture::Text(fields.at(2)), Fixture::Text(fields.at(3)))
            .value_or(fallback.substr(0, fallback.find_last_not_of(u' ') + 1));
    return raw.size() == std::stoul(fields.at(5)) + 1 && (raw[0] == u'"' || raw[0] == u'\'') &&
           raw[0] == raw.back();
}

/// The file of a case, or none.
void LayFile(const TemporaryFolder& folder, const std::string& contents) {
    if (contents == "(none)")
        std::filesystem::remove(folder.File("a.ini"));
    else
        folder.Write("a.ini", Fixture::Bytes(contents));
}

TEST(ProfileFile, ReadsWhatTheSystemsCallsRead) {
    const TemporaryFolder folder;
    const CString path = folder.Text("a.ini");
    int cases = 0;
    int fitting = 0;
    for (const std::string& line : Answers()) {
        const std::vector<std::string> fields = Fixture::Fields(line);
        if (fields.at(0) != "read")
            continue;
        LayFile(folder, fields.at(1));
        ++cases;
        CString answer = ReadProfileValue(path, Text(fields.at(2)), Text(fields.at(3)), Text(fields.at(4)),
                                          std::stoi(fields.at(5)));
        if (FitsWithoutQuotes(fields)) {
            EXPECT_EQ(answer.GetLength(), std::stoi(fields.at(5)) - 1);
            answer = answer.Left(answer.GetLength() - 1);
            ++fitting;
        }
        EXPECT_EQ(answer, Text(fields.at(6))) << line;
    }
    EXPECT_GT(cases, 2000);
    EXPECT_GT(fitting, 0);
}

TEST(ProfileFile, ReadsAfterAWriteWhatTheSystemsCallsRead) {
    const TemporaryFolder folder;
    const CString path = folder.Text("a.ini");
    int cases = 0;
    for (const std::string& line : Answers()) {
        const std::vector<std::string> fields = Fixture::Fields(line);
        if (fields.at(0) != "write")
            continue;
        LayFile(folder, fields.at(1));
        ++cases;
        EXPECT_TRUE(WriteProfileValue(path, Text(fields.at(2)), Text(fields.at(3)), Text(fields.at(4))));
        EXPECT_EQ(ReadProfileValue(path, Text(fields.at(5)), Text(fields.at(6)), u"(default)", 128),
                  Text(fields.at(7)))
            << line;
    }
    EXPECT_GT(cases, 100);
}

/// What a file becomes; a mark when the edit is refused.
std::string Set(std::string_view bytes, const char16_t* section, const char16_t* key, const char16_t* value) {
    return SetProfileValue(bytes, section, key, value).value_or("refused");
}

TEST(ProfileEdit, KeepsSpellingRemarksAndBlankLines) {
    const std::string file = "; head\r\n\r\n[ S ] of all\n;K=1\n\tk  =  a\t\r\n\nL=b\r[T]\nK=c\n\n";
    EXPECT_EQ(Set(file, u"s", u"K", u"new"),
              "; head\r\n\r\n[ S ] of all\n;K=1\n\tk  =  new\r\n\nL=b\r[T]\nK=c\n\n");
    EXPECT_EQ(Set(file, u"S", u"l", u"new"),
              "; head\r\n\r\n[ S ] of all\n;K=1\n\tk  =  a\t\r\n\nL=new\r[T]\nK=c\n\n");
    EXPECT_EQ(Set(file, u"T", u"k", u""),
              "; head\r\n\r\n[ S ] of all\n;K=1\n\tk  =  a\t\r\n\nL=b\r[T]\nK=\n\n");
}

TEST(ProfileEdit, AValueThatIsThereLeavesEveryByte) {
    for (const char* file : {"[S]\nK = a \n\n", "[S]\nK=a", "[S]K\nK=a\rx\n\n\n", "\xEF\xBB\xBF[s]\nk=\ta"})
        EXPECT_EQ(Set(file, u" S", u"K ", u" a\t"), file);
    EXPECT_EQ(Set("[S]\nK=m2\n", u"S", u"K", u"m²"), "[S]\nK=m2\n");  // what the code page makes of it
}

TEST(ProfileEdit, NewKeysStandBehindTheLastLineOfTheirSection) {
    EXPECT_EQ(Set("[S]\r\nK=a\r\n; note\r\n\r\n[T]\r\n", u"S", u"N", u"v"),
              "[S]\r\nK=a\r\n; note\r\nN=v\r\n\r\n[T]\r\n");
    EXPECT_EQ(Set("[S]\n[T]\n", u"S", u"N", u"v"), "[S]\nN=v\n[T]\n");
    EXPECT_EQ(Set("[S]", u"S", u"N", u"v"), "[S]\r\nN=v\r\n");
    EXPECT_EQ(Set("\n[S]\nK=a", u"S", u"N", u"v"), "\n[S]\nK=a\nN=v\n");
    EXPECT_EQ(Set("[S]\rK=a\r", u"S", u"N", u"v"), "[S]\rK=a\rN=v\r");
    EXPECT_EQ(Set("[S]\nK=a\n[T]\n[S]\n", u"S", u"N", u"v"), "[S]\nK=a\nN=v\n[T]\n[S]\n");
    EXPECT_EQ(Set("[S]\nK=a\n", u"", u"N", u"v"), "N=v\n[S]\nK=a\n");
    EXPECT_EQ(Set("\n[S]\nK=a\n", u"", u"N", u"v"), "N=v\n\n[S]\nK=a\n");
    EXPECT_EQ(Set("L=b\n\n[S]\n", u"", u"N", u"v"), "L=b\nN=v\n\n[S]\n");
}

TEST(ProfileEdit, NewSectionsStandAtTheEnd) {
    EXPECT_EQ(Set("", u"S", u"K", u"v"), "[S]\r\nK=v\r\n");
    EXPECT_EQ(Set("", u"", u"K", u"v"), "K=v\r\n");
    EXPECT_EQ(Set("[T]\nK=a\n\n", u"S", u"K", u"v"), "[T]\nK=a\n\n[S]\nK=v\n");
    EXPECT_EQ(Set("[T]\nK=a", u"S", u"K", u"v"), "[T]\nK=a\n[S]\nK=v\n");
    EXPECT_EQ(Set("x", u"S", u"K", u"v"), "x\r\n[S]\r\nK=v\r\n");
    EXPECT_EQ(Set("[]\nK=a\n", u"", u"K", u"v"), "K=v\n[]\nK=a\n");  // "" is what stands before all sections
}

TEST(ProfileEdit, OfLikeNamesTheFirstIsChanged) {
    EXPECT_EQ(Set("[S]\nk=1\nK=2\n[s]\nK=3\n", u"s", u"K", u"v"), "[S]\nk=v\nK=2\n[s]\nK=3\n");
    EXPECT_EQ(Set("[S]\nK\nK=2\n", u"S", u"K", u"v"), "[S]\nK=v\nK=2\n");
    EXPECT_EQ(Set("[S]\n K \n", u"S", u"K", u""), "[S]\n K=\n");
    EXPECT_EQ(Set("[S]\n=1\n", u"S", u"", u"v"), "[S]\n=v\n");
}

TEST(ProfileEdit, ValuesAreOneLineWithoutSpaceAround) {
    EXPECT_EQ(Set("", u"S", u"K", u" \t v w \v"), "[S]\r\nK=v w\r\n");
    EXPECT_EQ(Set("", u"S", u"K", u"\nv\r\n[T]\nL=w"), "[S]\r\nK=v\r\n");
    EXPECT_EQ(Set("", u"S", u"K", u"\" v \""), "[S]\r\nK=\" v \"\r\n");
    EXPECT_EQ(SetProfileValue("", u"S", u"K", std::u16string(u"a\0b", 3)), "[S]\r\nK=a\r\n");
    EXPECT_EQ(Set("", u"S", u"K", u"工程 \U0001F600 m²"), "[S]\r\nK=\xB9\xA4\xB3\xCC ?? m2\r\n");
}

TEST(ProfileEdit, NamesThatWouldBeLostAreRefused) {
    for (const char16_t* key : {u"a=b", u"=", u"a\nb", u"[x]", u"\U0001F600", u"m²"})
        EXPECT_EQ(Set("[S]\nK=a\n", u"S", key, u"v"), "refused");
    for (const char16_t* section : {u"a\nb", u"a]\r\n[b", u"\U0001F600", u"½"})
        EXPECT_EQ(Set("[S]\nK=a\n", section, u"K", u"v"), "refused");
    EXPECT_EQ(Set("[S]\n", u"S", u"[K", u"v"), "[S]\n[K=v\n");
    EXPECT_EQ(Set("[S]\n", u"S", u"[K", u"v]"), "refused");  // would open a section
    EXPECT_EQ(Set("\xEF\xBB\xBF", u"\U0001F600", u"m²", u"v"),
              "\xEF\xBB\xBF[\xF0\x9F\x98\x80]\r\nm\xC2\xB2=v\r\n");
    EXPECT_EQ(Set("", u"a]b", u";k", u"v"), "[a]b]\r\n;k=v\r\n");
    // The two characters begin with the bytes of a mark.
    EXPECT_EQ(Set("", u"", u"\u9518\u7E3E", u"v"), "refused");
    EXPECT_EQ(Set("[T]\n", u"T", u"\u9518\u7E3E", u"v"), "[T]\n\xEF\xBB\xBF\x83=v\n");
}

TEST(ProfileEdit, HalfACharacterAtTheEndTakesNothingAlong) {
    EXPECT_EQ(Set("[S]\nL=c\x81", u"S", u"N", u"v"), "[S]\nL=c\x81\r\nN=v\r\n");
    EXPECT_EQ(Set("[S]\nL=c\x81", u"T", u"N", u"v"), "[S]\nL=c\x81\r\n[T]\r\nN=v\r\n");
    EXPECT_EQ(Set("[S]\nK\x81", u"S", u"K?", u"v"), "[S]\nK?=v");
    EXPECT_EQ(Set("[S]\nK=\xB9\xA4", u"S", u"N", u"v"), "[S]\nK=\xB9\xA4\nN=v\n");
}

TEST(ProfileEdit, KeepsTheTwoByteEncodings) {
    const std::string little("\xFF\xFE[\0S\0]\0\n\0K\0=\0a\0", 16);
    EXPECT_EQ(Set(little, u"S", u"K", u"工"), std::string("\xFF\xFE[\0S\0]\0\n\0K\0=\0\xE5\x5D", 16));
    EXPECT_EQ(Set(little, u"S", u"N", u"v"), little + std::string("\n\0N\0=\0v\0\n\0", 10));
    const std::string big("\xFE\xFF\0[\0S\0]\0\n\0K\0=\0a", 16);
    EXPECT_EQ(Set(big, u"S", u"N", u"v"), big + std::string("\0\n\0N\0=\0v\0\n", 10));
    // Half a unit at the end counts as a character.
    EXPECT_EQ(Set(little + "x", u"S", u"K", u"ax"), little + "x");
    EXPECT_EQ(Set(little + "x", u"S", u"N", u"v"), little + std::string("x\0\n\0N\0=\0v\0\n\0", 12));
    EXPECT_EQ(Set(big + "x", u"S", u"N", u"v"), big + std::string("\0x\0\n\0N\0=\0v\0\n", 12));
}

TEST(ProfileFile, CountsTheBufferInUnits) {
    const auto text = [](int size) {
        return ProfileDocument::FromBytes("\xEF\xBB\xBF[S]\nK=ab\xF0\x9F\x98\x80")
            .Text(u"S", u"K", u"default", size);
    };
    EXPECT_EQ(text(-1), u"");
    EXPECT_EQ(text(0), u"");
    EXPECT_EQ(text(1), u"");
    EXPECT_EQ(text(3), u"ab");
    EXPECT_EQ(text(4), CString(u"ab\xD83D"));
    EXPECT_EQ(text(5), u"ab\U0001F600");
    EXPECT_EQ(text(500), u"ab\U0001F600");
}

TEST(ProfileFile, AFileThatCantBeReadHasNoValues) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadProfileValue(folder.Text("none.ini"), u"S", u"K", u"d ", 128), u"d");
    EXPECT_EQ(ReadProfileValue(FromNativePath(folder.Path()), u"S", u"K", u"'d'", 128), u"d");
    EXPECT_EQ(ReadProfileValue(CString(), u"S", u"K", u"", 128), u"");
}

TEST(ProfileFile, WritesANewFileInTheCodePage) {
    const TemporaryFolder folder;
    EXPECT_TRUE(WriteProfileValue(folder.Text("历史.ini"), u"设置", u"1", u"建筑工程"));
    EXPECT_EQ(folder.Read("历史.ini"), "[\xC9\xE8\xD6\xC3]\r\n1=\xBD\xA8\xD6\xFE\xB9\xA4\xB3\xCC\r\n");
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(ProfileFile, AMissingFolderIsNotMade) {
    const TemporaryFolder folder;
    EXPECT_FALSE(WriteProfileValue(folder.Text("none/a.ini"), u"S", u"K", u"v"));
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(ProfileFile, AReadOnlyFileIsLeftAlone) {
    namespace fs = std::filesystem;
    const TemporaryFolder folder;
    const fs::path path = folder.Write("a.ini", "[S]\nK=a\n");
    const auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(path, write, fs::perm_options::remove);
    EXPECT_FALSE(WriteProfileValue(folder.Text("a.ini"), u"S", u"K", u"v"));
    EXPECT_TRUE(WriteProfileValue(folder.Text("a.ini"), u"S", u"K", u"a"));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\nK=a\n");
    EXPECT_EQ(folder.Entries(), 1);
    fs::permissions(path, write, fs::perm_options::add);
}

TEST(ProfileFile, AValueThatIsThereIsNotWrittenAgain) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "[S]\nK = a\n");
    const auto old = std::filesystem::last_write_time(path) - std::chrono::hours(1);
    std::filesystem::last_write_time(path, old);
    EXPECT_TRUE(WriteProfileValue(folder.Text("a.ini"), u"S", u"K", u"a"));
    EXPECT_EQ(std::filesystem::last_write_time(path), old);
    EXPECT_TRUE(WriteProfileValue(folder.Text("a.ini"), u"S", u"K", u"b"));
    EXPECT_NE(std::filesystem::last_write_time(path), old);
    EXPECT_EQ(folder.Read("a.ini"), "[S]\nK = b\n");
}

}  // namespace
