#include "QsUtils/ui/win32/TemplateList.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include <commctrl.h>

#include "QsUtils/platform/win32/OwnModule.h"
#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/win32/DialogIds.h"
#include "QsUtils/ui/win32/SystemText.h"

namespace QsUi {

namespace {

/// What the control takes.
constexpr std::size_t MostRows = 100'000'000;

constexpr DWORD Style = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                        LVS_SINGLESEL | LVS_SHOWSELALWAYS;
constexpr DWORD ExtendedStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;

/// Pixels of 96 to the inch in those of the screen.
int Scaled(HWND window, int pixels) noexcept {
    const HDC dc = ::GetDC(window);
    const int scaled = ::MulDiv(pixels, ::GetDeviceCaps(dc, LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
    ::ReleaseDC(window, dc);
    return scaled;
}

RECT PlaceIn(HWND parent, HWND control) noexcept {
    RECT rect{};
    ::GetWindowRect(control, &rect);
    ::MapWindowPoints(HWND_DESKTOP, parent, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

/// Whether a text, or only its beginning, is the same as another but for case.
bool IsAlike(std::u16string_view text, std::u16string_view wanted, bool onlyItsBeginning) noexcept {
    if (onlyItsBeginning)
        text = text.substr(0, wanted.size());
    if (text.size() != wanted.size() || text.size() > QsPlatform::MostUnits)
        return false;
    const int length = static_cast<int>(text.size());
    return ::CompareStringOrdinal(QsPlatform::SystemUnits(text.data()), length,
                                  QsPlatform::SystemUnits(wanted.data()), length, TRUE) == CSTR_EQUAL;
}

/// The first place from `start` on that is what the control looks for; -1 when there is none.
LRESULT FindPlace(const IPickerDialog& dialog, const RowOrder& order, std::size_t start,
                  const LVFINDINFOW& find) noexcept {
    const std::size_t count = std::min(dialog.RowCount(), MostRows);
    if ((find.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || find.psz == nullptr || count == 0)
        return -1;
    const std::u16string_view text(reinterpret_cast<const char16_t*>(find.psz));
    const bool wraps = (find.flags & LVFI_WRAP) != 0;
    const std::size_t end = wraps ? start + count : count;
    for (std::size_t i = start; i < end; ++i) {
        if (IsAlike(dialog.Cell(order.RowAt(i % count), 0), text, (find.flags & LVFI_PARTIAL) != 0))
            return static_cast<LRESULT>(i % count);
    }
    return -1;
}

}  // namespace

bool TemplateList::Create(HWND parent, HWND place) {
    const RECT rect = PlaceIn(parent, place);
    const std::wstring name = SystemText(Picker::Title);  // for those who have the screen read to them
    m_window = ::CreateWindowExW(0, WC_LISTVIEWW, name.c_str(), Style, rect.left, rect.top,
                                 rect.right - rect.left, rect.bottom - rect.top, parent,
                                 reinterpret_cast<HMENU>(UINT_PTR{IDC_TEMPLATE_LIST}),
                                 QsPlatform::OwnModule(), nullptr);
    if (m_window == nullptr)
        return false;
    ::ShowWindow(place, SW_HIDE);
    // The first of the dialog's controls, as it is to the eye.
    ::SetWindowPos(m_window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SendMessageW(m_window, WM_SETFONT, static_cast<WPARAM>(::SendMessageW(parent, WM_GETFONT, 0, 0)),
                   FALSE);
    ::SendMessageW(m_window, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, ExtendedStyle);
    AddColumns();
    ::SendMessageW(m_window, LVM_SETITEMCOUNT, std::min(m_dialog.RowCount(), MostRows), 0);
    return true;
}

void TemplateList::AddColumns() {
    const auto header = reinterpret_cast<HWND>(::SendMessageW(m_window, LVM_GETHEADER, 0, 0));
    for (std::size_t i = 0; i < std::size(Picker::Columns); ++i) {
        std::wstring title = SystemText(Picker::Columns[i]);
        LVCOLUMNW column{};
        column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
        column.fmt = LVCFMT_LEFT;
        column.cx = Scaled(m_window, Picker::ColumnWidths[i]);
        column.pszText = title.data();
        column.iSubItem = static_cast<int>(i);
        ::SendMessageW(m_window, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        // Of the column the control knows one alignment; that of the title is the header's own.
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        item.fmt = HDF_STRING | HDF_CENTER;
        ::SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
}

std::size_t TemplateList::CurrentRow() const noexcept {
    const LRESULT place = ::SendMessageW(m_window, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    return place < 0 ? NoRow : m_order.RowAt(static_cast<std::size_t>(place));
}

LRESULT TemplateList::OnNotify(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            PutText(reinterpret_cast<NMLVDISPINFOW&>(header).item);
            return 0;
        case LVN_ODFINDITEMW: {
            const auto& find = reinterpret_cast<const NMLVFINDITEMW&>(header);
            return FindPlace(m_dialog, m_order, static_cast<std::size_t>(std::max(find.iStart, 0)),
                             find.lvfi);
        }
        case LVN_COLUMNCLICK:
            SortBy(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
            return 0;
        default:
            return 0;
    }
}

void TemplateList::PutText(LVITEMW& item) {
    if ((item.mask & LVIF_TEXT) == 0 || item.iItem < 0)
        return;
    std::wstring& text = m_texts[m_nextText];
    m_nextText = (m_nextText + 1) % std::size(m_texts);
    text = SystemText(m_dialog.Cell(m_order.RowAt(static_cast<std::size_t>(item.iItem)), item.iSubItem));
    item.pszText = text.data();
}

void TemplateList::SortBy(int column) {
    const std::size_t row = CurrentRow();
    m_order.SortBy(column);
    if (row != NoRow)
        MakeCurrent(m_order.PlaceOf(row));
    ::InvalidateRect(m_window, nullptr, TRUE);
}

void TemplateList::MakeCurrent(std::size_t place) noexcept {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    ::SendMessageW(m_window, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = item.stateMask;
    ::SendMessageW(m_window, LVM_SETITEMSTATE, place, reinterpret_cast<LPARAM>(&item));
    ::SendMessageW(m_window, LVM_ENSUREVISIBLE, place, FALSE);
}

}  // namespace QsUi
