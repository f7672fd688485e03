// A prompt, a line to type in, and two buttons.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "forms/win32/display.h"
#include "forms/win32/handles.h"
#include "forms/win32/screens.h"

namespace zv::forms::win32 {

class InputBox {
 public:
    InputBox(HINSTANCE module, const Screens& screens, std::wstring title, std::wstring prompt,
             bool secret);

    std::wstring okCaption = L"OK";
    std::wstring cancelCaption = L"Cancel";

    /// The text, or nothing when the user does not want to give one.
    std::optional<std::wstring> Show(HWND owner);
    /// Whether the box shown ended without the user.
    bool Died() const { return died_; }

    /// Id of the line to type in, for tests and macro tools.
    static constexpr int kEntryId = 100;

 private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    void Build(HWND dialog);
    void Rescale(HWND dialog, int dpi, const RECT& suggested);
    void Add(HWND dialog, const wchar_t* windowClass, const std::wstring& text, DWORD style,
             DWORD extendedStyle, int id, const Rect& place);

    /// With its frame, at the present scale.
    SIZE OuterSize(HWND dialog) const;

    HINSTANCE module_;
    const Screens& screens_;
    std::wstring title_;
    std::wstring prompt_;
    bool secret_;
    struct Part {
        HWND window;
        Rect place;
    };
    std::vector<Part> parts_;
    int height_ = 0;  ///< of its content
    Scale scale_;
    Font font_;
    std::wstring text_;
    bool died_ = false;
};

}  // namespace zv::forms::win32
