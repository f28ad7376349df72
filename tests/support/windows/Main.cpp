// The main() of all test programs on Windows. The tests run in the multi-threaded apartment, in
// which requests arrive.
#include <gmock/gmock.h>
#include <objbase.h>

int main(int argumentCount, char** arguments) {
    testing::InitGoogleMock(&argumentCount, arguments);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
