// Reads whatever stands at the beginning of a file as a script's header, and asks the command for
// it.

#include "base/Text.h"
#include "scripts/ScriptCommand.h"
#include "scripts/ScriptHeader.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// A short input seldom begins like a header by itself.
std::string scriptOf(std::string_view bytes) {
    static constexpr std::string_view kBeginnings[] = {
        "# pello.name:",     "#pello.keyword: ",     "## PELLO.Icon :",
        "# pello.argument:", "# pello.description:", ""};
    const std::size_t chosen = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front()) % 6;
    return std::string(kBeginnings[chosen]) + std::string(bytes);
}

void check(const pello::ScriptCommand& command, std::string_view query) {
    require(pello::text::wellFormed(command.name) == command.name);
    require(!command.name.empty());
    require(!command.keyword || command.keyword->find(' ') == std::string::npos);
    (void)command.launcherIcon();
    (void)command.shownDetail();
    const std::vector commands = {command};
    (void)pello::ScriptCommand::match(query, commands);
    if (command.keyword) {
        const auto found = pello::ScriptCommand::match(*command.keyword + " x", commands);
        require(found.has_value());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string script = scriptOf(bytes);
    const std::string_view header =
        pello::scriptHeader(std::string_view(script).substr(0, pello::kScriptHeaderBytes));
    require(pello::text::wellFormed(header) == header);
    check(pello::ScriptCommand::parse(header, "/scripts/my-tool_2.sh", "en_US"), bytes);
    return 0;
}
