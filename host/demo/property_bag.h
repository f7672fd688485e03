// A container's property bag, kept in memory.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#include <atomic>
#include <string>
#include <utility>
#include <vector>

#include "base/win32/variant.h"

namespace zv::demo {

/// Keeps the entries in the order in which they are written; keys compare without regard to case.
class PropertyBag final : public IPropertyBag {
 public:
    PropertyBag() = default;
    PropertyBag(const PropertyBag&) = delete;
    PropertyBag& operator=(const PropertyBag&) = delete;

    const std::vector<std::pair<std::wstring, win32::Variant>>& Entries() const { return entries_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;

 private:
    ~PropertyBag() = default;
    win32::Variant* Find(LPCOLESTR name);

    std::atomic<long> references_{1};
    std::vector<std::pair<std::wstring, win32::Variant>> entries_;
};

}  // namespace zv::demo
