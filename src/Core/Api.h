#pragma once

/// Marks what is part of the library's binary interface. Everything else is compiled with hidden visibility.
#define GFX_API __attribute__((visibility("default")))
