#include "store/ado/ado_connection.h"

#include <algorithm>
#include <utility>

#include "automation/variant_readers.h"
#include "store/ado/ado_recordset.h"
#include "store/ado/calls.h"
#include "store/ado/provider_errors.h"
#include "store/lost_connection.h"
#include "store/one_statement.h"

namespace zv::store::ado {
namespace {

using win32::ComPtr;
using win32::Variant;

// Options of Execute: the text is a statement, and it answers no rows.
constexpr std::int32_t kTextCommand = 1;
constexpr std::int32_t kNoRecords = 128;
constexpr std::string_view kErrorSource = "zv_Task";
constexpr wchar_t kRecordsetProgId[] = L"ADODB.Recordset";

// The object lived in another process or on another machine.
bool IsGone(ErrorNumber number) {
    switch (static_cast<HRESULT>(number)) {
        case HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE):
        case HRESULT_FROM_WIN32(RPC_S_CALL_FAILED):
        case RPC_E_DISCONNECTED:
        case RPC_E_SERVER_DIED:
        case RPC_E_SERVER_DIED_DNE:
        case CO_E_OBJNOTCONNECTED:
            return true;
        default:
            return false;
    }
}

class AdoConnection final : public Connection {
 public:
    explicit AdoConnection(ComPtr<IDispatch> connection) : connection_(std::move(connection)) {}

    int State() const override {
        if (lost_) return kStateClosed;
        try {
            const int state = automation::ToNumber(GetProperty(*connection_, state_),
                                                   automation::Misfit::TypeMismatch);
            // Such an object calls itself open until it is closed, whatever became of its server.
            lost_ = state != kStateClosed && ReportsLoss();
            return lost_ ? kStateClosed : state;
        } catch (const RuntimeError& error) {
            if (!IsGone(error.Number())) throw;
            lost_ = true;
            return kStateClosed;
        }
    }

    void Close() override { Call(*connection_, close_); }

    int Execute(const std::string& sql) override {
        RequireOneStatement(sql, kErrorSource);
        const Variant statement{std::string_view(sql)};
        Variant affected(std::int32_t{-1});
        VARIANT reference{};
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = &affected.Ref();
        WithKind(*connection_, [&] {
            Call(*connection_, execute_,
                 {statement.Get(), reference, Variant(kTextCommand | kNoRecords).Get()});
        });
        return automation::TryNumber(std::move(affected)).value_or(-1);
    }

    std::unique_ptr<Recordset> Open(const std::string& sql, CursorType cursor,
                                    LockType lock) override {
        RequireOneStatement(sql, kErrorSource);
        const Variant statement{std::string_view(sql)};
        if (cursor == CursorType::ForwardOnly && lock == LockType::ReadOnly) {
            const Variant result = WithKind(*connection_, [&] {
                return Call(
                    *connection_, execute_,
                    {statement.Get(), Variant::Missing().Get(), Variant(kTextCommand).Get()});
            });
            auto recordset = result.Object();
            if (!recordset) throw RuntimeError(ErrorNumber::ObjectNotSet);
            return std::make_unique<AdoRecordset>(connection_, std::move(recordset), cursor, lock);
        }
        auto recordset = CreateRecordset();
        Member open(L"Open");
        WithKind(*connection_, [&] {
            Call(*recordset, open,
                 {statement.Get(), Variant(connection_.Get()).Get(),
                  Variant(static_cast<std::int32_t>(cursor)).Get(),
                  Variant(static_cast<std::int32_t>(lock)).Get(), Variant(kTextCommand).Get()});
        });
        return std::make_unique<AdoRecordset>(connection_, std::move(recordset), cursor, lock);
    }

 private:
    // The errors of the last operation that failed, of the recordsets too. They are asked for when
    // something has failed since: a statement that runs is worth no more calls than its own.
    bool ReportsLoss() const {
        if (looked_ == FailedCalls()) return false;
        const bool lost = HasErrorOfLoss();
        looked_ = FailedCalls();
        return lost;
    }

    bool HasErrorOfLoss() const {
        return std::ranges::any_of(ErrorsOf(*connection_), [](const ProviderError& error) {
            return MeansLoss(error.code);
        });
    }

    ComPtr<IDispatch> CreateRecordset() {
        if (factory_.IsOffered(*connection_)) {
            auto recordset = Call(*connection_, factory_).Object();
            if (!recordset) throw RuntimeError(ErrorNumber::ObjectNotSet);
            return recordset;
        }
        ComPtr<IDispatch> recordset;
        const HRESULT hr = automation::Create(kRecordsetProgId, recordset);
        if (FAILED(hr)) {
            throw RuntimeError(
                ErrorNumber::CannotCreateObject,
                "The class ADODB.Recordset cannot be created: " + win32::SystemMessage(hr))
                .Of(ErrorKind::DriverMissing);
        }
        return recordset;
    }

    ComPtr<IDispatch> connection_;
    mutable Member state_{L"State"};
    mutable bool lost_ = false;
    mutable unsigned looked_ = FailedCalls();
    Member close_{L"Close"}, execute_{L"Execute"}, factory_{kRecordsetFactory};
};

}  // namespace

std::unique_ptr<Connection> WrapConnection(ComPtr<IDispatch> connection) {
    if (!connection) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return std::make_unique<AdoConnection>(std::move(connection));
}

}  // namespace zv::store::ado
