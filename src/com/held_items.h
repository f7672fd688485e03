// An OLE enumerator over a fixed list.
#pragma once

#include <unknwn.h>

#include <atomic>
#include <utility>
#include <vector>

#include "base/win32/com_ptr.h"
#include "com/module.h"

namespace zv::com {

/// `Copy` is called as HRESULT(const Held&, Item*) and gives the caller an item of its own; it may
/// not throw.
template <class Interface, class Held, class Item, HRESULT (*Copy)(const Held&, Item*)>
class Enumerator final : public Interface {
 public:
    explicit Enumerator(std::vector<Held> items, std::size_t position = 0)
        : items_(std::move(items)), position_(position) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != __uuidof(IUnknown) && iid != __uuidof(Interface)) return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) noexcept override {
        if (fetched) *fetched = 0;
        if (!items || (count != 1 && !fetched)) return E_POINTER;
        ULONG done = 0;
        while (done < count && position_ < items_.size()) {
            const HRESULT hr = Copy(items_[position_], &items[done]);
            if (FAILED(hr)) return hr;
            done++;
            position_++;
        }
        if (fetched) *fetched = done;
        return done == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const std::size_t left = items_.size() - position_;
        position_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) noexcept override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        try {
            *copy = new Enumerator(items_, position_);
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

 private:
    ~Enumerator() = default;

    module::Reference reference_;
    std::atomic<ULONG> references_{1};
    std::vector<Held> items_;
    std::size_t position_;
};

}  // namespace zv::com
