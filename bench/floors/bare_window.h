// A plain window with a plain tree control on it, filled the fastest way that the control offers.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string_view>

namespace zv::bench {

class BareWindow {
 public:
    BareWindow();
    ~BareWindow();
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;

    void Show();
    /// Between these two nothing is drawn.
    void BeginFill();
    void EndFill();
    HTREEITEM Add(HTREEITEM parent, int image, LPARAM data, std::string_view utf8);
    void Expand(HTREEITEM group);
    void Clear();
    /// Draws what is due and handles the waiting messages.
    void Paint();
    HWND Tree() const { return tree_; }

 private:
    HWND frame_ = nullptr;
    HWND tree_ = nullptr;
    HIMAGELIST images_ = nullptr;
    HFONT font_ = nullptr;
};

/// Handles the messages that wait.
void Pump();

}  // namespace zv::bench
