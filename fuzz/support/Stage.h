#pragma once

#include "support/StageTest.h"

#include <string>

namespace GfxFuzz
{

/// The stage of the tests, made once, for targets whose inputs begin and end with nothing on it.
class CStage : public GfxTest::CStageTest
{
public:
    /// a_data is a data directory; with a slash at its end.
    static void Make(const std::string& a_data);

    using CStageTest::Advance;
    using CStageTest::Click;
    using CStageTest::MoveTo;
    using CStageTest::Press;
    using CStageTest::Release;
    using CStageTest::Widgets;

    /// Has all that is on the stage draw.
    static void Paint();

    /// Has the main loop do what is due, within reason: something may always be due.
    static void Iterate();

    /// Touches the stage all over, each time with a short drag.
    static void TouchAll();

    /// Destroys what is on the stage, and lets go of the pointer and the keyboard.
    static void Clear();
};

} // namespace GfxFuzz
