// A connection whose server is gone still calls itself open; its errors tell otherwise.
#include <gtest/gtest.h>

#include <array>

#include "automation/dispatch.h"
#include "store/ado/ado_connection.h"

namespace zv::store::ado {
namespace {

using automation::Arguments;
using automation::MemberEntry;
using automation::Offers;
using win32::Variant;

struct Server {
    std::string sqlState;
    std::int32_t listed = 0;  ///< the number of the error in the list
    std::int32_t native = 0;
    bool hasFailed = false;
    HRESULT stateFails = S_OK;
    int executed = 0;
    int works = 0;     ///< statements from now on that do not fail
    int asked = 0;     ///< for its state
    int lookedAt = 0;  ///< its errors
};

template <class Self>
class Scripted : public automation::DispatchObject<Self> {
 public:
    static constexpr IID kInterfaceId = {0x3a1d9e52, 0x7c1f, 0x4d0b, {0x9a, 1, 2, 3, 4, 5, 6, 7}};
    static constexpr const char* kSourceName = "Provider";
    explicit Scripted(Server& server) : server_(server) {}

 protected:
    Server& server_;
};

class ErrorItem final : public Scripted<ErrorItem> {
 public:
    using Scripted::Scripted;
    static std::span<const MemberEntry<ErrorItem>> Members() {
        static constexpr std::array<MemberEntry<ErrorItem>, 3> kMembers{
            Offers<&ErrorItem::State>(L"SQLState", 1),
            Offers<&ErrorItem::Native>(L"NativeError", 2),
            Offers<&ErrorItem::Number>(L"Number", 3)};
        return kMembers;
    }
    Variant State(const Arguments&) { return Variant(std::string_view(server_.sqlState)); }
    Variant Native(const Arguments&) { return Variant(server_.native); }
    Variant Number(const Arguments&) { return Variant(server_.listed); }
};

class ErrorList final : public Scripted<ErrorList> {
 public:
    using Scripted::Scripted;
    static std::span<const MemberEntry<ErrorList>> Members() {
        static constexpr std::array<MemberEntry<ErrorList>, 2> kMembers{
            Offers<&ErrorList::Item>(L"Item", DISPID_VALUE),
            Offers<&ErrorList::Count>(L"Count", 1)};
        return kMembers;
    }
    Variant Item(const Arguments&) {
        return Variant(static_cast<IDispatch*>(win32::MakeCom<ErrorItem>(server_).Get()));
    }
    Variant Count(const Arguments&) { return Variant(std::int32_t{server_.hasFailed ? 1 : 0}); }
};

class Provider final : public Scripted<Provider> {
 public:
    using Scripted::Scripted;
    static std::span<const MemberEntry<Provider>> Members() {
        static constexpr std::array<MemberEntry<Provider>, 3> kMembers{
            Offers<&Provider::State>(L"State", 1), Offers<&Provider::Execute>(L"Execute", 2),
            Offers<&Provider::Errors>(L"Errors", 3)};
        return kMembers;
    }
    Variant State(const Arguments&) {
        server_.asked++;
        if (FAILED(server_.stateFails)) {
            throw RuntimeError(static_cast<ErrorNumber>(server_.stateFails), "gone");
        }
        return Variant(std::int32_t{1});
    }
    Variant Execute(const Arguments&) {
        server_.executed++;
        if (server_.works-- > 0) return {};
        server_.hasFailed = true;
        throw RuntimeError(ErrorNumber::DatabaseFailure, "failed");
    }
    Variant Errors(const Arguments&) {
        server_.lookedAt++;
        return Variant(static_cast<IDispatch*>(win32::MakeCom<ErrorList>(server_).Get()));
    }
};

class LostAdoConnection : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        connection_ = WrapConnection(
            win32::ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new Provider(server_))));
    }
    void TearDown() override {
        connection_.reset();
        EXPECT_EQ(automation::module::Locks(), 0);
        CoUninitialize();
    }
    int StateAfterAFailure() {
        EXPECT_EQ(connection_->State(), Connection::kStateOpen);
        EXPECT_THROW(connection_->Execute("delete from t"), RuntimeError);
        return connection_->State();
    }

    Server server_;
    std::unique_ptr<Connection> connection_;
};

TEST_F(LostAdoConnection, IsClosedAndRepeatsNothing) {
    server_.sqlState = "08S01";
    server_.native = 10054;
    EXPECT_EQ(StateAfterAFailure(), Connection::kStateClosed);
    EXPECT_EQ(server_.executed, 1);
}

TEST_F(LostAdoConnection, StaysClosedWhateverItSaysLater) {
    server_.sqlState = "08S01";
    EXPECT_EQ(StateAfterAFailure(), Connection::kStateClosed);
    server_.hasFailed = false;
    EXPECT_EQ(connection_->State(), Connection::kStateClosed);
}

TEST_F(LostAdoConnection, IsNotOneWhoseStatementFailed) {
    server_.sqlState = "42000";
    server_.native = 170;
    EXPECT_EQ(StateAfterAFailure(), Connection::kStateOpen);
}

TEST_F(LostAdoConnection, AnErrorIsOfTheKindThatTheProviderLists) {
    const auto kind = [&](std::int32_t listed) {
        server_.listed = listed;
        try {
            connection_->Execute("delete from t");
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Text(), "failed");
            return error.Kind();
        }
        return ErrorKind::Own;
    };
    server_.sqlState = "23505";
    EXPECT_EQ(kind(static_cast<std::int32_t>(ErrorNumber::DatabaseFailure)), ErrorKind::Duplicate);
    // What is left in the list from an earlier error says nothing of this one.
    EXPECT_EQ(kind(static_cast<std::int32_t>(ErrorNumber::DatabaseStatement)), ErrorKind::Other);
}

TEST_F(LostAdoConnection, IsAskedForItsErrorsOnlyWhenSomethingHasFailed) {
    server_.sqlState = "42000";
    server_.works = 3;
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(connection_->State(), Connection::kStateOpen);
        connection_->Execute("delete from t");
    }
    EXPECT_EQ(server_.asked, 3);
    EXPECT_EQ(server_.lookedAt, 0);
    EXPECT_THROW(connection_->Execute("delete from t"), RuntimeError);
    server_.lookedAt = 0;
    for (int i = 0; i < 3; i++) EXPECT_EQ(connection_->State(), Connection::kStateOpen);
    EXPECT_EQ(server_.lookedAt, 1);
    // Each failure is looked at for itself.
    server_.sqlState = "08S01";
    EXPECT_THROW(connection_->Execute("delete from t"), RuntimeError);
    EXPECT_EQ(connection_->State(), Connection::kStateClosed);
}

TEST_F(LostAdoConnection, IsClosedWhenItsProcessIsGone) {
    server_.stateFails = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    EXPECT_EQ(connection_->State(), Connection::kStateClosed);
}

}  // namespace
}  // namespace zv::store::ado
