#pragma once

#include "platform/OwnProgram.h"

namespace pello {

/// The main bundle and the shared application.
class CocoaOwnProgram final : public OwnProgram {
public:
    /// The one of the log's subsystem where the program runs outside an application bundle.
    [[nodiscard]] std::string identifier() const override;
    void openNewInstance(Opened opened) override;
    void terminate() override;
};

} // namespace pello
