#include <gtest/gtest.h>

#include "platform/win32/machine.h"

namespace zv::platform::win32 {
namespace {

TEST(Vault, RevealsWhatItSealed) {
    SystemVault vault;
    for (const std::string& bytes :
         {std::string("geheim"), std::string("a\0b\xFF", 4), std::string(100'000, 'x')}) {
        const auto sealed = vault.Seal(bytes);
        ASSERT_TRUE(sealed);
        EXPECT_EQ(sealed->find("geheim"), std::string::npos);
        EXPECT_EQ(vault.Reveal(*sealed), bytes);
    }
}

TEST(Vault, RevealsNothingOfWhatIsNoneOfIts) {
    SystemVault vault;
    EXPECT_EQ(vault.Reveal("geheim"), std::nullopt);
    EXPECT_EQ(vault.Reveal(""), std::nullopt);
    const auto sealed = vault.Seal("geheim");
    ASSERT_TRUE(sealed);
    EXPECT_EQ(vault.Reveal(std::string_view(*sealed).substr(0, sealed->size() / 2)), std::nullopt);
}

}  // namespace
}  // namespace zv::platform::win32
