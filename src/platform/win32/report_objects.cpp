#include "platform/win32/report_objects.h"

#include <array>
#include <new>

#include "base/errors.h"
#include "base/win32/enumerator.h"

namespace zv::platform::win32 {

using automation::Arguments;
using automation::MemberEntry;
using automation::Offers;
using zv::win32::ComPtr;
using zv::win32::Variant;

namespace {

/// What goes through the texts of a collection.
class TextItems {
 public:
    explicit TextItems(ComPtr<TextCollection> texts) : texts_(std::move(texts)) {}

    std::size_t Count() const noexcept { return texts_->Texts().size(); }
    HRESULT Copy(std::size_t index, VARIANT* item) const noexcept {
        try {
            *item = Variant(texts_->Texts()[index]).Detach();
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

 private:
    ComPtr<TextCollection> texts_;
};
using TextEnumerator = zv::win32::Enumerator<IEnumVARIANT, VARIANT, TextItems>;

}  // namespace

std::span<const MemberEntry<TextCollection>> TextCollection::Members() {
    using C = TextCollection;
    static constexpr std::array<MemberEntry<C>, 3> kMembers{{
        Offers<&C::Count>(L"Count", 1).Taking(0),
        Offers<&C::Item>(L"Item", DISPID_VALUE).Taking(1),
        Offers<&C::NewEnum>(L"_NewEnum", DISPID_NEWENUM).Taking(0),
    }};
    return kMembers;
}

Variant TextCollection::Count(const Arguments&) {
    return Variant(static_cast<std::int32_t>(texts_.size()));
}

Variant TextCollection::Item(const Arguments& arguments) {
    const std::int32_t position = arguments.Int(0);
    if (position < 1 || static_cast<std::size_t>(position) > texts_.size()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return Variant(texts_[static_cast<std::size_t>(position) - 1]);
}

Variant TextCollection::NewEnum(const Arguments&) {
    const auto texts = zv::win32::MakeCom<TextEnumerator>(TextItems(ComPtr<TextCollection>(this)));
    return Variant(static_cast<IUnknown*>(texts.Get()));
}

std::span<const MemberEntry<TableObject>> TableObject::Members() {
    using T = TableObject;
    static constexpr std::array<MemberEntry<T>, 6> kMembers{{
        Offers<&T::RowCount>(L"RowCount", 2).Taking(0),
        Offers<&T::ColumnCount>(L"ColumnCount", 3).Taking(0),
        Offers<&T::Heading>(L"Heading", 4).Taking(1),
        Offers<&T::ColumnWidth>(L"ColumnWidth", 5).Taking(1),
        Offers<&T::Text>(L"Text", 6).Taking(2),
        Offers<&T::Sign>(L"Sign", 7).Taking(1),
    }};
    return kMembers;
}

const ReportTable& TableObject::Table() const {
    if (!table_) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *table_;
}

Variant TableObject::RowCount(const Arguments&) {
    return Variant(std::int32_t{Table().RowCount()});
}

Variant TableObject::ColumnCount(const Arguments&) {
    return Variant(std::int32_t{Table().ColumnCount()});
}

Variant TableObject::Heading(const Arguments& arguments) {
    return Variant(Table().Heading(arguments.Int(0)));
}

Variant TableObject::ColumnWidth(const Arguments& arguments) {
    return Variant(std::int32_t{Table().ColumnWidth(arguments.Int(0))});
}

Variant TableObject::Text(const Arguments& arguments) {
    const std::int32_t row = arguments.Int(0);
    return Variant(Table().Text(row, arguments.Int(1)));
}

Variant TableObject::Sign(const Arguments& arguments) {
    return Variant(Table().Sign(arguments.Int(0)));
}

}  // namespace zv::platform::win32
