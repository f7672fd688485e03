// Installs and removes PostScript printers in a Wine prefix that knows no print server.
//
//   zvPrinters add NAME PORT     with the driver wineps.drv and its generic description
//   zvPrinters remove NAME
//   zvPrinters default NAME
//   zvPrinters list
#include <windows.h>

#include <winspool.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr wchar_t kDriverName[] = L"zv PostScript";

int Report(const char* what, bool done) {
    if (done) return 0;
    std::fprintf(stderr, "%s: error %lu\n", what, GetLastError());
    return 1;
}

// The generic description of a PostScript printer is a resource of the spooler's library.
bool WriteDescription(const std::wstring& path) {
    const HMODULE spooler = LoadLibraryW(L"winspool.drv");
    const HRSRC resource =
        spooler ? FindResourceW(spooler, MAKEINTRESOURCEW(1), L"PPDFILE") : nullptr;
    const HGLOBAL loaded = resource ? LoadResource(spooler, resource) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return false;
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const bool done = WriteFile(file, bytes, SizeofResource(spooler, resource), &written, nullptr);
    CloseHandle(file);
    return done;
}

int Add(wchar_t* name, wchar_t* port) {
    wchar_t folder[MAX_PATH + 1];
    GetTempPathW(MAX_PATH, folder);
    std::wstring description = std::wstring(folder) + L"zv_generic.ppd";
    if (!WriteDescription(description)) return Report("description", false);
    std::wstring driver = L"wineps.drv";
    DRIVER_INFO_3W driverInfo{};
    driverInfo.cVersion = 3;
    driverInfo.pName = const_cast<wchar_t*>(kDriverName);
    driverInfo.pDriverPath = driver.data();
    driverInfo.pDataFile = description.data();
    driverInfo.pConfigFile = driver.data();
    wchar_t raw[] = L"RAW";
    driverInfo.pDefaultDataType = raw;
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driverInfo),
                             APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) &&
        GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED) {
        return Report("driver", false);
    }
    wchar_t winprint[] = L"WinPrint";
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = name;
    printer.pDriverName = const_cast<wchar_t*>(kDriverName);
    printer.pPortName = port;
    printer.pPrintProcessor = winprint;
    printer.pDatatype = raw;
    const HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    if (!handle) return Report("printer", false);
    ClosePrinter(handle);
    return Report("default printer", SetDefaultPrinterW(name));
}

int Remove(wchar_t* name) {
    HANDLE handle = nullptr;
    PRINTER_DEFAULTSW access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    if (!OpenPrinterW(name, &handle, &access)) return Report("printer", false);
    const bool done = DeletePrinter(handle);
    ClosePrinter(handle);
    return Report("printer", done);
}

int List() {
    DWORD bytes = 0;
    DWORD count = 0;
    EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 4, nullptr, 0, &bytes, &count);
    std::vector<BYTE> buffer(bytes + sizeof(PRINTER_INFO_4W));
    if (!EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 4, buffer.data(), bytes, &bytes, &count)) {
        return Report("list", false);
    }
    const auto* printers = reinterpret_cast<const PRINTER_INFO_4W*>(buffer.data());
    for (DWORD i = 0; i < count; i++) std::printf("%ls\n", printers[i].pPrinterName);
    return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring command = count > 1 ? arguments[1] : L"";
    if (command == L"add" && count == 4) return Add(arguments[2], arguments[3]);
    if (command == L"remove" && count == 3) return Remove(arguments[2]);
    if (command == L"default" && count == 3) {
        return Report("default printer", SetDefaultPrinterW(arguments[2]));
    }
    if (command == L"list") return List();
    std::fputs("zvPrinters add NAME PORT | remove NAME | default NAME | list\n", stderr);
    return 2;
}
