#include "Core/StaticSingleton.h"

#include <gtest/gtest.h>

namespace
{

int s_instances = 0;

class CLazy : public Core::Patterns::StaticSingleton<CLazy>
{
public:
    CLazy() { ++s_instances; }
    int value = 0;
};

TEST(StaticSingletonTest, TheOneInstanceIsMadeAtTheFirstUse)
{
    EXPECT_EQ(s_instances, 0);
    CLazy::ref().value = 5;
    EXPECT_EQ(Core::Patterns::StaticSingleton<CLazy>::ref().value, 5);
    EXPECT_EQ(s_instances, 1);
}

} // namespace
