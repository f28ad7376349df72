#include <gtest/gtest.h>
#include <objbase.h>

// Requests arrive in the multi-threaded apartment.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
