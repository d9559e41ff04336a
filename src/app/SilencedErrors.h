#pragma once

namespace pello {

/// Keeps what this process and libraries say on standard error off the terminal while it lives;
/// where that goes elsewhere it is left alone.
class SilencedErrors {
public:
    SilencedErrors();
    ~SilencedErrors();
    SilencedErrors(const SilencedErrors&) = delete;
    SilencedErrors& operator=(const SilencedErrors&) = delete;

private:
    int kept_ = -1;
};

} // namespace pello
