#include "store/engines/connecting.h"

#include <algorithm>
#include <array>

#include "store/engines/parts.h"

namespace zv::store::engines::access {
namespace {

constexpr auto kProviders =
    std::to_array<std::string_view>({"Microsoft.ACE.OLEDB.16.0", "Microsoft.ACE.OLEDB.15.0",
                                     "Microsoft.ACE.OLEDB.12.0", "Microsoft.Jet.OLEDB.4.0"});

class AccessConnecting final : public Connecting {
 public:
    // Files of all versions: one of these texts stands behind the first four bytes.
    bool IsFile(std::string_view head) const override {
        const std::string_view text = head.substr(std::min<std::size_t>(4, head.size()));
        return text.starts_with("Standard Jet DB") || text.starts_with("Standard ACE DB");
    }
    std::span<const std::string_view> Providers() const override { return kProviders; }
    std::string_view PasswordEntry() const override { return "Jet OLEDB:Database Password"; }
};

}  // namespace

const Connecting& TheConnecting() {
    static const AccessConnecting connecting;
    return connecting;
}

}  // namespace zv::store::engines::access
