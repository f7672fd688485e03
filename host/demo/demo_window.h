// The host's window: fields for what a host knows, a button for each operation, a log.
#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "demo/command_line.h"
#include "demo/embedded_control.h"

namespace zv::demo {

class DemoWindow {
 public:
    explicit DemoWindow(const StartOptions& options);
    ~DemoWindow();
    DemoWindow(const DemoWindow&) = delete;
    DemoWindow& operator=(const DemoWindow&) = delete;

    HWND Handle() const { return window_; }
    /// True when the key belonged to the control or moved the focus.
    bool TranslateKey(MSG& message);

 private:
    static constexpr int kModes = 10;

    struct Child {
        HWND handle = nullptr;
        RECT place{};  // at 96 dots an inch; a negative right or bottom counts from that edge
        bool isHeading = false;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT Handle(UINT message, WPARAM w, LPARAM l);
    void OnCommand(int id, int notification);

    HWND Add(const wchar_t* className, const wchar_t* text, DWORD style, int id, RECT place,
             const wchar_t* name = nullptr, DWORD extendedStyle = 0);
    void AddHeading(const wchar_t* text, int x, int y, int width);
    HWND AddField(const wchar_t* label, const wchar_t* name, int id, int& y, DWORD style = 0,
                  int width = 0);
    HWND AddList(const wchar_t* label, const wchar_t* name, int id, int& y,
                 const std::vector<std::wstring>& rows);
    void CreateFields();
    void CreateOperations();
    void FillIn(const StartOptions& options);
    void UpdateFonts();
    void Layout();
    int Scaled(int units) const { return MulDiv(units, dpi_, 96); }

    void Refresh(int mode);
    void OpenQueryWindow();
    void ApplyFields();
    void ShowBag(PropertyBag& bag);
    void SaveBag();
    void LoadBag();
    void ReadProperties();
    void BrowseData();
    void SetAllRights(bool granted);
    void Log(const std::string& line);
    std::wstring TextOf(HWND control) const;
    bool IsTicked(HWND control) const;

    HWND window_ = nullptr;
    int dpi_ = 96;
    HFONT font_ = nullptr;
    HFONT headingFont_ = nullptr;
    std::vector<Child> children_;
    std::vector<ATOM> names_;
    HWND kind_{}, data_{}, password_{}, login_{}, database_{}, user_{}, inCharge_{}, company_{},
        language_{}, rights_{}, allRights_{}, taskId_{}, date_{}, name_{}, modal_{}, log_{};
    std::unique_ptr<EmbeddedControl> control_;
    win32::ComPtr<PropertyBag> bag_;  // the last one saved
    HWND focus_ = nullptr;            // while the window is not active
};

}  // namespace zv::demo
