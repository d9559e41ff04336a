#pragma once

namespace pello {

/// Lets assistive technology see what the program paints and shapes itself as what it is: windows,
/// a list of failures whose rows can be opened, a message that can be dismissed, a button that
/// tells the shortcut it shows. A second call changes nothing. Main thread only.
void describeToAssistiveTechnology();

} // namespace pello
