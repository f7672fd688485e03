#include "forms/win32/win32_dialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "forms/win32/common_controls.h"
#include "forms/win32/input_box.h"
#include "forms/win32/standing_box.h"
#include "forms/win32/thread_windows.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_backend.h"
#include "resources/texts.h"

namespace zv::forms::win32 {
namespace {

constexpr std::size_t kLongestPath = 32768;

// The classic filter "description|pattern|..." with zeros instead of bars and two at the end.
std::wstring NativeFilter(const std::string& filter) {
    std::wstring native = ToWide(filter);
    std::replace(native.begin(), native.end(), L'|', L'\0');
    native.append(2, L'\0');
    return native;
}

std::string TextOf(const MessageRequest& request) {
    std::string text(request.text);
    if (!request.reason.empty()) text.append("\r\n\r\n").append(request.reason);
    return text;
}

UINT DefaultOf(const MessageRequest& request) {
    if (request.standard == DefaultButton::First) return MB_DEFBUTTON1;
    constexpr int kButtons = 0xF;
    return (request.style & kButtons) == box::kYesNoCancel ? MB_DEFBUTTON3 : MB_DEFBUTTON2;
}

}  // namespace

Win32Dialogs::Win32Dialogs(Win32Backend& backend) : backend_(backend) {
    const LANGID language = GetUserDefaultUILanguage();
    okCaption = "OK";
    cancelCaption = "Cancel";
    if (PRIMARYLANGID(language) != LANG_CHINESE) return;
    const bool simplified = SUBLANGID(language) == SUBLANG_CHINESE_SIMPLIFIED ||
                            SUBLANGID(language) == SUBLANG_CHINESE_SINGAPORE;
    const std::int16_t script =
        simplified ? resources::kSimplifiedChinese : resources::kTraditionalChinese;
    okCaption = resources::LoadText(resources::DesignText::InputOk, script);
    cancelCaption = resources::LoadText(resources::DesignText::InputCancel, script);
}

HWND Win32Dialogs::OwnerWindow(const Form* owner) const {
    const HWND window = owner ? backend_.Handle(*owner) : nullptr;
    return window ? window : WindowToBlock();
}

Answer Win32Dialogs::ShowMessage(Form* owner, const MessageRequest& request) {
    const ManifestInForce manifest(backend_.Controls().Manifest());
    const DpiScope sharp = backend_.Dpi().ForWindows();
    const HWND window = OwnerWindow(owner);
    const HWND focus = GetFocus();
    int answer = 0;
    {
        const OtherWindowsDisabled others(window);
        const StandingBox standing(StandingBox::Kind::Dialog, window, backend_.GetScreens());
        answer =
            MessageBoxW(window, ToWide(TextOf(request)).c_str(), ToWide(request.title).c_str(),
                        static_cast<UINT>(request.style) | DefaultOf(request) | MB_SETFOREGROUND);
        lastDied_ = answer == 0 || standing.Died();
    }
    if (focus && IsWindow(focus) && GetActiveWindow() == GetAncestor(focus, GA_ROOT)) {
        SetFocus(focus);
    }
    // Whatever the system answers for the user.
    return lastDied_ ? Answer::None : static_cast<Answer>(answer);
}

std::optional<std::string> Win32Dialogs::AskText(Form* owner, const std::string& prompt,
                                                 const std::string& title, bool secret) {
    const ManifestInForce manifest(backend_.Controls().Manifest());
    const DpiScope sharp = backend_.Dpi().ForWindows();
    const HWND window = OwnerWindow(owner);
    const OtherWindowsDisabled others(window);
    const StandingBox standing(StandingBox::Kind::Dialog, window, backend_.GetScreens());
    InputBox box(backend_.Module(), backend_.GetScreens(), ToWide(title), ToWide(prompt), secret);
    box.okCaption = ToWide(okCaption);
    box.cancelCaption = ToWide(cancelCaption);
    const std::optional<std::wstring> text = box.Show(window);
    lastDied_ = box.Died() || standing.Died();
    if (!text || lastDied_) return {};
    return FromWide(*text);
}

std::optional<std::string> Win32Dialogs::ChooseFile(Form* owner, const FileRequest& request) {
    const ManifestInForce manifest(backend_.Controls().Manifest());
    const DpiScope sharp = backend_.Dpi().ForWindows();
    const HWND window = OwnerWindow(owner);
    const OtherWindowsDisabled others(window);
    const StandingBox standing(StandingBox::Kind::FileDialog, window, backend_.GetScreens());
    const std::wstring filter = NativeFilter(request.filter);
    const std::wstring title = ToWide(request.title);
    const std::wstring folder = ToWide(request.initialFolder);
    std::wstring path = ToWide(request.initialFile);
    path.resize(kLongestPath, L'\0');

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window;
    dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
    const std::wstring extension = ToWide(request.extension);
    dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    // The host's current folder is not ours to change.
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
    if (request.forSaving)
        dialog.Flags |= OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
    else
        dialog.Flags |= static_cast<DWORD>(request.flags);
    const BOOL chosen = request.forSaving ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
    lastDied_ = standing.Died();
    if (!chosen || lastDied_) return {};
    return FromWide(path.c_str());
}

}  // namespace zv::forms::win32
