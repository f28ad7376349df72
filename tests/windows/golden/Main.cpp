// The tests run in the multithreaded apartment, as the management service does.
#include <gtest/gtest.h>

#include "qvsata/service/com/ComApartment.h"

int main(int argc, char** argv) {
    const qv::service::ComApartment apartment;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
