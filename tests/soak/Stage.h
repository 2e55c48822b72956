#pragma once

#include "support/StageTest.h"

namespace Soak
{

/// The stage of the tests, for a program that is none.
class CStage : public GfxTest::CStageTest
{
public:
    using CStageTest::Advance;
    using CStageTest::FreshPicture;
    using CStageTest::Settle;
    using CStageTest::SetUpStage;
    using CStageTest::WaitForClippedRedraws;
    using CStageTest::Widgets;
};

} // namespace Soak
