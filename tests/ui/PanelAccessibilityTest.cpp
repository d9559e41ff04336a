#include "ui/PanelFixture.h"
#include "ui/accessible/AccessibleParts.h"

#include <QAccessible>
#include <gmock/gmock.h>

namespace pello {
namespace {

std::string nameOf(const QAccessibleInterface& thing) {
    return thing.text(QAccessible::Name).toStdString();
}

/// Comes before the panel: what a part is, is settled when somebody first asks.
struct Described {
    Described() { describeToAssistiveTechnology(); }
};

class PanelAccessibilityTest : protected Described, public PanelFixture {};

TEST_F(PanelAccessibilityTest, TheSelectedRowSaysWhatItIsAndWhereThoughTheFieldHasTheKeyboard) {
    controller.show();
    type("safe");
    press(Qt::Key_Down);
    const auto* list = QAccessible::queryAccessibleInterface(&panel.list());
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->parent()->role(), QAccessible::Window);
    ASSERT_EQ(list->childCount(), 2);
    const auto* row = list->child(1);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_THAT(nameOf(*row), testing::StartsWith("Search for “safe”"));
    EXPECT_EQ(row->text(QAccessible::Description), "2 of 2");
    EXPECT_TRUE(row->state().selected);
    EXPECT_TRUE(row->state().focused) << "what is said to have the focus is to look like it";
    EXPECT_FALSE(list->child(0)->state().focused);
    const auto* field = QAccessible::queryAccessibleInterface(&panel.field());
    EXPECT_EQ(field->role(), QAccessible::EditableText);
    EXPECT_EQ(nameOf(*field), "Search");
}

TEST_F(PanelAccessibilityTest, FailuresAreAListWhoseRowsCanBeReadAndOpened) {
    failures.record({.name = "Post", .fileName = "post", .status = 3, .detail = "no network\nx"});
    controller.show();
    type("safe");
    for (int row = 0; row < 2; ++row) {
        press(Qt::Key_Down);
    }
    auto* list = QAccessible::queryAccessibleInterface(&panel.failures());
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(nameOf(*list), "1 failure");
    ASSERT_EQ(list->childCount(), 1);
    auto* row = list->child(0);
    EXPECT_EQ(nameOf(*row), "Post failed: no network");
    EXPECT_TRUE(row->state().focused);
    int opened = 0;
    panel.failures().onOpen = [&](const ScriptFailure&) { ++opened; };
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(opened, 1);
    failures.dismiss(ScriptFailure(failures.failures().front()));
    EXPECT_FALSE(row->isValid());
}

} // namespace
} // namespace pello
