#pragma once

// One of this header's fields is called as a keyword of this language.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"
#pragma GCC diagnostic ignored "-Wkeyword-macro"
#define explicit explicitParts // NOLINT(bugprone-macro-*,cppcoreguidelines-macro-usage)
#include <xcb/xkb.h>
#undef explicit
#pragma GCC diagnostic pop
