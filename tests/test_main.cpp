// The entry of every test program. Windows programs of the project have a wide one.
#include <gtest/gtest.h>

#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
#else
int main(int count, char** arguments) {
#endif
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
