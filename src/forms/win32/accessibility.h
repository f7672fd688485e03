// What windows say to screen readers beyond what they show: names where a window's text does not
// say what it is, and what a picture beside an item means.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <functional>
#include <string>

#include "base/win32/com_ptr.h"

namespace zv::forms::win32 {

using AccessNotes = zv::win32::ComPtr<IAccPropServices>;

/// The system's notes about windows; null where it keeps none.
AccessNotes SystemAccessNotes();

/// Does nothing without notes.
void NameForScreenReaders(const AccessNotes& notes, HWND window, const std::wstring& name);

/// Answers for the items of one window what describes them. Readers ask for the item that they are
/// at, so items cost nothing before; the system passes their questions on while the thread of the
/// window handles messages.
class ItemDescriptions final : public IAccPropServer {
 public:
    /// The description of the item with that child id; empty for none.
    using Describe = std::function<std::string(DWORD child)>;
    using FindNotes = std::function<AccessNotes()>;

    /// Notes are asked for when they are needed and not kept: the program may end its use of
    /// components while the window stands. Null where the system takes no descriptions.
    static zv::win32::ComPtr<ItemDescriptions> Offer(HWND window, FindNotes notes,
                                                     Describe describe);
    /// Before the window dies: nobody asks any more.
    void Withdraw() noexcept;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP GetPropValue(const BYTE* id, DWORD length, MSAAPROPID property, VARIANT* value,
                              WINBOOL* has) noexcept override;

 private:
    ItemDescriptions(HWND window, FindNotes notes, Describe describe);
    /// Empty for what is no item of the window.
    std::string Of(const BYTE* id, DWORD length) const;

    HWND window_;
    FindNotes notes_;
    Describe describe_;
    ULONG references_ = 1;
};

}  // namespace zv::forms::win32
