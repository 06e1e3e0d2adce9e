// What the dialogs are shown with: the contract between what a dialog lists, decides and returns, which knows
// no toolkit, and the views of a toolkit, which decide nothing.
//
// The views may stand in a module of their own that outlives the library and isn't linked with it. So nothing
// but interfaces and types of the standard library crosses here, and a view calls nothing of the library but
// the interfaces that it was given, as long as it was given them. Nobody raises anything across this line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "QsUtils/platform/Geometry.h"

namespace QsUi {

// --- The picker: a modal dialog with a list of two columns and two buttons (see `Picker` in DialogTexts.h)

inline constexpr std::size_t NoRow = static_cast<std::size_t>(-1);

/// A message box with one button and the icon of an information, on top of the dialog.
struct InformationMessage {
    std::u16string_view text;
    std::u16string_view caption;
};

/// The dialog behind the view. Calls come from the thread of the view, while the one that opened it waits;
/// texts are good until the dialog is closed.
class IPickerDialog {
public:
    virtual std::size_t RowCount() const noexcept = 0;
    /// `column` is 0 or 1.
    virtual std::u16string_view Cell(std::size_t row, int column) const noexcept = 0;
    /// The button that confirms has been pressed, or what stands for it (Enter, a double click on a row),
    /// while `row` was the current one; `NoRow` when none was. Nothing when the dialog is to be closed as
    /// confirmed; otherwise the view shows the message and stays open.
    virtual std::optional<InformationMessage> Confirm(std::size_t row) noexcept = 0;

protected:
    ~IPickerDialog() = default;
};

// --- The folder browser: a modal dialog with a title line, a status line and a tree of folders

/// A folder in the browser's tree; what it stands for is the view's. Null is none.
using FolderItem = const void*;

/// The open browser.
class IFolderBrowserWindow {
public:
    /// Makes a folder, a path in the library's form, the current one and brings it into sight. Nothing
    /// happens for a path that is empty or leads to no folder.
    virtual void SetSelection(std::u16string_view path) = 0;
    virtual void SetStatusText(std::u16string_view text) = 0;

protected:
    ~IFolderBrowserWindow() = default;
};

/// What the browser tells while it is open: `Initialized` once, before the user can do anything; `SelChanged`
/// with a new current folder as parameter, whoever has chosen it. Numbers that a toolkit adds are to be
/// ignored.
enum class FolderBrowserMessage : std::uint32_t { Initialized = 1, SelChanged = 2 };

struct FolderBrowseInfo {
    /// The text above the tree.
    std::u16string_view title;
    /// Of `FolderBrowser` in DialogTexts.h.
    std::uint32_t flags = 0;
    /// Where the view may put the display name of the chosen folder, up to its NUL; `PathBuffer` units.
    char16_t* displayName = nullptr;
    /// Called on the thread of the view; the result is 0. `object` is the field below.
    int (*callback)(IFolderBrowserWindow* window, FolderBrowserMessage message, FolderItem item,
                    void* object) = nullptr;
    void* object = nullptr;
};

// --- The tip: a popup without title or controls that never takes the focus

struct TipFont {
    /// In tenths of a point.
    int size;
    /// A face that is installed nowhere is replaced by a similar one with the same script.
    std::u16string_view face;
};

/// A colour as 0x00BBGGRR.
using Colour = std::uint32_t;

/// The client area while it is painted; the origin is its left upper corner.
class ITipPainter {
public:
    virtual CRect ClientRect() const = 0;
    /// Fills a rectangle, with a black frame of one pixel inside of its edge.
    virtual void FillFramed(const CRect& rect, Colour fill) = 0;
    /// One line of text in the tip's font on what is there already, its left upper corner at (x, y).
    /// Characters that end a line have no meaning.
    virtual void PutText(int x, int y, Colour colour, std::u16string_view text) = 0;

protected:
    ~ITipPainter() = default;
};

/// The dialog behind the tip's window. Calls come from the window's thread.
class ITipDialog {
public:
    virtual void OnTimer() = 0;
    virtual void OnPaint(ITipPainter& painter) = 0;

protected:
    ~ITipDialog() = default;
};

/// The tip's window, hidden at first. It stands above all others and takes neither the focus nor a place in
/// the task bar; moving it, sizing it and showing it doesn't activate it.
class ITipWindow {
public:
    /// Destroys the window. Any thread may do that; no call of the dialog is under way when it returns, and
    /// none follows.
    virtual ~ITipWindow() = default;

    /// Runs work on the window's thread and waits for its end. All other calls belong there. False, with
    /// nothing run, when the toolkit shows no windows any more.
    virtual bool Run(const std::function<void()>& work) = 0;

    /// Measures a text in the tip's font as DrawText does with DT_CALCRECT and nothing else: it has lines,
    /// which end as usual, and a "&" in front of a character isn't measured. Keeps the left upper corner of
    /// `rect` and moves the right lower one to what the text takes; gives its height, for an empty text that
    /// of a line.
    virtual int Measure(std::u16string_view text, CRect& rect) = 0;

    /// The window on the screen, with its frame if the system gives it any; and its client area, which begins
    /// at (0, 0).
    virtual CRect WindowRect() const = 0;
    virtual CRect ClientRect() const = 0;
    /// Puts and sizes the window, in front of and behind the windows where it is.
    virtual void Place(int left, int top, int width, int height) = 0;

    virtual bool IsVisible() const = 0;
    virtual void ShowInactive() = 0;
    virtual void Hide() = 0;
    /// Has the whole client area painted before it returns, if the window is visible.
    virtual void Repaint() = 0;

    /// `ITipDialog::OnTimer` follows after that many milliseconds, and again and again until the timer is
    /// stopped; the timer that is running already begins anew.
    virtual void StartTimer(unsigned int milliseconds) = 0;
    virtual void StopTimer() = 0;
};

// --- All of them

/// The views of one toolkit. Any thread may call any of it, unless it says otherwise.
class IViews {
public:
    /// Shows the picker until the user ends it; whether it was confirmed.
    virtual bool RunPicker(IPickerDialog& dialog) = 0;

    /// Shows the browser until the user ends it. The chosen folder, to be given back with `Free`; null when
    /// the user has cancelled.
    virtual FolderItem BrowseForFolder(const FolderBrowseInfo& info) = 0;
    /// Writes the path of a folder in the library's form to a buffer of `FolderBrowser::PathBuffer` units,
    /// with a NUL. False, with the empty text written, when the folder has no path or one that doesn't fit.
    virtual bool GetPath(FolderItem item, char16_t* buffer) = 0;
    virtual void Free(FolderItem item) = 0;

    /// A new window for the tip, owned by the caller; null when there can't be one.
    virtual ITipWindow* CreateTipWindow(ITipDialog& dialog, const TipFont& font) = 0;

protected:
    ~IViews() = default;
};

}  // namespace QsUi
