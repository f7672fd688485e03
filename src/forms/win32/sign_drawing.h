// Signs in native lists: colours, and the words at the right edge of a tree.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>

#include "forms/backend.h"
#include "forms/sign.h"
#include "forms/theme.h"

namespace zv::forms::win32 {

/// The system's colours, asked for once in each painting of a list and not for each of its rows.
class PaintedTheme {
 public:
    const SystemTheme& At(const NMCUSTOMDRAW& draw, Backend& backend) {
        if (draw.dwDrawStage == CDDS_PREPAINT) theme_ = backend.GetTheme();
        return theme_;
    }

 private:
    SystemTheme theme_;
};

/// The sign of a native item, nothing for one without.
using SignOfItem = std::function<std::optional<Sign>(LPARAM item)>;
/// The whole text of a native item as it is shown.
using TextOfItem = std::function<std::wstring(LPARAM item)>;

/// Answers NM_CUSTOMDRAW of a tree: colours the texts and puts the words behind them at the right
/// edge. A long text ends in front of them with whole letters and a mark.
LRESULT DrawTreeSigns(NMTVCUSTOMDRAW& draw, const SignOfItem& sign, const TextOfItem& text,
                      const SystemTheme& theme);
/// Where the word of a sign begins in the client area of a tree.
int SignLeft(HWND tree, HDC dc, const Sign& sign);
/// Whether a node's text is cut at the right edge, or covered there by its sign.
bool IsCut(HWND tree, HTREEITEM item, const std::optional<Sign>& sign);

/// Answers NM_CUSTOMDRAW of a list: colours the rows. Rows are numbered from 0.
LRESULT DrawListSigns(NMLVCUSTOMDRAW& draw, const SignOfItem& sign, const SystemTheme& theme);

}  // namespace zv::forms::win32
