// What the dialogs say and how large they are, the same in every toolkit.
#pragma once

#include <cstdint>
#include <string_view>

namespace QsUi {

/// How a modal dialog ends, with the values of the buttons of those names.
inline constexpr int IdOk = 1;
inline constexpr int IdCancel = 2;

namespace Picker {

inline constexpr std::u16string_view Title = u"选择模板";
inline constexpr std::u16string_view Confirm = u"确定";
inline constexpr std::u16string_view Cancel = u"取消";
/// The headers of the columns, and their widths in pixels of 96 to the inch.
inline constexpr std::u16string_view Columns[] = {u"模板名称", u"来源"};
inline constexpr int ColumnWidths[] = {260, 220};
/// Dialog units of the font "MS Shell Dlg" at 8 points.
inline constexpr int Width = 365;
inline constexpr int Height = 219;

}  // namespace Picker

namespace FolderBrowser {

inline constexpr std::u16string_view Title = u"当前选择：";
/// That the browser has a status line.
inline constexpr std::uint32_t HasStatusText = 4;
/// Units of a buffer for a path, with its NUL.
inline constexpr int PathBuffer = 260;

}  // namespace FolderBrowser

}  // namespace QsUi
