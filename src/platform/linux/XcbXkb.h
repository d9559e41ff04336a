#pragma once

// One of this header's fields is called as a keyword of this language.
#define explicit explicitParts // NOLINT(bugprone-macro-*,cppcoreguidelines-macro-usage)
#include <xcb/xkb.h>
#undef explicit
