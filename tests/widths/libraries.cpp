// Loads the type libraries of both widths into one process, as a development tool does that has
// both installed, and compares what they say.
//
//   zvLibraries CONTROL CONTROL       the files of the two widths, in the order of loading
//
// Closes with "N passed, N failed".
#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

#include "automation/registration.h"
#include "base/win32/com_error.h"
#include "base/win32/com_ptr.h"
#include "counted_checks.h"

namespace {

using zv::automation::Braced;
using zv::tests::Check;
using zv::win32::Bstr;
using zv::win32::ComPtr;

// The members of a type with their numbers, kinds and counts of arguments; places in a table of
// functions differ with the width and are left out.
void Describe(ITypeInfo& type, std::vector<std::string>& lines) {
    TYPEATTR* attributes = nullptr;
    if (type.GetTypeAttr(&attributes) != S_OK) return;
    const UINT functions = attributes->cFuncs;
    lines.push_back("type " + zv::win32::ToUtf8(Braced(attributes->guid)) + " " +
                    std::to_string(attributes->typekind) + " " +
                    std::to_string(attributes->wTypeFlags));
    type.ReleaseTypeAttr(attributes);
    for (UINT at = 0; at < functions; ++at) {
        FUNCDESC* function = nullptr;
        if (type.GetFuncDesc(at, &function) != S_OK) continue;
        Bstr name;
        type.GetDocumentation(function->memid, name.Put(), nullptr, nullptr, nullptr);
        lines.push_back(name.Utf8() + " " + std::to_string(function->memid) + " " +
                        std::to_string(function->invkind) + " " +
                        std::to_string(function->cParams));
        type.ReleaseFuncDesc(function);
    }
}

struct Library {
    ComPtr<ITypeLib> loaded;
    GUID id{};
    SYSKIND system{};
    std::vector<std::string> lines;
};

Library Load(const std::wstring& file) {
    Library library;
    const HRESULT hr = LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.loaded.Put());
    Check("the type library loads: " + zv::win32::ToUtf8(file), hr == S_OK,
          zv::win32::SystemMessage(hr));
    if (hr != S_OK) return library;
    TLIBATTR* attributes = nullptr;
    if (library.loaded->GetLibAttr(&attributes) == S_OK) {
        library.id = attributes->guid;
        library.system = attributes->syskind;
        library.loaded->ReleaseTLibAttr(attributes);
    }
    for (UINT at = 0; at < library.loaded->GetTypeInfoCount(); ++at) {
        ComPtr<ITypeInfo> type;
        if (library.loaded->GetTypeInfo(at, type.Put()) == S_OK) Describe(*type, library.lines);
    }
    return library;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    if (count != 3) return 2;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
        const Library first = Load(words[1]);
        const Library second = Load(words[2]);
        Check("both are the same library", IsEqualGUID(first.id, second.id));
        Check("for different systems", first.system != second.system);
        Check("with members", first.lines.size() > 30, std::to_string(first.lines.size()));
        Check("and the same ones", first.lines == second.lines);
        Library again = Load(words[1]);
        Check("the first is still what it was", again.lines == first.lines);
    }
    CoUninitialize();
    return zv::tests::Close();
}
