#pragma once

#include "Core/Api.h"

/// Ends the process when the expression is false, in every build type, after writing "file:line: assertion failed: "
/// and the text of the expression, as it is written, to standard error.
#define GFX_ASSERT(...) GFX_ASSERT_TEXT((__VA_ARGS__), #__VA_ARGS__)

/// The same with a_text in place of the expression's own text.
#define GFX_ASSERT_TEXT(a_expression, a_text) \
    (static_cast<bool>(a_expression) ? static_cast<void>(0) : ::Core::detail::FailAssertion(a_text, __FILE__, __LINE__))

namespace Core::detail
{

[[noreturn]] GFX_API void FailAssertion(const char* a_text, const char* a_file, int a_line);

} // namespace Core::detail
