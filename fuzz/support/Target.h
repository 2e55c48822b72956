#pragma once

#include "support/TemporaryDirectory.h"

#include <string_view>

/// What a fuzz target is made of. It defines SetUp and Try; the rest is the same for all, whether libFuzzer runs it or
/// Replay.cpp does.
namespace GfxFuzz
{

/// Runs once, before the first input.
void SetUp();

/// Gives an input to the library. What one input leaves behind must make no difference to the next.
void Try(std::string_view a_input);

/// The target's own data directory, with a slash at its end.
const GfxTest::CTemporaryDirectory& Data();

/// Makes use of a result, so that it is really computed.
template <typename T>
void Use(const T& a_value)
{
    asm volatile("" : : "g"(&a_value) : "memory");
}

} // namespace GfxFuzz
