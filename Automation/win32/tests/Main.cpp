// The test program: COM is there for all tests, as in a host.
#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (FAILED(CoInitialize(nullptr))) return 2;
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
