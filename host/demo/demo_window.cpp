#include "demo/demo_window.h"

#include <commdlg.h>
#include <oleauto.h>

#include <algorithm>
#include <cstdio>

#include "automation/module.h"
#include "base/win32/wide.h"
#include "demo/demo_texts.h"
#include "demo/menu_choice.h"
#include "resources/text_ids.h"
#include "resources/texts.h"

namespace zv::demo {
namespace {

using win32::ToUtf8;
using win32::ToWide;
using win32::Variant;

constexpr wchar_t kClassName[] = L"zvDemoWindow";
constexpr wchar_t kNameProperty[] = L"zv.Name";
constexpr std::size_t kRights = 350;

constexpr UINT kRunAlert = WM_APP + 1;

enum Id {
    kIdFirstMode = 100,  // and one for each mode
    kIdBrowse = 120,
    kIdAllRights,
    kIdQuery,
    kIdSaveBag,
    kIdLoadBag,
    kIdRead,
    kIdClear,
    kIdField
};

// At 96 dots an inch.
constexpr int kMargin = 14;
constexpr int kLabelWidth = 104;
constexpr int kFieldLeft = kMargin + kLabelWidth + 6;
constexpr int kFieldWidth = 236;
constexpr int kColumn = kFieldLeft + kFieldWidth + 28;
constexpr int kRow = 30;
constexpr int kFieldHeight = 24;
constexpr int kButtonHeight = 30;
constexpr int kSmallestWidth = 820;
constexpr int kSmallestHeight = 620;

std::vector<std::wstring> LanguageNames() {
    std::vector<std::wstring> names;
    for (std::int16_t language = 0; language < resources::LanguageCount(); language++) {
        names.push_back(ToWide(resources::LoadText(resources::DesignText::LanguageName, language)));
    }
    return names;
}

// What the control's menu calls it, in every language: the control may still show the one before.
std::vector<std::wstring> QueryWindowCaptions() {
    std::vector<std::wstring> captions;
    for (std::int16_t language = 0; language < resources::LanguageCount(); language++) {
        captions.push_back(ToWide(resources::LoadText(text_id::kQuery, language) +
                                  resources::LoadText(text_id::kTask, language)));
    }
    return captions;
}

// Present from Windows 10 on; older systems have one scale for all displays.
int DpiOf(HWND window) {
    using Function = UINT(WINAPI*)(HWND);
    static const auto function = reinterpret_cast<Function>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow"));
    if (function) {
        if (const UINT dpi = function(window)) return static_cast<int>(dpi);
    }
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

LOGFONTW MessageFont(int dpi) {
    using Function = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto function = reinterpret_cast<Function>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "SystemParametersInfoForDpi"));
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!function ||
        !function(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    }
    return metrics.lfMessageFont;
}

RECT Place(int left, int top, int width, int height) {
    return {left, top, left + width, top + height};
}

std::wstring DefaultDataPath() {
    const std::wstring program = automation::module::PathOf(nullptr);
    const std::wstring file = program.substr(0, program.find_last_of(L'\\') + 1) + L"taskAlert.db";
    return GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES ? L"" : file;
}

}  // namespace

DemoWindow::DemoWindow(const StartOptions& options) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = &DemoWindow::Procedure;
    windowClass.hInstance = instance;
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kClassName;
    RegisterClassExW(&windowClass);
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, texts::kTitle,
                              WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                              960, 700, nullptr, nullptr, instance, this);
    dpi_ = DpiOf(window_);
    SetWindowPos(window_, nullptr, 0, 0, Scaled(960), Scaled(700), SWP_NOMOVE | SWP_NOZORDER);
    CreateFields();
    CreateOperations();
    UpdateFonts();
    Layout();
    FillIn(options);
    ShowWindow(window_, SW_SHOWDEFAULT);
    SetFocus(user_);

    control_ = std::make_unique<EmbeddedControl>(window_, RECT{0, 0, 1, 1},
                                                 [this](const std::string& line) { Log(line); });
    control_->Create(nullptr);
    if (options.alert) PostMessageW(window_, kRunAlert, 0, 0);
}

DemoWindow::~DemoWindow() {
    control_.reset();
    if (window_) DestroyWindow(window_);
    for (const ATOM name : names_) GlobalDeleteAtom(name);
    DeleteObject(font_);
    DeleteObject(headingFont_);
}

bool DemoWindow::TranslateKey(MSG& message) {
    if (control_ && control_->TranslateKey(message)) return true;
    return IsDialogMessageW(window_, &message) != FALSE;
}

LRESULT CALLBACK DemoWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<DemoWindow*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<DemoWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, w, l);
    try {
        return self->Handle(message, w, l);
    } catch (const std::exception& error) {
        MessageBoxW(window, ToWide(error.what()).c_str(), L"zvDemo", MB_ICONERROR);
        return 0;
    }
}

LRESULT DemoWindow::Handle(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_COMMAND:
            OnCommand(LOWORD(w), HIWORD(w));
            return 0;
        case WM_SIZE:
            Layout();
            return 0;
        case WM_GETMINMAXINFO: {
            auto* limits = reinterpret_cast<MINMAXINFO*>(l);
            limits->ptMinTrackSize = {Scaled(kSmallestWidth), Scaled(kSmallestHeight)};
            return 0;
        }
        case WM_DPICHANGED: {
            dpi_ = HIWORD(w);
            UpdateFonts();
            const auto* place = reinterpret_cast<const RECT*>(l);
            SetWindowPos(window_, nullptr, place->left, place->top, place->right - place->left,
                         place->bottom - place->top, SWP_NOZORDER | SWP_NOACTIVATE);
            Layout();
            return 0;
        }
        case WM_SETTINGCHANGE:
            UpdateFonts();
            Layout();
            return 0;
        case WM_ACTIVATE:
            // The default procedure forgets which field had the focus.
            if (LOWORD(w) == WA_INACTIVE) {
                focus_ = GetFocus();
            } else if (focus_ && IsChild(window_, focus_)) {
                SetFocus(focus_);
            }
            return 0;
        case WM_CTLCOLORSTATIC:
            if (reinterpret_cast<HWND>(l) == log_) {
                SetBkColor(reinterpret_cast<HDC>(w), GetSysColor(COLOR_WINDOW));
                SetTextColor(reinterpret_cast<HDC>(w), GetSysColor(COLOR_WINDOWTEXT));
                return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
            }
            break;
        case kRunAlert:
            Refresh(0);
            return 0;
        case WM_DESTROY:
            control_.reset();
            for (const Child& child : children_) RemovePropW(child.handle, kNameProperty);
            PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY:
            window_ = nullptr;
            break;
        default:
            break;
    }
    return window_ ? DefWindowProcW(window_, message, w, l) : 0;
}

void DemoWindow::OnCommand(int id, int notification) {
    if (id >= kIdFirstMode && id < kIdFirstMode + kModes) {
        if (notification == BN_CLICKED) Refresh(id - kIdFirstMode);
        return;
    }
    if (notification != BN_CLICKED) return;
    switch (id) {
        case kIdBrowse:
            BrowseData();
            break;
        case kIdAllRights:
            SetAllRights(IsTicked(allRights_));
            break;
        case kIdQuery:
            OpenQueryWindow();
            break;
        case kIdSaveBag:
            SaveBag();
            break;
        case kIdLoadBag:
            LoadBag();
            break;
        case kIdRead:
            ReadProperties();
            break;
        case kIdClear:
            SetWindowTextW(log_, L"");
            break;
        default:
            break;
    }
}

HWND DemoWindow::Add(const wchar_t* className, const wchar_t* text, DWORD style, int id, RECT place,
                     const wchar_t* name, DWORD extendedStyle) {
    const HWND handle = CreateWindowExW(
        extendedStyle, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    if (name) {
        // Other programs find the field by this name.
        const ATOM atom = GlobalAddAtomW(name);
        names_.push_back(atom);
        SetPropW(handle, kNameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
    }
    children_.push_back({handle, place});
    return handle;
}

void DemoWindow::AddHeading(const wchar_t* text, int x, int y, int width) {
    Add(L"STATIC", text, SS_LEFT | SS_NOPREFIX, -1, Place(x, y, width, 22));
    children_.back().isHeading = true;
}

HWND DemoWindow::AddField(const wchar_t* label, const wchar_t* name, int id, int& y, DWORD style,
                          int width) {
    Add(L"STATIC", label, SS_LEFT | SS_CENTERIMAGE, -1,
        Place(kMargin, y, kLabelWidth, kFieldHeight));
    const HWND field = Add(L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL | style, id,
                           Place(kFieldLeft, y, width ? width : kFieldWidth, kFieldHeight), name,
                           WS_EX_CLIENTEDGE);
    y += kRow;
    return field;
}

HWND DemoWindow::AddList(const wchar_t* label, const wchar_t* name, int id, int& y,
                         const std::vector<std::wstring>& rows) {
    Add(L"STATIC", label, SS_LEFT | SS_CENTERIMAGE, -1,
        Place(kMargin, y, kLabelWidth, kFieldHeight));
    // The height is that of the opened list.
    const HWND list = Add(L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, id,
                          Place(kFieldLeft, y, kFieldWidth, 160), name);
    for (const std::wstring& row : rows) {
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    }
    SendMessageW(list, CB_SETCURSEL, 0, 0);
    y += kRow;
    return list;
}

void DemoWindow::CreateFields() {
    int y = kMargin;
    AddHeading(texts::kUser, kMargin, y, kColumn - kMargin * 2);
    y += 26;
    user_ = AddField(texts::kUserName, L"txtUserName", kIdField, y);
    inCharge_ = AddField(texts::kInCharge, L"txtZgName", kIdField, y);
    company_ = AddField(texts::kCompany, L"txtCompName", kIdField, y);
    language_ = AddList(texts::kLanguage, L"cboLanguage", kIdField, y, LanguageNames());
    rights_ = AddField(texts::kRights, L"txtPower", kIdField, y);
    allRights_ = Add(L"BUTTON", texts::kAllRights, WS_TABSTOP | BS_AUTOCHECKBOX, kIdAllRights,
                     Place(kFieldLeft, y - 2, kFieldWidth, kFieldHeight), L"chkPower");
    y += kRow + 8;

    AddHeading(texts::kDatabase, kMargin, y, kColumn - kMargin * 2);
    y += 26;
    kind_ = AddList(texts::kKind, L"cboKind", kIdField, y, {texts::kFileKind, texts::kServerKind});
    const int dataRow = y;
    data_ = AddField(texts::kDataPath, L"txtDataPath", kIdField, y, 0, kFieldWidth - 40);
    Add(L"BUTTON", L"…", WS_TABSTOP | BS_PUSHBUTTON, kIdBrowse,
        Place(kFieldLeft + kFieldWidth - 34, dataRow, 34, kFieldHeight), L"cmdBrowse");
    password_ = AddField(texts::kPassword, L"txtPassword", kIdField, y, ES_PASSWORD);
    login_ = AddField(texts::kLogin, L"txtUserID", kIdField, y);
    database_ = AddField(texts::kDefaultDatabase, L"txtDefault", kIdField, y);
    y += 8;

    AddHeading(texts::kParameters, kMargin, y, kColumn - kMargin * 2);
    y += 26;
    name_ = AddField(texts::kName, L"txtMyName", kIdField, y);
    taskId_ = AddField(texts::kTaskNumber, L"txtMyTaskID", kIdField, y, ES_NUMBER);
    date_ = AddField(texts::kDateOrFlag, L"txtMyDate", kIdField, y);
    modal_ = Add(L"BUTTON", texts::kModal, WS_TABSTOP | BS_AUTOCHECKBOX, kIdField,
                 Place(kFieldLeft, y - 2, kFieldWidth, kFieldHeight), L"chkModal");
}

void DemoWindow::CreateOperations() {
    constexpr int kButtonWidth = 178;
    constexpr int kPerRow = 2;
    int y = kMargin;
    AddHeading(texts::kOpen, kColumn, y, 300);
    y += 26;
    for (int mode = 0; mode < kModes; ++mode) {
        const int left = kColumn + (mode % kPerRow) * (kButtonWidth + 8);
        const int top = y + (mode / kPerRow) * (kButtonHeight + 6);
        const std::wstring name = L"cmdRefresh" + std::to_wstring(mode);
        Add(L"BUTTON", texts::kModes[mode], WS_TABSTOP | BS_PUSHBUTTON | BS_LEFT,
            kIdFirstMode + mode, Place(left, top, kButtonWidth, kButtonHeight), name.c_str());
    }
    y += (kModes / kPerRow) * (kButtonHeight + 6);
    Add(L"BUTTON", texts::kQueryWindow, WS_TABSTOP | BS_PUSHBUTTON | BS_LEFT, kIdQuery,
        Place(kColumn, y, kButtonWidth, kButtonHeight), L"cmdQuery");
    y += kButtonHeight + 16;

    AddHeading(texts::kWhatTheControlDid, kColumn, y, 300);
    y += 26;
    const int bottomRow = kMargin + kButtonHeight;
    log_ = Add(L"EDIT", L"",
               WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | ES_NOHIDESEL,
               kIdField, RECT{kColumn, y, -kMargin, -(bottomRow + 8)}, L"txtLog", WS_EX_CLIENTEDGE);
    SendMessageW(log_, EM_SETLIMITTEXT, 0, 0);
    struct {
        const wchar_t* caption;
        int id;
        const wchar_t* name;
    } constexpr kButtons[] = {{texts::kSaveBag, kIdSaveBag, L"cmdSaveBag"},
                              {texts::kLoadBag, kIdLoadBag, L"cmdLoadBag"},
                              {texts::kRead, kIdRead, L"cmdRead"},
                              {texts::kClear, kIdClear, L"cmdClear"}};
    int left = kColumn;
    for (const auto& button : kButtons) {
        constexpr int kWidth = 112;
        Add(L"BUTTON", button.caption, WS_TABSTOP | BS_PUSHBUTTON, button.id,
            RECT{left, -bottomRow, left + kWidth, -kMargin}, button.name);
        left += kWidth + 8;
    }
}

void DemoWindow::FillIn(const StartOptions& options) {
    SetWindowTextW(user_, options.user.c_str());
    SetWindowTextW(inCharge_, options.user.c_str());
    SetWindowTextW(company_, texts::kStandInCompany);
    SetWindowTextW(data_, (options.data.empty() ? DefaultDataPath() : options.data).c_str());
    SendMessageW(language_, CB_SETCURSEL, static_cast<WPARAM>(options.language), 0);
    SendMessageW(rights_, EM_SETLIMITTEXT, kRights, 0);
    SendMessageW(allRights_, BM_SETCHECK, BST_CHECKED, 0);
    SetAllRights(true);
}

void DemoWindow::UpdateFonts() {
    LOGFONTW description = MessageFont(dpi_);
    const HFONT font = CreateFontIndirectW(&description);
    description.lfWeight = FW_BOLD;
    const HFONT headingFont = CreateFontIndirectW(&description);
    for (const Child& child : children_) {
        SendMessageW(child.handle, WM_SETFONT,
                     reinterpret_cast<WPARAM>(child.isHeading ? headingFont : font), TRUE);
    }
    if (font_) DeleteObject(font_);
    if (headingFont_) DeleteObject(headingFont_);
    font_ = font;
    headingFont_ = headingFont;
}

void DemoWindow::Layout() {
    RECT client{};
    GetClientRect(window_, &client);
    const auto along = [this](LONG units, LONG extent) -> int {
        return units < 0 ? static_cast<int>(extent) + Scaled(static_cast<int>(units))
                         : Scaled(static_cast<int>(units));
    };
    for (const Child& child : children_) {
        const int left = along(child.place.left, client.right);
        const int top = along(child.place.top, client.bottom);
        SetWindowPos(child.handle, nullptr, left, top,
                     std::max(along(child.place.right, client.right) - left, 0),
                     std::max(along(child.place.bottom, client.bottom) - top, 0),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void DemoWindow::Refresh(int mode) {
    if (!control_ || !control_->Exists()) {
        Log(texts::kNotRegistered);
        return;
    }
    ApplyFields();
    control_->Refresh(mode, IsTicked(modal_));
}

// The control has no mode for the query window: it is an entry of the task manager's menu.
void DemoWindow::OpenQueryWindow() {
    constexpr std::int32_t kManager = 1;
    if (!control_ || !control_->Exists()) {
        Refresh(kManager);
        return;
    }
    ApplyFields();
    control_->Refresh(kManager, false);
    const HWND manager = FindNamedWindow(L"frmTaskMain");
    if (!manager || !ChooseMenuEntry(manager, QueryWindowCaptions())) {
        Log(texts::kNoQueryWindow);
    }
}

void DemoWindow::ApplyFields() {
    const auto text = [this](HWND field) { return Variant(std::wstring_view(TextOf(field))); };
    const auto position = [](HWND list) {
        return Variant(static_cast<std::int16_t>(SendMessageW(list, CB_GETCURSEL, 0, 0)));
    };
    Log(texts::kSetProperties);
    control_->Put(L"SQLData", position(kind_));
    control_->Put(L"UserPath", text(data_));
    control_->Put(L"Password", text(password_), true);
    control_->Put(L"UserID", text(login_));
    control_->Put(L"Default", text(database_));
    control_->Put(L"Language", position(language_));
    control_->Put(L"UserName", text(user_));
    control_->Put(L"ZgName", text(inCharge_));
    control_->Put(L"CompName", text(company_));
    control_->Put(L"myPower", text(rights_));
    control_->Put(L"myName", text(name_));
    control_->Put(L"myTaskID", Variant(std::int32_t{_wtoi(TextOf(taskId_).c_str())}));
    Variant date = text(date_);
    if (!TextOf(date_).empty()) {
        // A number is a flag, anything else a date in the user's own writing.
        if (FAILED(date.ChangeType(VT_R8)) &&
            FAILED(VariantChangeType(&date.Ref(), &date.Ref(), 0, VT_DATE))) {
            Log(texts::kNoDate);
        } else {
            if (date.Type() == VT_R8) date = Variant::Date(date.Get().dblVal);
            control_->Put(L"myDate", date);
        }
    }
}

void DemoWindow::ShowBag(PropertyBag& bag) {
    for (const auto& [key, value] : bag.Entries()) {
        const bool secret = _wcsicmp(key.c_str(), L"Password") == 0;
        Log("  " + ToUtf8(key) + " = " + (secret ? "••••" : Describe(value)));
    }
}

void DemoWindow::SaveBag() {
    if (!control_->Exists()) return Log(texts::kNoControl);
    ApplyFields();
    bag_ = control_->Save();
    if (bag_) ShowBag(*bag_);
}

void DemoWindow::LoadBag() {
    Log(bag_ ? texts::kMadeOfBag : texts::kMadeAnew);
    control_->Create(bag_.Get());
}

void DemoWindow::ReadProperties() {
    if (!control_->Exists()) return Log(texts::kNoControl);
    for (const wchar_t* property : {L"myName", L"AlertType", L"UserID", L"Default", L"Zorvan"}) {
        Log("  = " + Describe(control_->Get(property)));
    }
}

void DemoWindow::BrowseData() {
    wchar_t path[1024] = L"";
    TextOf(data_).copy(path, ARRAYSIZE(path) - 1);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window_;
    dialog.lpstrFilter = texts::kDatabaseFilter;
    dialog.lpstrFile = path;
    dialog.nMaxFile = ARRAYSIZE(path);
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&dialog)) SetWindowTextW(data_, path);
}

void DemoWindow::SetAllRights(bool granted) {
    SetWindowTextW(rights_, std::wstring(kRights, granted ? L'1' : L'0').c_str());
}

void DemoWindow::Log(const std::string& line) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t time[16];
    swprintf(time, ARRAYSIZE(time), L"%02d:%02d:%02d  ", now.wHour, now.wMinute, now.wSecond);
    const std::wstring text = time + ToWide(line) + L"\r\n";
    const int end = GetWindowTextLengthW(log_);
    SendMessageW(log_, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(log_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
}

std::wstring DemoWindow::TextOf(HWND control) const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool DemoWindow::IsTicked(HWND control) const {
    return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

}  // namespace zv::demo
