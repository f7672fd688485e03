#include "store/ado/ado_recordset.h"

#include <algorithm>

#include "automation/variant_readers.h"
#include "base/text.h"
#include "store/ado/provider_errors.h"
#include "store/ado/value_conversion.h"

namespace zv::store::ado {
namespace {

using win32::Variant;

// Most statements answer few rows; a long list soon comes in blocks that make the calls' cost
// vanish without holding much of it twice.
constexpr std::int32_t kFirstBlock = 32;
constexpr std::int32_t kLargestBlock = 2048;
constexpr std::int32_t kBlockGrowth = 4;

constexpr auto kMismatch = automation::Misfit::TypeMismatch;

}  // namespace

AdoRecordset::AdoRecordset(win32::ComPtr<IDispatch> connection, win32::ComPtr<IDispatch> recordset,
                           CursorType cursor, LockType lock)
    : connection_(std::move(connection)), recordset_(std::move(recordset)) {
    isOpen_ = automation::ToNumber(GetProperty(*recordset_, state_), kMismatch) !=
              Connection::kStateClosed;
    if (!isOpen_) return;
    inBlocks_ = cursor == CursorType::ForwardOnly && lock == LockType::ReadOnly &&
                getRows_.IsOffered(*recordset_);
    if (inBlocks_) {
        blockSize_ = kFirstBlock;
        LoadBlock();
    }
}

AdoRecordset::~AdoRecordset() {
    try {
        Close();
    } catch (const std::exception&) {
        // The object goes away with its last reference in any case.
    }
}

bool AdoRecordset::Eof() const {
    RequireOpen();
    return inBlocks_ ? isEof_ : automation::ToFlag(GetProperty(*recordset_, eof_), kMismatch);
}

void AdoRecordset::MoveNext() {
    RequireOpen();
    ForgetValues();
    if (!inBlocks_) {
        WithKind(*connection_, [&] { Call(*recordset_, moveNext_); });
        return;
    }
    if (isEof_) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    if (++row_ == rowsInBlock_) LoadBlock();
}

int AdoRecordset::FieldCount() const {
    RequireOpen();
    LoadColumns();
    return static_cast<int>(columns_.size());
}

const std::string& AdoRecordset::FieldName(int column) const {
    return ColumnAt(column).name;
}

int AdoRecordset::FieldIndex(std::string_view name) const {
    RequireOpen();
    LoadColumns();
    const auto found = std::find_if(columns_.begin(), columns_.end(), [name](const Column& column) {
        return text::EqualsIgnoreCase(column.name, name);
    });
    if (found == columns_.end()) {
        throw RuntimeError(ErrorNumber::DatabaseColumn,
                           "The statement answers no field \"" + std::string(name) + "\".")
            .Of(ErrorKind::NoColumn);
    }
    return static_cast<int>(found - columns_.begin());
}

const Value& AdoRecordset::Field(int column) const {
    Column& found = ColumnAt(column);
    if (inBlocks_ && isEof_) {
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    }
    if (!found.isRead) {
        found.value = inBlocks_ ? ReadFromBlock(column)
                                : FromVariant(GetProperty(*found.field, value_).Get());
        found.isRead = true;
    }
    return found.value;
}

void AdoRecordset::AddNew() {
    RequireOpen();
    WithKind(*connection_, [&] { Call(*recordset_, addNew_); });
    ForgetValues();
}

void AdoRecordset::SetField(std::string_view name, Value value) {
    Column& column = ColumnAt(FieldIndex(name));
    PutProperty(*column.field, value_, ToVariant(value).Get());
    column.isRead = false;
}

void AdoRecordset::Update() {
    RequireOpen();
    WithKind(*connection_, [&] { Call(*recordset_, update_); });
    // The database may have filled in defaults and the row's key.
    ForgetValues();
}

void AdoRecordset::Close() {
    if (!isOpen_) return;
    isOpen_ = false;
    ReleaseBlock();
    columns_.clear();
    connection_ = {};
    Call(*recordset_, close_);
}

void AdoRecordset::RequireOpen() const {
    if (!isOpen_) {
        throw RuntimeError(ErrorNumber::ObjectClosed);
    }
}

void AdoRecordset::LoadColumns() const {
    if (!columns_.empty()) return;
    const auto fields = GetObjectProperty(*recordset_, fields_);
    const std::int32_t count = automation::ToNumber(GetProperty(*fields, count_), kMismatch);
    std::vector<Column> columns(static_cast<std::size_t>(std::max(count, std::int32_t{0})));
    std::int32_t index = 0;
    for (Column& column : columns) {
        column.field = GetObjectProperty(*fields, item_, {Variant(index++).Get()});
        column.name = automation::ToText(GetProperty(*column.field, name_), kMismatch);
    }
    columns_ = std::move(columns);
}

void AdoRecordset::ForgetValues() const {
    for (Column& column : columns_) column.isRead = false;
}

AdoRecordset::Column& AdoRecordset::ColumnAt(int column) const {
    RequireOpen();
    LoadColumns();
    if (column < 0 || static_cast<std::size_t>(column) >= columns_.size()) {
        throw RuntimeError(ErrorNumber::DatabaseColumn,
                           "The statement answers no field " + std::to_string(column) + ".")
            .Of(ErrorKind::NoColumn);
    }
    return columns_[static_cast<std::size_t>(column)];
}

void AdoRecordset::LoadBlock() {
    ReleaseBlock();
    if (isLastBlock_ || automation::ToFlag(GetProperty(*recordset_, eof_), kMismatch)) {
        isEof_ = true;
        return;
    }
    Variant block = WithKind(
        *connection_, [&] { return Call(*recordset_, getRows_, {Variant(blockSize_).Get()}); });
    if (block.Type() != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(block.Get().parray) != 2) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    const SAFEARRAY& array = *block.Get().parray;
    // Bounds stand in the reverse order of the dimensions.
    columnsInBlock_ = array.rgsabound[1].cElements;
    rowsInBlock_ = array.rgsabound[0].cElements;
    row_ = 0;
    isLastBlock_ = rowsInBlock_ < static_cast<std::size_t>(blockSize_);
    isEof_ = rowsInBlock_ == 0;
    rows_ = static_cast<const VARIANT*>(array.pvData);
    block_ = std::move(block);
    blockSize_ = std::min(blockSize_ * kBlockGrowth, kLargestBlock);
}

void AdoRecordset::ReleaseBlock() {
    rows_ = nullptr;
    rowsInBlock_ = 0;
    block_ = Variant();
}

Value AdoRecordset::ReadFromBlock(int column) const {
    const auto index = static_cast<std::size_t>(column);
    if (index >= columnsInBlock_) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return FromVariant(rows_[row_ * columnsInBlock_ + index]);
}

win32::ComPtr<IDispatch> ObjectOf(const Recordset& recordset) {
    const auto* ours = dynamic_cast<const AdoRecordset*>(&recordset);
    return ours ? ours->Object() : win32::ComPtr<IDispatch>();
}

}  // namespace zv::store::ado
