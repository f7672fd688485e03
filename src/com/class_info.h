// IProvideClassInfo2 and ISupportErrorInfo.
#pragma once

#include "com/core.h"

namespace zv::com {

/// IProvideClassInfo2 extends IProvideClassInfo; both are answered by it.
class ClassInfo final : public Part<IProvideClassInfo2> {
 public:
    using Part::Part;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) noexcept override;
};

class ErrorSupport final : public Part<ISupportErrorInfo> {
 public:
    using Part::Part;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;
};

}  // namespace zv::com
