#pragma once

#include "platform/MainLoop.h"
#include "platform/OwnProgram.h"

namespace pello {

/// A program that only notes what is asked of it.
class MemoryOwnProgram final : public OwnProgram {
public:
    /// `loop` must outlive this object.
    explicit MemoryOwnProgram(MainLoop& loop) : loop_(loop) {}

    [[nodiscard]] std::string identifier() const override { return "is.tolva.pello"; }
    void openNewInstance(Opened opened) override {
        ++instancesOpened;
        loop_.post([error = openingError, done = std::move(opened)] { done(error); });
    }
    void terminate() override { ++terminations; }

    /// Why no instance can be opened, if none can.
    std::optional<std::string> openingError;

    int instancesOpened = 0;
    int terminations = 0;

private:
    MainLoop& loop_;
};

} // namespace pello
