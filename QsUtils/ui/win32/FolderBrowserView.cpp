#include "QsUtils/ui/win32/FolderBrowserView.h"

#include <string>

#include <windows.h>
#include <objbase.h>
#include <shlobj.h>

#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/win32/CommonControls.h"
#include "QsUtils/ui/win32/SystemText.h"

namespace QsUi {

namespace {

static_assert(FolderBrowser::HasStatusText == BIF_STATUSTEXT && FolderBrowser::PathBuffer == MAX_PATH &&
              static_cast<UINT>(FolderBrowserMessage::Initialized) == BFFM_INITIALIZED &&
              static_cast<UINT>(FolderBrowserMessage::SelChanged) == BFFM_SELCHANGED);

/// What the browser stands on, for as long as it is open. A thread of the host that has it already, in
/// whichever form, keeps what it has.
class ComOfThread {
public:
    ComOfThread() noexcept : m_result(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ComOfThread(const ComOfThread&) = delete;
    ComOfThread& operator=(const ComOfThread&) = delete;
    ~ComOfThread() {
        if (SUCCEEDED(m_result))
            ::CoUninitialize();
    }

private:
    HRESULT m_result;
};

class BrowserWindow final : public IFolderBrowserWindow {
public:
    explicit BrowserWindow(const FolderBrowseInfo& info) noexcept : m_info(info) {}

    void SetSelection(std::u16string_view path) override { Send(BFFM_SETSELECTIONW, TRUE, path); }
    void SetStatusText(std::u16string_view text) override { Send(BFFM_SETSTATUSTEXTW, 0, text); }

    static int CALLBACK OnMessage(HWND window, UINT message, LPARAM parameter, LPARAM self) {
        return reinterpret_cast<BrowserWindow*>(self)->Tell(window, message, parameter);
    }

private:
    int Tell(HWND window, UINT message, LPARAM parameter) {
        m_window = window;
        if (m_info.callback == nullptr)
            return 0;
        const bool hasItem = message == BFFM_SELCHANGED;  // others have numbers and texts there
        return m_info.callback(this, static_cast<FolderBrowserMessage>(message),
                               hasItem ? reinterpret_cast<FolderItem>(parameter) : nullptr, m_info.object);
    }
    void Send(UINT message, WPARAM wide, std::u16string_view text) {
        const std::wstring ended = SystemText(text);
        ::SendMessageW(m_window, message, wide, reinterpret_cast<LPARAM>(ended.c_str()));
    }

    const FolderBrowseInfo& m_info;
    HWND m_window = nullptr;
};

/// Whether the host has told this thread to quit; the browser then closes by itself, and may give what was
/// the current folder although nobody has chosen it.
bool IsThreadToQuit() noexcept {
    MSG message{};
    return ::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != 0;
}

}  // namespace

FolderItem BrowseForFolder(const FolderBrowseInfo& info) {
    const ComOfThread com;
    const CommonControls controls;
    const std::wstring title = SystemText(info.title);
    BrowserWindow browser(info);
    wchar_t name[FolderBrowser::PathBuffer] = {};
    BROWSEINFOW parameters{};
    parameters.pszDisplayName =
        info.displayName == nullptr ? name : QsPlatform::SystemUnits(info.displayName);
    parameters.lpszTitle = title.c_str();
    parameters.ulFlags = info.flags;
    parameters.lpfn = BrowserWindow::OnMessage;
    parameters.lParam = reinterpret_cast<LPARAM>(&browser);
    const FolderItem chosen = ::SHBrowseForFolderW(&parameters);
    if (!IsThreadToQuit())
        return chosen;
    FreeFolder(chosen);
    return nullptr;
}

bool GetFolderPath(FolderItem item, char16_t* buffer) {
    buffer[0] = u'\0';
    if (item == nullptr)
        return false;
    const bool hasPath =
        ::SHGetPathFromIDListW(static_cast<PCIDLIST_ABSOLUTE>(item), QsPlatform::SystemUnits(buffer)) != 0;
    if (!hasPath)
        buffer[0] = u'\0';
    return hasPath;
}

void FreeFolder(FolderItem item) {
    IMalloc* allocator = nullptr;
    if (item == nullptr || FAILED(::SHGetMalloc(&allocator)))
        return;
    allocator->Free(const_cast<void*>(item));
    allocator->Release();
}

}  // namespace QsUi
