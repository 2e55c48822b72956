#include "support/LogGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

int main(int a_argc, char** a_argv)
{
    testing::InitGoogleMock(&a_argc, a_argv);
    GfxTest::InstallLogGuard();
    return RUN_ALL_TESTS();
}
