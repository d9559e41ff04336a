#include "platform/linux/LoadedFeedReader.h"

#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace pello {
namespace {

namespace fs = std::filesystem;

// As in platform/qt/FeedReaderModule.cpp.
constexpr const char* kModule = "pello-network.so";
constexpr const char* kMaker = "pelloMakeFeedReader";
using Make = FeedReader* (*)();

/// What the module gives; null, with the reason in `problem`, when it cannot be loaded. It stays
/// loaded: its toolkit's objects may last as long as the program.
std::unique_ptr<FeedReader> loadedReader(std::string& problem) {
    std::error_code error;
    const fs::path module = fs::read_symlink("/proc/self/exe", error).parent_path() / kModule;
    void* const library = ::dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    const auto make =
        library == nullptr ? nullptr : reinterpret_cast<Make>(::dlsym(library, kMaker));
    if (make == nullptr) {
        problem = ::dlerror();
        return nullptr;
    }
    return std::unique_ptr<FeedReader>(make());
}

} // namespace

Subscription LoadedFeedReader::read(const Request& request,
                                    std::function<void(const Answer& answer)> answered) {
    std::string problem;
    if (!reader_) {
        reader_ = loadedReader(problem);
    }
    if (reader_) {
        return reader_->read(request, std::move(answered));
    }
    return loop_.after({}, [answered = std::move(answered), problem] {
        answered(Failure{.reason = Failure::Reason::refused, .detail = problem});
    });
}

} // namespace pello
