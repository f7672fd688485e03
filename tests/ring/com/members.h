// The members of a control as its type library gives them, and wild values for their parameters.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <deque>
#include <string>
#include <vector>

#include "doubles.h"
#include "ring.h"

namespace zv::ring::com {

struct LibraryMember {
    std::string name;
    DISPID id = 0;
    INVOKEKIND kind = INVOKE_FUNC;
    ULONG_PTR slot = 0;  ///< in bytes from the start of the vtable
    std::vector<VARTYPE> parameters;
    VARTYPE answer = VT_EMPTY;  ///< of a function that reads a property
    VARTYPE reads = VT_EMPTY;   ///< of the property, whichever of its functions this is
};

/// Every member of the control's own interface, those of IDispatch left out.
std::vector<LibraryMember> LibraryMembers();

/// Values of every type, in every form, and what they point to.
class WildValues {
 public:
    enum class Form { Value, Reference, NullReference, Array, NullArray, ArrayReference };
    static const std::vector<Form>& Forms();
    /// The types that a variant can say it has, those that it must not have included.
    static const std::vector<VARTYPE>& Types();

    /// `hostile`: what values of objects are.
    WildValues(Random& random, IDispatch& hostile) : random_(random), hostile_(hostile) {}
    ~WildValues();
    WildValues(const WildValues&) = delete;
    WildValues& operator=(const WildValues&) = delete;

    /// Valid until the next `Forget`; what it holds is not the caller's.
    VARIANT Make(VARTYPE type, Form form);
    /// Any value of any type in any form.
    VARIANT Any();
    /// A text that is null, empty, long, or no text at all.
    BSTR Text();
    void Forget();

 private:
    void Fill(VARTYPE type, VARIANT& value);
    SAFEARRAY* Array(VARTYPE type);

    Random& random_;
    IDispatch& hostile_;
    std::deque<VARIANT> held_;
    std::deque<SAFEARRAY*> arrays_;
};

}  // namespace zv::ring::com
