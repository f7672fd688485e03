#include "test_server/scratch_schema.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <utility>

#include "base/errors.h"
#include "store/engines/engines.h"
#include "store/odbc/connection_string.h"

namespace zv::test_server {
namespace {

std::string NewName(std::string_view purpose) {
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    return std::string(purpose) + "_" + std::to_string(ticks) + "_" +
           std::to_string(std::random_device{}());
}

}  // namespace

std::string Address() {
    const char* text = std::getenv("ZV_TEST_POSTGRESQL");
    return text ? text : "";
}

std::string AddressWithin(const std::string& address, const std::string& schema) {
    return address + ";ConnSettings={set search_path to " + schema + ",public}";
}

store::odbc::OdbcOptions Patient(store::odbc::OdbcOptions options) {
    options.connectLimit = kPatience;
    options.statementLimit = kPatience;
    return options;
}

std::unique_ptr<store::Connection> ConnectRaw(const std::string& address) {
    store::odbc::OdbcOptions options = Patient(store::odbc::OptionsFor(address));
    options.translate = false;
    auto connection = store::odbc::OpenOdbc(options);
    connection->Execute("set client_min_messages=warning");
    return connection;
}

ScratchSchema::ScratchSchema(std::string server, std::string_view purpose)
    : server_(std::move(server)), name_(NewName(purpose)) {
    const auto connection = ConnectRaw(server_);
    // "if not exists" looks and then makes: of two at once on a new server one would fail.
    connection->Execute("select pg_advisory_lock(7306)");
    connection->Execute("create extension if not exists citext schema public");
    connection->Execute("select pg_advisory_unlock(7306)");
    connection->Execute("create schema " + name_);
}

ScratchSchema::~ScratchSchema() {
    if (dropped_) return;
    try {
        Drop();
    } catch (const RuntimeError& error) {
        std::cerr << "the schema " << name_ << " cannot be removed: " << error.Text() << '\n';
    }
}

void ScratchSchema::CreateTables() {
    ConnectRaw(Address())->Execute(std::string(store::engines::Of("postgresql").schema));
}

void ScratchSchema::Drop() {
    ConnectRaw(server_)->Execute("drop schema " + name_ + " cascade");
    dropped_ = true;
}

}  // namespace zv::test_server
