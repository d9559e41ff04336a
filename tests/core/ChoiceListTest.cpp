#include "core/controller/ChoiceList.h"

#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

/// A panel that loses the keyboard as it goes, before it has gone, and so wants to go once more.
class ShownPanel final : public LauncherPanel {
public:
    explicit ShownPanel(PelloController& controller) : controller_(controller) {}

    void present() override { isShown_ = true; }
    void dismiss() override {
        if (!std::exchange(isGoing_, true)) {
            controller_.hide();
            isShown_ = false;
            isGoing_ = false;
        }
    }
    [[nodiscard]] bool isPresented() const override { return isShown_; }

private:
    PelloController& controller_;
    bool isShown_ = false;
    bool isGoing_ = false;
};

using Answers = std::vector<std::optional<std::size_t>>;

class ChoiceListTest : public testing::Test, protected MemoryLauncher {
protected:
    ChoiceListTest() {
        install({"Safari", "Terminal"});
        controller.setPanel(&panel);
    }
    ~ChoiceListTest() override { controller.setPanel(nullptr); }

    /// Lets the user choose from the lines of `text`; the answers come in `into`.
    void ask(std::string_view text, Answers& into) {
        controller.choose({.prompt = "Branch",
                           .lines = ChoiceList::prepared(text),
                           .answered = [&into](auto line) { into.push_back(line); }});
    }

    ShownPanel panel{controller};
    Answers answers;
};

TEST_F(ChoiceListTest, LinesKeepTheirOrderUntilSomethingIsTyped) {
    settings.startsCompact.set(true);
    ask("topic\nmain\n\nSafe\nmain\n", answers);
    EXPECT_TRUE(panel.isPresented());
    EXPECT_THAT(controller.prompt(), Optional(Eq("Branch")));
    EXPECT_THAT(titles(), ElementsAre("topic", "main", "", "Safe", "main"));
    EXPECT_THAT(found("saf"), ElementsAre("Safe")) << "applications are not among them";
    EXPECT_THAT(found("man"), ElementsAre("main", "main"));
    controller.setSelection(1);
    controller.runSelection();
    EXPECT_THAT(answers, ElementsAre(Optional(4U)));
    EXPECT_FALSE(panel.isPresented());
    EXPECT_FALSE(controller.prompt());
    EXPECT_THAT(history.entries(), IsEmpty());
    EXPECT_THAT(usage.records(), IsEmpty());
    EXPECT_THAT(found("saf"), ElementsAre("Safari"));
}

TEST_F(ChoiceListTest, WhateverElseUsesThePanelGivesItUpOnce) {
    ask("a\nb", answers);
    controller.hide();
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
    ask("a\nb", answers);
    controller.toggle();
    ask("a\nb", answers);
    controller.show("safari");
    EXPECT_THAT(answers, ElementsAre(std::nullopt, std::nullopt, std::nullopt));
    EXPECT_TRUE(panel.isPresented()) << "for something else";
    EXPECT_THAT(titles(), ElementsAre("Safari"));
    controller.giveUpChoice();
    EXPECT_TRUE(panel.isPresented());

    Answers others;
    ask("a\nb", answers);
    ask("c\nd", others);
    EXPECT_THAT(answers, SizeIs(4));
    EXPECT_THAT(titles(), ElementsAre("c", "d"));
    controller.recallOlder();
    controller.runSelection();
    EXPECT_THAT(others, ElementsAre(Optional(0U)));
    EXPECT_THAT(answers, SizeIs(4));
}

TEST_F(ChoiceListTest, ManyLongAndOddLinesDoNoHarm) {
    std::string text = std::string(10'000, 'x') + "\n\xff\x01\n";
    for (int i = 0; i < 2000; ++i) {
        text += "line " + std::to_string(i) + "\n";
    }
    ask(text, answers);
    EXPECT_THAT(titles(), SizeIs(ChoiceList::kMaximumRows));
    EXPECT_LT(titles().front().size(), 500U);
    EXPECT_THAT(found("1999"), ElementsAre("line 1999"));
    controller.runSelection();
    EXPECT_THAT(answers, ElementsAre(Optional(2001U)));
}

} // namespace
} // namespace pello
