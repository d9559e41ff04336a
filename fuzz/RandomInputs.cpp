// Runs a fuzz target on random inputs, the same ones every time: a look in seconds, without the
// compiler that the real thing needs.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    const long runs = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 10'000;
    std::mt19937 random(20'261'121); // NOLINT(*-msc51-cpp): meant to repeat itself
    const auto below = [&random](std::uint32_t bound) { return random() % bound; };
    for (long run = 0; run < runs; ++run) {
        // Mostly what fits into a search field, now and then much more.
        const std::size_t size = below(500) == 0 ? 4000 : 1 + below(12);
        std::vector<std::uint8_t> input(size);
        for (std::uint8_t& byte : input) {
            byte = static_cast<std::uint8_t>(below(256));
        }
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    return EXIT_SUCCESS;
}
