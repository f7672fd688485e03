// IPersistPropertyBag, IPersistStreamInit and IPersistStorage: the same properties in whatever the
// container keeps its controls in.
#pragma once

#include <functional>

#include "com/core.h"

namespace zv::com {

class PersistPropertyBag final : public Part<IPersistPropertyBag> {
 public:
    using Part::Part;

    STDMETHODIMP GetClassID(CLSID* id) noexcept override;
    STDMETHODIMP InitNew() noexcept override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;
};

class PersistStream final : public Part<IPersistStreamInit> {
 public:
    using Part::Part;

    STDMETHODIMP GetClassID(CLSID* id) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP Load(IStream* stream) noexcept override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    STDMETHODIMP InitNew() noexcept override;
};

class PersistStorage final : public Part<IPersistStorage> {
 public:
    using Part::Part;

    STDMETHODIMP GetClassID(CLSID* id) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP InitNew(IStorage* storage) noexcept override;
    STDMETHODIMP Load(IStorage* storage) noexcept override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
    STDMETHODIMP SaveCompleted(IStorage* storage) noexcept override;
    STDMETHODIMP HandsOffStorage() noexcept override;

    /// Called after the container has finished a save.
    std::function<void()> onSaved;

 private:
    enum class State { Uninitialised, Normal, NoScribble, HandsOff };

    State state_ = State::Uninitialised;
    bool savedToOwn_ = false;
};

}  // namespace zv::com
