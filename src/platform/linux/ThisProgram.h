#pragma once

#include "platform/MainLoop.h"
#include "platform/OwnProgram.h"

#include <functional>
#include <memory>

namespace pello {

/// The program of this process: started anew by its file, ended by the function that it is given.
class ThisProgram final : public OwnProgram {
public:
    /// `loop` must outlive this object.
    ThisProgram(MainLoop& loop, std::function<void()> terminate);

    [[nodiscard]] std::string identifier() const override;
    void openNewInstance(Opened opened) override;
    void terminate() override { terminate_(); }

private:
    MainLoop& loop_;
    std::function<void()> terminate_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
