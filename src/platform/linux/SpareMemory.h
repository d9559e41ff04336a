#pragma once

namespace pello {

/// Gives memory back that was needed once: the pages of the program and its libraries that were
/// read, and what the heap has free. A page that is needed after all comes back from the system's
/// cache of files.
///
/// For the time after launch: starting alone touches more than half of what is mapped then. Takes
/// about a millisecond; any thread.
void giveSpareMemoryBack();

} // namespace pello
