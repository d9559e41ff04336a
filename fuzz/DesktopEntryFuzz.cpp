#include "platform/linux/DesktopEntry.h"
#include "platform/linux/ExecLine.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void runCommand(std::string_view exec) {
    const auto arguments =
        pello::execArguments(exec, {.name = "A name", .icon = "icon", .entry = "/a/b.desktop"});
    if (!arguments) {
        return;
    }
    std::size_t size = 0;
    for (const std::string& argument : *arguments) {
        require(argument.find('\0') == std::string::npos);
        size += argument.size();
    }
    require(!arguments->empty() && !arguments->front().empty());
    require(size <= std::size_t{128} << 10);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    runCommand(bytes);
    const auto locales = pello::messageLocales({{{"LANG", "de_AT.UTF-8@euro"}}});
    const auto entry = pello::DesktopEntry::parse(bytes);
    if (!entry) {
        return 0;
    }
    for (const std::string_view key : {"Name", "Exec", "Keywords", "OnlyShowIn", "NoDisplay"}) {
        const auto text = entry->localizedString(key, locales);
        const auto list = entry->localizedList(key, locales);
        require(text.has_value() == list.has_value());
        require(!entry->flag(key) || entry->string(key) == "true");
        require(!list || std::none_of(list->begin(), list->end(),
                                      [](const std::string& element) { return element.empty(); }));
    }
    runCommand(entry->string("Exec").value_or(""));
    return 0;
}
