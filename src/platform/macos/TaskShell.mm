#include "platform/macos/TaskShell.h"

#include "base/Text.h"
#include "platform/macos/FilePath.h"
#import "platform/macos/PropertyListObjects.h"

#import <Foundation/Foundation.h>

#include <utility>

namespace pello {
namespace {

/// What a shell answers for what is not there.
constexpr std::int32_t kNotRunStatus = 127;

NSTask* toolTask(const std::string& path, const std::vector<std::string>& arguments) {
    NSMutableArray<NSString*>* texts = [NSMutableArray arrayWithCapacity:arguments.size()];
    for (const std::string& argument : arguments) {
        [texts addObject:stringObject(argument)];
    }
    NSTask* task = [[NSTask alloc] init];
    task.executableURL = fileURL(path);
    task.arguments = texts;
    task.standardInput = NSFileHandle.fileHandleWithNullDevice;
    task.standardOutput = [NSPipe pipe];
    task.standardError = NSFileHandle.fileHandleWithNullDevice;
    return task;
}

/// Reads to the end of what `task` prints; waits for it.
NSData* outputOf(NSTask* task) {
    NSPipe* pipe = task.standardOutput;
    return [pipe.fileHandleForReading readDataToEndOfFileAndReturnError:nil];
}

Shell::Result resultOf(NSTask* ended, NSData* printed) {
    const std::string_view output(static_cast<const char*>(printed.bytes), printed.length);
    return {.status = ended.terminationStatus,
            .output = std::string(text::trimmingWhitespaceAndControls(output))};
}

} // namespace

/// Started at once, for the order; read and waited for elsewhere.
void TaskShell::run(const std::string& path, const std::vector<std::string>& arguments,
                    Completion completion) {
    NSTask* task = toolTask(path, arguments);
    dispatch_group_t end = dispatch_group_create();
    dispatch_group_enter(end);
    task.terminationHandler = ^(NSTask*) {
      dispatch_group_leave(end);
    };
    const bool isStarted = [task launchAndReturnError:nil];
    __block NSData* printed = nil;
    if (isStarted) {
        dispatch_group_async(end, dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0), ^{
          printed = outputOf(task);
        });
    } else {
        dispatch_group_leave(end);
    }
    const std::weak_ptr<int> weakAlive = alive_;
    dispatch_group_notify(end, dispatch_get_main_queue(), ^{
      if (!weakAlive.expired()) {
          completion(isStarted ? resultOf(task, printed) : Result{.status = kNotRunStatus});
      }
    });
}

Shell::Result TaskShell::runSynchronously(const std::string& path,
                                          const std::vector<std::string>& arguments) {
    @autoreleasepool {
        NSTask* task = toolTask(path, arguments);
        if (![task launchAndReturnError:nil]) {
            return {.status = kNotRunStatus};
        }
        NSData* printed = outputOf(task);
        [task waitUntilExit];
        return resultOf(task, printed);
    }
}

} // namespace pello
