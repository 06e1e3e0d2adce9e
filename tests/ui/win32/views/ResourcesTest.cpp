// The resources that go into the module.
#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/platform/win32/OwnModule.h"
#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/win32/DialogIds.h"
#include "QsUtils/ui/win32/SystemText.h"

namespace {

/// The head of an extended dialog template, as the system lays it out.
#pragma pack(push, 2)
struct TemplateHead {
    WORD version;
    WORD signature;
    DWORD help;
    DWORD extendedStyle;
    DWORD style;
    WORD controls;
    short x, y, width, height;
};
struct ItemHead {
    DWORD help;
    DWORD extendedStyle;
    DWORD style;
    short x, y, width, height;
    DWORD id;
};
#pragma pack(pop)

constexpr WORD ButtonClass = 0x80;
constexpr WORD StaticClass = 0x82;

struct Item {
    ItemHead head;
    WORD kind;
    std::wstring text;
};

/// Reads what stands in a template one after the other.
class TemplateReader {
public:
    explicit TemplateReader(WORD id) {
        const HMODULE module = QsPlatform::OwnModule();
        const HRSRC found = ::FindResourceW(module, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(5));
        if (found != nullptr)
            m_bytes = static_cast<const std::byte*>(::LockResource(::LoadResource(module, found)));
    }
    bool IsFound() const { return m_bytes != nullptr; }

    template <typename T>
    T Take() {
        T value;
        std::memcpy(&value, m_bytes + m_place, sizeof value);
        m_place += sizeof value;
        return value;
    }
    std::wstring TakeText() {
        std::wstring text;
        while (const wchar_t unit = Take<wchar_t>())
            text += unit;
        return text;
    }
    Item TakeItem() {
        m_place = (m_place + 3) / 4 * 4;
        Item item{};
        item.head = Take<ItemHead>();
        EXPECT_EQ(Take<WORD>(), 0xFFFF);
        item.kind = Take<WORD>();
        item.text = TakeText();
        m_place += Take<WORD>();
        return item;
    }

private:
    const std::byte* m_bytes = nullptr;
    std::size_t m_place = 0;
};

struct Font {
    WORD size;
    WORD weight;
    BYTE italic;
    BYTE charset;
    std::wstring face;
};

Font TakeFont(TemplateReader& reader) {
    Font font{};
    font.size = reader.Take<WORD>();
    font.weight = reader.Take<WORD>();
    font.italic = reader.Take<BYTE>();
    font.charset = reader.Take<BYTE>();
    font.face = reader.TakeText();
    return font;
}

void ExpectPlace(const Item& item, DWORD id, int x, int y, int width, int height) {
    EXPECT_EQ(item.head.id, id);
    EXPECT_EQ(item.head.x, x);
    EXPECT_EQ(item.head.y, y);
    EXPECT_EQ(item.head.width, width);
    EXPECT_EQ(item.head.height, height);
    EXPECT_TRUE(item.head.style & WS_CHILD);
}

TEST(DialogResources, TheTipIsAPopupWithNothingInIt) {
    TemplateReader reader(8000);
    ASSERT_TRUE(reader.IsFound());
    const auto head = reader.Take<TemplateHead>();
    EXPECT_EQ(head.signature, 0xFFFF);
    EXPECT_EQ(head.controls, 0);
    EXPECT_EQ(head.width, 186);
    EXPECT_EQ(head.height, 28);
    EXPECT_TRUE(head.style & WS_POPUP);
    EXPECT_FALSE(head.style & (WS_VISIBLE | WS_CHILD | WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_SYSMENU));
    EXPECT_EQ(reader.Take<WORD>(), 0);  // the menu
    EXPECT_EQ(reader.Take<WORD>(), 0);  // the class
    EXPECT_EQ(reader.TakeText(), L"");
    const Font font = TakeFont(reader);
    EXPECT_EQ(font.size, 8);
    EXPECT_EQ(font.face, L"MS Shell Dlg");
}

TEST(DialogResources, ThePickerHasTwoButtonsAndThePlaceOfAList) {
    TemplateReader reader(8001);
    ASSERT_TRUE(reader.IsFound());
    const auto head = reader.Take<TemplateHead>();
    ASSERT_EQ(head.controls, 3);
    EXPECT_EQ(head.width, QsUi::Picker::Width);
    EXPECT_EQ(head.height, QsUi::Picker::Height);
    EXPECT_EQ(head.width, 365);
    EXPECT_EQ(head.height, 219);
    EXPECT_EQ(reader.Take<WORD>(), 0);
    EXPECT_EQ(reader.Take<WORD>(), 0);
    EXPECT_EQ(reader.TakeText(), QsUi::SystemText(QsUi::Picker::Title));
    const Font font = TakeFont(reader);
    EXPECT_EQ(font.size, 8);
    EXPECT_EQ(font.weight, 0);
    EXPECT_EQ(font.italic, 0);
    EXPECT_EQ(font.face, L"MS Shell Dlg");

    const Item confirm = reader.TakeItem();
    ExpectPlace(confirm, 1, 63, 198, 50, 14);
    EXPECT_EQ(confirm.kind, ButtonClass);
    EXPECT_EQ(confirm.text, QsUi::SystemText(QsUi::Picker::Confirm));
    EXPECT_EQ(confirm.head.style & BS_TYPEMASK, static_cast<DWORD>(BS_DEFPUSHBUTTON));
    const Item cancel = reader.TakeItem();
    ExpectPlace(cancel, 2, 257, 198, 50, 14);
    EXPECT_EQ(cancel.kind, ButtonClass);
    EXPECT_EQ(cancel.text, QsUi::SystemText(QsUi::Picker::Cancel));
    EXPECT_EQ(cancel.head.style & BS_TYPEMASK, static_cast<DWORD>(BS_PUSHBUTTON));
    const Item place = reader.TakeItem();
    ExpectPlace(place, 8000, 7, 7, 351, 185);
    EXPECT_EQ(place.kind, StaticClass);
    EXPECT_EQ(place.text, L"");
}

TEST(DialogResources, TheManifestAsksForTheCurrentControls) {
    const HMODULE module = QsPlatform::OwnModule();
    const HRSRC found = ::FindResourceW(module, MAKEINTRESOURCEW(2), MAKEINTRESOURCEW(24));
    ASSERT_NE(found, nullptr);
    const std::string text(static_cast<const char*>(::LockResource(::LoadResource(module, found))),
                           ::SizeofResource(module, found));
    EXPECT_NE(text.find("Microsoft.Windows.Common-Controls"), std::string::npos);
    EXPECT_NE(text.find("6.0.0.0"), std::string::npos);
}

TEST(DialogResources, TheModuleCarriesThemAndItsVersion) {
    const HMODULE module = ::LoadLibraryA(QSUTILS_MODULE);
    ASSERT_NE(module, nullptr);
    for (const int dialog : {8000, 8001})
        EXPECT_NE(::FindResourceW(module, MAKEINTRESOURCEW(dialog), MAKEINTRESOURCEW(5)), nullptr) << dialog;
    const HRSRC found = ::FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16));
    ASSERT_NE(found, nullptr);
    const std::wstring block(static_cast<const wchar_t*>(::LockResource(::LoadResource(module, found))),
                             ::SizeofResource(module, found) / sizeof(wchar_t));
    const std::wstring version(QSUTILS_VERSION, QSUTILS_VERSION + sizeof QSUTILS_VERSION - 1);
    for (const std::wstring& text : {std::wstring(L"FileVersion"), version, std::wstring(L"OriginalFilename"),
                                     std::wstring(L"QsUtils.dll")})
        EXPECT_NE(block.find(text + L'\0'), std::wstring::npos);
    ::FreeLibrary(module);
}

}  // namespace
