#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <memory>
#include <type_traits>

namespace pello {

struct ReleaseObject {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};

/// Owns an object of the C frameworks: `OwnedObject<CGEventRef>`. Objective-C++ only.
template <class Ref>
using OwnedObject = std::unique_ptr<std::remove_pointer_t<Ref>, ReleaseObject>;

} // namespace pello
