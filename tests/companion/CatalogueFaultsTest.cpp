// What is wrong with a catalogue is told with file and line and left out; the rest stays.
#include <gtest/gtest.h>

#include "tests/companion/MemoryDisk.h"

namespace {

using namespace std::string_literals;

/// An installation without a fault: one family, one section, one library of each kind.
MemoryDisk Whole() {
    MemoryDisk disk;
    disk.Add(L"LibVisitor\\Catalogue.xml",
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<Catalogue Series=\"3\">\n"
             "  <Item Name=\"土建\" Tag=\"TJ\"/>\n"
             "  <Family Name=\"北京\" EnterpriseBills=\"北京/企业.xml\">\n"
             "    <Section Name=\"2012\"/>\n"
             "  </Family>\n"
             "</Catalogue>\n");
    disk.Add(L"LibVisitor\\北京\\2012.xml",
             "<Section Owner=\"甲\" Provider=\"乙\">\n"
             "  <Bill Name=\"规范\" File=\"a.qd\" Key=\"k\" Tags=\"ZJ\"><Rule Count1=\"6\"/></Bill>\n"
             "  <Quota Name=\"定额\" File=\"a.de\" Key=\"k\" Tags=\"ZJ\" ItemTags=\"TJ\"/>\n"
             "</Section>\n");
    disk.Add(L"LibVisitor\\北京\\企业.xml",
             "<EnterpriseBills>\n"
             "  <Bill Name=\"一\" File=\"一.qy\"/>\n"
             "  <Bill Name=\"二\">\n    第一行\n    第二行\n  </Bill>\n"
             "</EnterpriseBills>\n");
    disk.Add(L"Library\\北京\\2012\\定额库\\a.de");
    disk.Add(L"Library\\北京\\2012\\子库\\土建\\");
    disk.Add(L"Library\\清单库\\北京\\2012\\乙\\a.qd");
    disk.Add(L"Library\\清单库\\企业清单\\北京\\一.qy");
    return disk;
}

std::string FaultsOfMain(const std::string& text) {
    MemoryDisk disk = Whole();
    disk.Add(L"LibVisitor\\Catalogue.xml", text);
    return ReadFrom(disk).faults;
}

/// The faults of a section's file that is otherwise read with a good catalogue.
std::string FaultsOfSection(const std::string& text) {
    MemoryDisk disk = Whole();
    disk.Add(L"LibVisitor\\北京\\2012.xml", text);
    return ReadFrom(disk).faults;
}

std::string FaultsOfBills(const std::string& text) {
    MemoryDisk disk = Whole();
    disk.Add(L"LibVisitor\\北京\\企业.xml", text);
    return ReadFrom(disk).faults;
}

/// The main file with some lines in it from line 2 on.
std::string Main(const std::string& lines, const std::string& attributes = {}) {
    return "<Catalogue" + attributes + ">\n" + lines + "</Catalogue>\n";
}

std::string SectionXml(const std::string& lines) {
    return "<Section Provider=\"乙\">\n" + lines + "</Section>\n";
}

}  // namespace

TEST(CatalogueFaults, AGoodCatalogueHasNone) {
    const ReadingResult result = ReadFrom(Whole());
    EXPECT_EQ(result.faults, "");
    ASSERT_NE(result.catalogue, nullptr);
    EXPECT_EQ(result.catalogue->series, 3);
    Companion::Section& section = result.catalogue->families.at(L"北京").sections.at(L"2012");
    EXPECT_EQ(section.owner, L"甲");
    EXPECT_EQ(section.kinds[0].byName.at(L"规范").rule->count1, 6);
    EXPECT_EQ(result.catalogue->families.at(L"北京").bills.at(L"二").record.Text, L"第一行\n    第二行");
}

TEST(CatalogueFaults, FilesThatCannotBeUsed) {
    MemoryDisk disk;
    ReadingResult result = ReadFrom(disk);
    EXPECT_EQ(result.catalogue, nullptr);
    EXPECT_EQ(result.faults, "Catalogue.xml: the file can't be read\n");
    EXPECT_EQ(FaultsOfMain(""), "Catalogue.xml:1: no well-formed XML: No document element found\n");
    EXPECT_EQ(FaultsOfMain("<Catalogue>\n\n<Item>\n</Catalogue>\n"),
              "Catalogue.xml:4: no well-formed XML: Start-end tags mismatch\n");
    EXPECT_EQ(FaultsOfMain("<Catalog/>"),
              "Catalogue.xml:1: the root is <Catalog> where <Catalogue> is asked for\n");
    EXPECT_EQ(FaultsOfMain("<!-- a\r\nb\rc -->\n<Catalogue>\n\xD6\xD0</Catalogue>"),
              "Catalogue.xml:5: the file isn't UTF-8\n");
    EXPECT_EQ(FaultsOfMain("\xFF\xFE<"s + '\0'), "Catalogue.xml:1: the file isn't UTF-8\n");
}

TEST(CatalogueFaults, AByteOrderMarkAndAnyLineBreakWillDo) {
    EXPECT_EQ(
        FaultsOfMain("\xEF\xBB\xBF<Catalogue>\r\n<X/>\r<Y/>\n\r\n<Z/></Catalogue>"),
        "Catalogue.xml:2: unknown element <X> in <Catalogue>, which takes <Folder>, <Item>, <Family>\n"
        "Catalogue.xml:3: unknown element <Y> in <Catalogue>, which takes <Folder>, <Item>, <Family>\n"
        "Catalogue.xml:5: unknown element <Z> in <Catalogue>, which takes <Folder>, <Item>, <Family>\n");
}

TEST(CatalogueFaults, WhatBelongsNowhere) {
    EXPECT_EQ(FaultsOfMain(Main("text\n", " Serie=\"1\"\n Root=\"..\\Library\"\n Root=\"x\"")),
              "Catalogue.xml:1: unknown attribute \"Serie\" at <Catalogue>\n"
              "Catalogue.xml:3: a second attribute \"Root\" at <Catalogue>\n"
              "Catalogue.xml:3: text in <Catalogue>, which takes <Folder>, <Item>, <Family>\n");
    EXPECT_EQ(FaultsOfMain(Main("<Item Name=\"土建\" Tag=\"TJ\"><Sub/></Item>\n")),
              "Catalogue.xml:2: unknown element <Sub> in <Item>, which takes nothing\n");
    EXPECT_EQ(FaultsOfMain("<Catalogue/>\n<More/>\n"),
              "Catalogue.xml:2: <More> stands behind the root's end\n");
    EXPECT_EQ(FaultsOfBills(
                  "<EnterpriseBills Name=\"x\">\n<Bill Name=\"a\">t<b/></Bill>\n<Row/></EnterpriseBills>"),
              "北京/企业.xml:1: unknown attribute \"Name\" at <EnterpriseBills>\n"
              "北京/企业.xml:3: unknown element <Row> in <EnterpriseBills>, which takes <Bill>\n"
              "北京/企业.xml:2: unknown element <b> in <Bill>, which takes text\n");
}

TEST(CatalogueFaults, Numbers) {
    for (const char* series : {"x", "-1", "2147483648", "1 ", "", "0x1", "１"}) {
        EXPECT_EQ(FaultsOfMain(Main("", " Series=\""s + series + "\"")),
                  "Catalogue.xml:1: the Series of <Catalogue> is no whole number from 0 to 2147483647: \""s +
                      series + "\"\n");
    }
    EXPECT_EQ(FaultsOfMain(Main("", " Series=\"2147483647\"")), "");
    EXPECT_EQ(FaultsOfSection(SectionXml("<Bill Name=\"规范\" File=\"a.qd\">\n"
                                         "<Rule Count1=\"nine\" Count2=\"4\" Flag1=\"yes\" Flag2=\"1\"/>\n"
                                         "<Rule/></Bill>\n")),
              "北京/2012.xml:3: the Count1 of <Rule> is no whole number from 0 to 2147483647: \"nine\"\n"
              "北京/2012.xml:3: the Flag1 of <Rule> is neither \"true\" nor \"false\": \"yes\"\n"
              "北京/2012.xml:4: a second <Rule> in <Bill>\n");
}

TEST(CatalogueFaults, Folders) {
    EXPECT_EQ(
        FaultsOfMain(Main("<Folder Path=\"a\"/>\n"
                          "<Folder Kind=\"2\"/>\n"
                          "<Folder Kind=\"14\" Path=\"a\"/>\n"
                          "<Folder Kind=\"5\" Path=\"{Section}\"/>\n"
                          "<Folder Kind=\"1\" Path=\"{Familie}\"/>\n"
                          "<Folder Kind=\"7\" Path=\"a\"/>\n"
                          "<Folder\n Path=\"b\"\n Kind=\"07\"/>\n")),
        "Catalogue.xml:2: <Folder> has no Kind\n"
        "Catalogue.xml:3: <Folder> has no Path\n"
        "Catalogue.xml:4: the Kind of <Folder> is no whole number from 0 to 13: \"14\"\n"
        "Catalogue.xml:5: the Path of <Folder>: {Section} isn't known where this kind of folder is asked "
        "for\n"
        "Catalogue.xml:6: the Path of <Folder>: a \"{\" that begins none of {Family}, {Section} and "
        "{Item}\n"
        "Catalogue.xml:10: the Kind \"7\" stands on line 7 already\n");
}

TEST(CatalogueFaults, Items) {
    EXPECT_EQ(FaultsOfMain(Main("<Item Tag=\"A\"/>\n"
                                "<Item Name=\"a\"/>\n"
                                "<Item Name=\"b\" Tag=\"\"/>\n"
                                "<Item Name=\"c\\d\" Tag=\"A\"/>\n"
                                "<Item Name=\"..\" Tag=\"A\"/>\n"
                                "<Item Name=\"e\" Tag=\"A\"/>\n"
                                "<Item Name=\"e\" Tag=\"B\"/>\n"
                                "<Item Name=\"f\" Tag=\"A\"/>\n")),
              "Catalogue.xml:2: <Item> has no Name\n"
              "Catalogue.xml:3: <Item> has no Tag\n"
              "Catalogue.xml:4: the Tag of <Item> is empty\n"
              "Catalogue.xml:5: the Name of <Item> can't name one file or folder: \"c/d\"\n"
              "Catalogue.xml:6: the Name of <Item> can't name one file or folder: \"..\"\n"
              "Catalogue.xml:8: the Name \"e\" stands on line 7 already\n");
}

TEST(CatalogueFaults, FamiliesAndSections) {
    EXPECT_EQ(FaultsOfMain(Main("<Item Name=\"土建\" Tag=\"TJ\"/>\n"
                                "<Family/>\n"
                                "<Family Name=\"北京\">\n"
                                "  <Section/>\n"
                                "  <Section Name=\"2012\"/>\n"
                                "  <Section\n    Name=\"2012\"/>\n"
                                "  <Section Name=\"2021\"/>\n"
                                "</Family>\n"
                                "<Family Name=\"北京\"/>\n"
                                "<Family Name=\"上海\" EnterpriseBills=\"none.xml\"/>\n")),
              "Catalogue.xml:3: <Family> has no Name\n"
              "Catalogue.xml:5: <Section> has no Name\n"
              "Catalogue.xml:8: the Name \"2012\" stands on line 6 already\n"
              "北京/2021.xml: the file can't be read\n"
              "Catalogue.xml:11: the Name \"北京\" stands on line 4 already\n"
              "Catalogue.xml:12: the family \"上海\" has no section\n"
              "none.xml: the file can't be read\n"
              "Catalogue.xml:12: there is no folder app/Library/上海/\n");
}

TEST(CatalogueFaults, Libraries) {
    EXPECT_EQ(FaultsOfSection("<Section Provider=\"乙\" Owner=\"\">\n"
                              "<Bill/>\n"
                              "<Bill Name=\"a\"/>\n"
                              "<Bill Name=\"规范\" File=\"a.qd\" Key=\"1\"/>\n"
                              "<Bill Name=\"规范\" File=\"b.qd\"/>\n"
                              "<Bill Name=\"规范2\" File=\"a.qd\"\n      Key=\"1\"/>\n"
                              "<Quota Name=\"规范\" File=\"a.de\" Key=\"1\" ItemTags=\"TJ; AZ\"/>\n"
                              "<Quota Name=\"b\" File=\"x/a.de\"/>\n"
                              "<Quota Name=\"c\" File=\"a.de\" Title=\"&#1;\"/>\n"
                              "</Section>\n"),
              "北京/2012.xml:2: <Bill> has no File\n"
              "北京/2012.xml:2: <Bill> has no Name\n"
              "北京/2012.xml:3: <Bill> has no File\n"
              "北京/2012.xml:5: the Name \"规范\" stands on line 4 already\n"
              "北京/2012.xml:7: the Key \"1\" stands on line 4 already\n"
              "北京/2012.xml:8: no item has the tag \"AZ\"\n"
              "北京/2012.xml:9: the File of <Quota> can't name one file or folder: \"x/a.de\"\n"
              "北京/2012.xml:10: a character that can't be used in the attribute \"Title\" at <Quota>\n");
}

TEST(CatalogueFaults, WithoutAProviderThereAreNoBillFiles) {
    EXPECT_EQ(FaultsOfSection("<Section>\n<Bill Name=\"a\" File=\"a.qd\"/>\n</Section>\n"),
              "北京/2012.xml:1: <Section> has no Provider\n");
    EXPECT_EQ(FaultsOfSection("<Section Provider=\"\"/>"),
              "北京/2012.xml:1: the Provider of <Section> is empty\n");
    EXPECT_EQ(FaultsOfSection("<Section Provider=\"a/b\"/>"),
              "北京/2012.xml:1: the Provider of <Section> can't name one file or folder: \"a/b\"\n");
}

TEST(CatalogueFaults, EnterpriseBills) {
    EXPECT_EQ(FaultsOfBills("<EnterpriseBills>\n"
                            "<Bill File=\"一.qy\"/>\n"
                            "<Bill Name=\"a\"/>\n"
                            "<Bill Name=\"b\" File=\"\"/>\n"
                            "<Bill Name=\"c\" File=\"一.qy\">text</Bill>\n"
                            "<Bill Name=\"c\">other</Bill>\n"
                            "<Bill Name=\"d\">a&#2;b</Bill>\n"
                            "</EnterpriseBills>"),
              "北京/企业.xml:2: <Bill> has no Name\n"
              "北京/企业.xml:3: <Bill> has neither a File nor a text\n"
              "北京/企业.xml:4: the File of <Bill> is empty\n"
              "北京/企业.xml:4: <Bill> has neither a File nor a text\n"
              "北京/企业.xml:6: the Name \"c\" stands on line 5 already\n"
              "北京/企业.xml:7: a character that can't be used in the text of <Bill>\n"
              "北京/企业.xml:7: <Bill> has neither a File nor a text\n");
}

TEST(CatalogueFaults, WhatIsNotOnDisk) {
    EXPECT_EQ(FaultsOfMain(Main("<Family Name=\"北京\"><Section Name=\"2012\"/></Family>\n",
                                "\n Root=\"../Libraries\"")),
              "北京/2012.xml:3: no item has the tag \"TJ\"\n"
              "Catalogue.xml:2: there is no folder app/Libraries/\n");
    MemoryDisk disk = Whole();
    disk.Remove(L"Library\\北京\\2012\\定额库\\a.de");
    disk.Remove(L"Library\\清单库\\北京\\2012\\乙\\a.qd");
    disk.Remove(L"Library\\清单库\\企业清单\\北京\\一.qy");
    EXPECT_EQ(ReadFrom(disk).faults,
              "北京/2012.xml:2: there is no file app/Library/清单库/北京/2012/乙/a.qd\n"
              "北京/2012.xml:3: there is no file app/Library/北京/2012/定额库/a.de\n"
              "北京/企业.xml:2: there is no file app/Library/清单库/企业清单/北京/一.qy\n");
}

TEST(CatalogueFaults, AMissingFolderIsToldOnce) {
    const std::string two =
        "<Bill Name=\"a\" File=\"a\" ItemTags=\"TJ\"/>\n<Bill Name=\"b\" File=\"b\" ItemTags=\"TJ\"/>\n"
        "<Quota Name=\"a\" File=\"a\"/>\n<Quota Name=\"b\" File=\"b\"/>\n";
    MemoryDisk disk;
    disk.Add(L"LibVisitor\\Catalogue.xml", Main("<Item Name=\"土建\" Tag=\"TJ\"/><Family Name=\"f\">\n"
                                                "<Section Name=\"s\"/>\n<Section Name=\"t\"/></Family>\n"));
    disk.Add(L"LibVisitor\\f\\s.xml", SectionXml(two));
    disk.Add(L"LibVisitor\\f\\t.xml", SectionXml(two));
    disk.Add(L"Library\\f\\s\\");
    EXPECT_EQ(ReadFrom(disk).faults,
              "f/s.xml:2: there is no folder app/Library/清单库/f/s/乙/\n"
              "f/s.xml:4: there is no folder app/Library/f/s/定额库/\n"
              "f/s.xml:2: no item of the tag \"TJ\" has a folder in app/Library/f/s/子库/\n"
              "Catalogue.xml:4: there is no folder app/Library/f/t/\n");
}

TEST(CatalogueFaults, TheRestWorks) {
    MemoryDisk disk = Whole();
    disk.Add(L"LibVisitor\\北京\\2012.xml",
             SectionXml("<Bill Name=\"a\" File=\"a.qd\" Key=\"k\"><Rule Count1=\"x\" Count2=\"4\"/></Bill>\n"
                        "<Bill Name=\"b\" File=\"b.qd\" Key=\"k\"/>\n<Bill Name=\"c\"/>\n"
                        "<Quota Name=\"d\" File=\"d.de\" ItemTags=\"AZ;TJ\" Titel=\"x\"/>\n"));
    const ReadingResult result = ReadFrom(disk);
    Companion::Section& section = result.catalogue->families.at(L"北京").sections.at(L"2012");
    ASSERT_EQ(section.kinds[0].byName.size(), 2u);
    EXPECT_EQ(section.kinds[0].byName.at(L"a").rule->count1, std::nullopt);
    EXPECT_EQ(section.kinds[0].byName.at(L"a").rule->count2, 4);
    EXPECT_EQ(section.kinds[0].byKey.at(L"k"), &section.kinds[0].byName.at(L"a"));
    EXPECT_EQ(section.kinds[1].byName.at(L"d").entry.ItemTags, std::vector<std::wstring>{L"TJ"});
}

TEST(CatalogueFaults, TheReportReplacesNothingButTexts) {
    for (const char* name :
         {"Catalogue.xml", "北京\\2012.XML", ".Xml", "LibraryConfigVisitor.so", "log", "txt."}) {
        EXPECT_EQ(FaultsOfMain(Main("", "\n Report=\""s + name + "\"")),
                  "Catalogue.xml:2: the Report is named neither .txt nor .log\n");
    }
    MemoryDisk disk = Whole();
    disk.Add(L"LibVisitor\\Catalogue.xml", Main("", " Report=\"..\\Log/x.Log\""));
    EXPECT_EQ(ReadFrom(disk).catalogue->report, MemoryDisk::Path(L"Log\\x.Log"));
}

TEST(CatalogueFaults, DepthAndLengthDontMatter) {
    std::string deep = "<Catalogue>";
    for (int i = 0; i < 200'000; ++i)
        deep += "<a>";
    for (int i = 0; i < 200'000; ++i)
        deep += "</a>";
    EXPECT_EQ(
        FaultsOfMain(deep + "</Catalogue>"),
        "Catalogue.xml:1: unknown element <a> in <Catalogue>, which takes <Folder>, <Item>, <Family>\n");
    std::string wide = "<Catalogue";
    for (int i = 0; i < 20'000; ++i)
        wide += " a" + std::to_string(i) + "=''";
    MemoryDisk disk = Whole();
    disk.Add(L"LibVisitor\\Catalogue.xml", wide + "/>");
    const std::string faults = ReadFrom(disk).faults;
    EXPECT_EQ(std::count(faults.begin(), faults.end(), '\n'), 20'000);
}
