#include "store/engines/connecting.h"

#include "base/text.h"
#include "store/engines/parts.h"

namespace zv::store::engines::sqlite {
namespace {

class SqliteConnecting final : public Connecting {
 public:
    bool IsFile(std::string_view head) const override {
        return head.starts_with(std::string_view("SQLite format 3\0", 16));
    }
    bool IsDriver(std::string_view driver) const override {
        return text::Contains(driver, "sqlite");
    }
    void Complete(ConnectionEntries& entries, std::chrono::milliseconds) const override {
        if (!entries.Has("NoCreat")) entries.Add("NoCreat", "1");
        if (!entries.Has("Timeout")) entries.Add("Timeout", "3000");
    }
};

}  // namespace

const Connecting& TheConnecting() {
    static const SqliteConnecting connecting;
    return connecting;
}

}  // namespace zv::store::engines::sqlite
