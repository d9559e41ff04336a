#include <QApplication>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

namespace {

/// The application that widgets need, on a screen that nobody sees.
class OffscreenApplication final : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(count_, arguments_.data());
    }
    void TearDown() override { application_.reset(); }

private:
    int count_ = 1;
    std::string name_ = "ui_test";
    std::array<char*, 2> arguments_ = {name_.data(), nullptr};
    std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] auto* const kApplication =
    testing::AddGlobalTestEnvironment(new OffscreenApplication);

} // namespace
