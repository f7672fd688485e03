#include "connection_texts.h"

#include <algorithm>

#include "base/text.h"
#include "store/odbc/connection_string.h"
#include "target.h"

namespace zv::fuzz {
namespace {

using store::ConnectionEntries;
using store::ConnectionSettings;

constexpr std::string_view kPassword = "Xq7Sesam42";
constexpr std::string_view kLowerPassword = "xq7sesam42";
// Stands for the password in an input.
constexpr std::string_view kPlace = "$";

void HoldWrittenAndRead(std::string_view input, const ConnectionProduct& product) {
    const ConnectionEntries entries(input);
    const std::string written = product.write(entries);
    const ConnectionEntries again(written);
    Hold(std::equal(entries.begin(), entries.end(), again.begin(), again.end()),
         "read back as something else: " + written);
    Hold(product.write(again) == written, "written in another way the second time: " + written);
}

void HoldHidden(const std::string& shown, const std::string& text) {
    if (text::Contains(text::ToLower(shown), kLowerPassword)) {
        throw Finding("the password of \"" + text + "\" is shown: " + shown);
    }
}

void HoldNotShown(const std::string& text, const ConnectionProduct& product) {
    HoldHidden(product.show(store::ConnectionText(text)), text);
    ConnectionSettings settings;
    for (const int kind : {0, 1}) {
        settings.kind = kind;
        settings.dataPath = text;
        HoldHidden(settings.ForMessage(), text);
        HoldHidden(product.hide(settings, "The driver said: " + text), text);
        // Drivers repeat values without what they stood in.
        for (const auto& [name, value] : ConnectionEntries(text)) {
            HoldHidden(product.hide(settings, "wrong value \"" + value + "\" of " + name), text);
        }
    }
}

}  // namespace

void PlayConnectionText(std::string_view input, const ConnectionProduct& product) {
    HoldWrittenAndRead(input, product);
    const std::string text(input);
    // An input that has the word itself may show it, as the name of a server for instance.
    if (text::Contains(text::ToLower(text), kLowerPassword)) return;
    const std::string password(kPassword);
    HoldNotShown(text + ";PWD=" + password, product);
    HoldNotShown(text + ";Password={" + password + "}", product);
    for (const char* scheme : {"postgresql://", "mssql://", ""}) {
        HoldNotShown(scheme + ("me:" + password) + "@" + text, product);
    }
    // Wherever a driver repeats the password that was given apart.
    ConnectionSettings settings;
    settings.dataPath = "C:\\tasks.mdb";
    settings.password = password;
    HoldHidden(product.hide(settings, text::Replace(text, kPlace, password)), text);
}

std::vector<std::string> ConnectionSeeds() {
    return {"Driver={PostgreSQL Unicode};Server=db;Port=5432;Database=tasks",
            "Provider=SQLOLEDB;Data Source=SRV\\X,1433;Initial Catalog=tasks;User ID=sa",
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\t.mdb;"
            "Jet OLEDB:Database Password='a;b'",
            "postgresql://host:5432/tasks?sslmode=require",
            "C:\\Program Files\\tasks.mdb",
            "\\\\server\\share\\tasks@home.mdb",
            "DSN=tasks;UID=me;Trusted_Connection=Yes",
            "Driver={a}}b;c};PWD={p}}w};Server=[::1]",
            "login failed for user 'me' with password $ at $host",
            "Server=\"a;b\"\"c\";App= x y ;Empty=;=none;;"};
}

}  // namespace zv::fuzz
