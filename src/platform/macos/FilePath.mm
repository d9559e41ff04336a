#include "platform/macos/FilePath.h"

#import <Foundation/Foundation.h>

namespace pello {

NSURL* fileURL(const std::filesystem::path& path) {
    return [NSURL fileURLWithFileSystemRepresentation:path.c_str()
                                          isDirectory:NO
                                        relativeToURL:nil];
}

} // namespace pello
