#include "platform/linux/SpareMemory.h"

#include <sys/mman.h>

#include <cstdint>
#include <link.h>
#include <malloc.h>
#include <unistd.h>

namespace pello {
namespace {

/// Lets go of the parts of one program or library that nobody can have written to. The loader calls
/// this and keeps all of them mapped meanwhile.
int releaseReadOnlyParts(dl_phdr_info* object, std::size_t /*size*/, void* /*context*/) {
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    for (int i = 0; i < object->dlpi_phnum; ++i) {
        const auto& part = object->dlpi_phdr[i];
        if (part.p_type != PT_LOAD || (part.p_flags & PF_W) != 0) {
            continue;
        }
        const std::uintptr_t start = (object->dlpi_addr + part.p_vaddr) / page * page;
        const std::uintptr_t end = object->dlpi_addr + part.p_vaddr + part.p_filesz;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader gives addresses as numbers
        ::madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED);
    }
    return 0;
}

} // namespace

void giveSpareMemoryBack() {
    ::dl_iterate_phdr(releaseReadOnlyParts, nullptr);
    ::malloc_trim(0);
}

} // namespace pello
