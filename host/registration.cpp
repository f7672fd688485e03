#include "registration.h"

#include <objbase.h>

namespace zv::host {
namespace {

const std::wstring kClasses = L"Software\\Classes\\";

std::wstring ToText(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, ARRAYSIZE(text));
    return text;
}

LSTATUS Write(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    return RegSetKeyValueW(root, (kClasses + key).c_str(), name, REG_SZ, value.c_str(),
                           static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

LSTATUS RegisterClass(HKEY root, const ClassRegistration& entry, const std::wstring& module) {
    const std::wstring classId = ToText(entry.classId);
    const std::wstring classKey = L"CLSID\\" + classId;
    const struct {
        std::wstring key;
        const wchar_t* name;
        std::wstring value;
    } entries[] = {
        {classKey, nullptr, entry.description},
        {classKey + L"\\InprocServer32", nullptr, module},
        {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {classKey + L"\\ProgID", nullptr, entry.progId},
        {classKey + L"\\Programmable", nullptr, L""},
        {entry.progId, nullptr, entry.description},
        {std::wstring(entry.progId) + L"\\CLSID", nullptr, classId},
    };
    for (const auto& [key, name, value] : entries) {
        if (const LSTATUS status = Write(root, key, name, value); status != ERROR_SUCCESS) {
            return status;
        }
    }
    return ERROR_SUCCESS;
}

LSTATUS Remove(HKEY root, const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

LSTATUS RemoveAll(HKEY root, std::span<const ClassRegistration> classes) {
    LSTATUS worst = ERROR_SUCCESS;
    for (const ClassRegistration& entry : classes) {
        for (const std::wstring& key :
             {L"CLSID\\" + ToText(entry.classId), std::wstring(entry.progId)}) {
            if (const LSTATUS status = Remove(root, key); status != ERROR_SUCCESS) worst = status;
        }
    }
    return worst;
}

}  // namespace

HRESULT RegisterClasses(std::span<const ClassRegistration> classes, const std::wstring& module) {
    LSTATUS status = ERROR_SUCCESS;
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        status = ERROR_SUCCESS;
        for (const ClassRegistration& entry : classes) {
            status = RegisterClass(root, entry, module);
            if (status != ERROR_SUCCESS) break;
        }
        if (status == ERROR_SUCCESS) return S_OK;
        RemoveAll(root, classes);
        if (status != ERROR_ACCESS_DENIED) break;
    }
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

HRESULT UnregisterClasses(std::span<const ClassRegistration> classes) {
    LSTATUS worst = ERROR_SUCCESS;
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        if (const LSTATUS status = RemoveAll(root, classes); status != ERROR_SUCCESS) {
            worst = status;
        }
    }
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(worst));
}

}  // namespace zv::host
