#pragma once

#include "platform/FeedReader.h"
#include "platform/MainLoop.h"
#include "updates/ReleaseVersion.h"

#include <functional>
#include <string>

namespace pello {

/// What the windows about releases work with. Everything must outlive them.
struct NotesServices {
    FeedReader& reader;
    MainLoop& loop;
    /// Where the feed of the releases stands.
    std::string feed;
    ReleaseVersion installed;
    /// Opens an address of http or https because the user asked for it.
    std::function<void(const std::string& address)> openAddress;
};

} // namespace pello
