#include "ui/PanelFixture.h"

#include <QMouseEvent>
#include <gmock/gmock.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PanelWindowTest : public PanelFixture {
protected:
    PanelWindowTest() {
        controller.show();
        type("saf");
    }

    /// Sends a mouse event to the middle of row `row`; `position` is where that is on the screen.
    void mouse(QEvent::Type type, int row, QPoint position) {
        const ResultList& list = panel.list();
        const QPoint place = list.visualRect(list.model()->index(row, 0)).center();
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, position, button, held, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &event);
    }
    /// Sends a mouse event to the field; `pointer` is a place on the screen.
    void mouseInField(QEvent::Type type, QPoint pointer) {
        QMouseEvent event(type, panel.field().mapFromGlobal(pointer), pointer, Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&panel.field(), &event);
    }
    /// Begins a drag from the middle of the search symbol, or further right, by `way`, and returns
    /// where the pointer is then.
    QPoint beginDrag(int right, QPoint way) {
        const QPoint pressed = panel.field().mapToGlobal(QPoint(30 + right, 30));
        mouseInField(QEvent::MouseButtonPress, pressed);
        mouseInField(QEvent::MouseMove, pressed + way);
        return pressed + way;
    }
    void drag(int right, QPoint way) {
        mouseInField(QEvent::MouseButtonRelease, beginDrag(right, way));
    }
};

TEST_F(PanelWindowTest, ThePointerSelectsOnlyWhenItMoved) {
    mouse(QEvent::MouseMove, 1, {300, 299});
    EXPECT_THAT(rows(), ElementsAre("[Safari]", "Safe Mode")) << "it was there when they came";
    mouse(QEvent::MouseMove, 1, {300, 300});
    EXPECT_THAT(rows(), ElementsAre("Safari", "[Safe Mode]"));
    press(Qt::Key_Up);
    mouse(QEvent::MouseMove, 1, {300, 300});
    EXPECT_THAT(rows(), ElementsAre("[Safari]", "Safe Mode")) << "it only came to lie under it";
    mouse(QEvent::MouseMove, 1, {301, 300});
    EXPECT_THAT(rows(), ElementsAre("Safari", "[Safe Mode]"));
}

TEST_F(PanelWindowTest, AClickRunsTheRowItBeganAndEndedOn) {
    mouse(QEvent::MouseButtonPress, 0, {300, 250});
    mouse(QEvent::MouseButtonRelease, 1, {300, 300});
    launcher.loop.settle();
    EXPECT_THAT(launcher.opened(), IsEmpty());
    mouse(QEvent::MouseButtonPress, 1, {300, 300});
    mouse(QEvent::MouseButtonRelease, 1, {300, 300});
    launcher.loop.settle();
    EXPECT_THAT(launcher.opened(), ElementsAre("Safe Mode"));
}

TEST_F(PanelWindowTest, AKeyHeldSinceBeforeItOpenedTypesNothing) {
    controller.hide();
    controller.show();
    const auto space = [this](bool isRepeat) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", isRepeat);
        QApplication::sendEvent(&panel.field(), &event);
    };
    space(true);
    EXPECT_EQ(controller.query(), "");
    space(false);
    space(true);
    EXPECT_EQ(controller.query(), "  ");
}

TEST_F(PanelWindowTest, TheHeightFollowsTheRowsAndTheWindowStays) {
    const QRect window = panel.geometry();
    const QRect two = panel.body();
    type("e");
    const QRect one = panel.body();
    controller.setQuery("");
    const QRect none = panel.body();
    EXPECT_GT(two.height(), one.height());
    EXPECT_GT(one.height(), none.height());
    EXPECT_EQ(none.height(), panel.field().height());
    EXPECT_EQ(two.topLeft(), none.topLeft());
    EXPECT_EQ(two.width(), none.width());
    EXPECT_EQ(panel.mask().boundingRect(), none) << "the rest is open to the pointer";

    controller.report("The disk is full.");
    EXPECT_GT(panel.body().height(), none.height());
    controller.dismissNotice();
    EXPECT_EQ(panel.body(), none);
    EXPECT_EQ(panel.geometry(), window) << "nothing waited for the window manager";
    launcher.install(std::vector<std::string>{"A", "B", "C", "D", "E", "F", "G", "H", "I"});
    launcher.settings.maximumResults.set(30);
    type("a");
    EXPECT_EQ(panel.list().height(), panel.list().heightWithin(10'000));
    EXPECT_GE(panel.height(), panel.body().height());
}

TEST_F(PanelWindowTest, EverythingGrowsWithTheFontSizeAtOnce) {
    const QRect usual = panel.body().translated(panel.pos());
    launcher.settings.fontSize.set(24);
    EXPECT_NEAR(panel.body().height(), usual.height() * 1.5, 4);
    EXPECT_NEAR(panel.geometry().center().x(), usual.center().x(), 1);
    launcher.settings.fontSize.set(1e9);
    EXPECT_LT(panel.field().height(), 300) << "beyond reason";
}

TEST_F(PanelWindowTest, DraggingByAFreePartMovesItAndIsRemembered) {
    const QPoint before = panel.pos();
    drag(0, {1, 0});
    EXPECT_EQ(panel.pos(), before) << "a shaking hand";
    EXPECT_FALSE(controller.isPanelDragged());
    drag(40, {20, 20});
    EXPECT_EQ(panel.pos(), before) << "the text is not a free part";
    drag(400, {-30, 50});
    EXPECT_EQ(panel.pos(), before + QPoint(-30, 50));
    controller.hide();
    controller.show("saf");
    EXPECT_NEAR(panel.x(), before.x() - 30, 1);
    EXPECT_NEAR(panel.y(), before.y() + 50, 1);
    controller.resetPanelPlacement();
    EXPECT_EQ(panel.pos(), before);
}

TEST_F(PanelWindowTest, HidingItEndsADragWhereItIs) {
    const QPoint before = panel.pos();
    const QPoint pointer = beginDrag(400, {-30, 50});
    EXPECT_TRUE(controller.isPanelDragged());
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    EXPECT_FALSE(panel.isPresented());
    EXPECT_FALSE(controller.isPanelDragged());
    controller.show("saf");
    mouseInField(QEvent::MouseMove, pointer + QPoint(9, 9)); // the button is still held
    EXPECT_NEAR(panel.x(), before.x() - 30, 1);
    EXPECT_NEAR(panel.y(), before.y() + 50, 1);
    controller.resetPanelPlacement();
    EXPECT_EQ(panel.pos(), before) << "it follows the settings again";
}

TEST_F(PanelWindowTest, OnlyADisplayThatBlendsGivesRoomToAShadow) {
    const QRect opaque = panel.geometry();
    EXPECT_FALSE(panel.mask().contains(QPoint(0, 0))) << "round without blending";
    EXPECT_TRUE(panel.mask().contains(QPoint(opaque.width() / 2, 0)));
    controller.hide();
    compositor.setRunning(true);
    controller.show("saf");
    EXPECT_TRUE(panel.mask().contains(QPoint(0, 0)));
    EXPECT_GT(panel.width(), opaque.width());
    EXPECT_EQ(panel.geometry().center().x(), opaque.center().x());
    EXPECT_EQ(panel.mapToGlobal(panel.field().pos()), opaque.topLeft());
}

TEST_F(PanelWindowTest, ClosingItFromOutsideOnlyHidesIt) {
    panel.close();
    EXPECT_FALSE(panel.isPresented());
    controller.toggle();
    EXPECT_TRUE(panel.isPresented());
    EXPECT_EQ(text(), "") << "each summons begins anew";
}

} // namespace
} // namespace pello
