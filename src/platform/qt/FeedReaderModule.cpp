#include "platform/qt/QtFeedReader.h"

/// A new reader, for whoever loads this module; the caller's to delete. Main thread only.
extern "C" Q_DECL_EXPORT pello::FeedReader* pelloMakeFeedReader() {
    return new pello::QtFeedReader;
}
