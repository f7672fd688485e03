// The containers' property bags behind the control's own idea of one.
#pragma once

#include <ocidl.h>

#include <memory>

#include "base/win32/com_ptr.h"
#include "control/property_bag.h"

namespace zv::com {

/// A container's bag. What cannot be read into its type is written to `log`, which may be null,
/// before it is thrown.
class ContainerBag final : public PropertyBag {
 public:
    ContainerBag(IPropertyBag& bag, IErrorLog* log) : bag_(&bag), log_(log) {}

    BagValue Read(std::string_view key, const BagValue& fallback) override;
    void Write(std::string_view key, const BagValue& value) override;

 private:
    win32::ComPtr<IPropertyBag> bag_;
    win32::ComPtr<IErrorLog> log_;
};

/// A bag that a host passes as an object: a container's bag, or an automation object with the
/// members ReadProperty(Name, Default) and WriteProperty(Name, Value). Throws error 91 for none.
std::unique_ptr<PropertyBag> AdaptBagObject(IDispatch* object);

}  // namespace zv::com
