#include "doubles/memory_settings.h"

#include <gtest/gtest.h>

namespace zv::doubles {
namespace {

TEST(MemorySettings, KeepsTextsByNamesWithoutRegardToCase) {
    MemorySettings settings;
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "Startup", "1"), "1");
    settings.Save("Tarnell", "zvTask", "Startup", "0");
    EXPECT_EQ(settings.Get("tarnell", "zvtask", "STARTUP", "1"), "0");
    EXPECT_EQ(settings.Get("Tarnell", "zv2000", "Startup", "1"), "1");
}

}  // namespace
}  // namespace zv::doubles
