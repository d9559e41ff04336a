#pragma once

#include "platform/Shell.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The remap that makes Caps Lock send F18, through the system's tool for such remaps. Those that
/// other tools installed stay as they are. Keeps no state; main thread only. A shell must live
/// until the operation that it was given to has called back.
namespace pello::HyperKey {

/// One remapped key. A plain value.
struct Mapping {
    /// The usage of the key: its page shifted left by 32 bits, plus its number there.
    std::int64_t source = 0;
    /// The usage that it sends instead.
    std::int64_t destination = 0;

    friend bool operator==(const Mapping&, const Mapping&) = default;
};

/// Caps Lock sends F18: the only remap that is ever added here.
inline constexpr Mapping kCapsLockToF18{.source = 0x700000039, .destination = 0x70000006D};

/// The remaps that there are, one for each key. None when the tool cannot say.
void currentMappings(Shell& shell, std::function<void(std::vector<Mapping> mappings)> done);

/// Makes `mappings` the only remaps that there are.
void apply(Shell& shell, const std::vector<Mapping>& mappings, std::function<void()> done);

/// Remaps Caps Lock. `done` is told whether that was needed: false says that another tool had done
/// the same before, so that it is not ours to remove.
void enable(Shell& shell, std::function<void(bool didInstall)> done);

/// Ends every remap of Caps Lock.
void remove(Shell& shell, std::function<void()> done);

/// The same, done when this returns.
void removeSynchronously(Shell& shell);

/// Whether Caps Lock sends F18 at the moment.
void isActive(Shell& shell, std::function<void(bool isActive)> done);

/// Reads what the tool prints: a property list, with each key on a line of its own.
[[nodiscard]] std::vector<Mapping> parse(std::string_view text);

/// The first mapping of each source, in order.
[[nodiscard]] std::vector<Mapping> deduplicated(const std::vector<Mapping>& mappings);

/// What the tool is given to set `mappings`.
[[nodiscard]] std::string payload(const std::vector<Mapping>& mappings);

} // namespace pello::HyperKey
