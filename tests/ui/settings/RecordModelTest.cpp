#include "ui/settings/RecordModel.h"

#include "support/TemporaryFolder.h"
#include "ui/settings/RecordsPage.h"
#include "ui/settings/SettingsFixture.h"

#include <QLineEdit>
#include <QMimeData>
#include <gmock/gmock.h>

#include <memory>

namespace pello {
namespace {

using testing::ElementsAre;

std::vector<std::string> keywords(const std::vector<Bang>& bangs) {
    std::vector<std::string> all;
    for (const Bang& bang : bangs) {
        all.push_back(bang.keyword);
    }
    return all;
}

class RecordModelTest : public SettingsFixture {
protected:
    RecordModelTest() {
        settings.bangs.set({{.keyword = "a", .name = "A", .addressTemplate = "https://a.test/"},
                            {.keyword = "b", .name = "B", .addressTemplate = "https://b.test/"},
                            {.keyword = "c", .name = "C", .addressTemplate = "https://c.test/"}});
    }

    /// The order after dragging row `from` to before row `to`.
    std::vector<std::string> dragged(int from, int to) {
        const std::unique_ptr<QMimeData> data(model.mimeData({model.index(from, 0)}));
        EXPECT_FALSE(model.dropMimeData(data.get(), Qt::MoveAction, to, 0, {}))
            << "the view would remove the row that was dragged";
        return keywords(settings.bangs());
    }

    RecordModel<Bang> model{settings.bangs};
};

TEST_F(RecordModelTest, EveryEditIsWrittenAtOnceAndKeepsTheRecordsIdentity) {
    const Uuid id = settings.bangs()[1].id;
    EXPECT_TRUE(model.setData(model.index(1, 0), "bb", Qt::EditRole));
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("a", "bb", "c"));
    EXPECT_EQ(settings.bangs()[1].id, id);
    const PelloSettings later(defaults, loginItem);
    EXPECT_EQ(later.bangs(), settings.bangs());
}

TEST_F(RecordModelTest, RowsAreAddedRemovedAndDragged) {
    EXPECT_THAT(dragged(0, 2), ElementsAre("b", "a", "c"));
    EXPECT_THAT(dragged(2, 0), ElementsAre("c", "b", "a"));
    EXPECT_THAT(dragged(0, -1), ElementsAre("b", "a", "c")) << "dropped below the last row";
    EXPECT_THAT(dragged(1, 1), ElementsAre("b", "a", "c"));
    EXPECT_THAT(dragged(1, 2), ElementsAre("b", "a", "c"));
    model.append();
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("b", "a", "c", ""));
    EXPECT_TRUE(model.removeRows(1, 1));
    EXPECT_FALSE(model.removeRows(3, 1));
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("b", "c", ""));
}

TEST_F(RecordModelTest, FollowsTheSettingWithoutLosingItsPlaceToItself) {
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    model.setData(model.index(0, 1), "Alpha", Qt::EditRole);
    EXPECT_EQ(resets, 0) << "an editor would close at every letter";
    settings.bangs.set({});
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(RecordModelTest, ListsSurviveTheWayThroughAFile) {
    const auto bangs = settings.bangs();
    EXPECT_EQ(recordText::parse<Bang>(recordText::exported(bangs)), bangs);
    const std::vector<URLAlias> aliases{{.alias = "ü \"", .url = "x.test"}};
    EXPECT_EQ(recordText::parse<URLAlias>(recordText::exported(aliases)), aliases);
    for (const char* broken : {"", "{}", "[1]", R"([{"keyword": "x"}])", "[", "\xff"}) {
        EXPECT_FALSE(recordText::parse<Bang>(broken)) << broken;
    }
}

TEST_F(RecordModelTest, ImportAddsWhatIsNewAndReplacesWhatHasTheSameIdentity) {
    Bang changed = settings.bangs()[1];
    changed.keyword = "bb";
    Bang repeated = settings.bangs()[0];
    repeated.id = Uuid::random();
    const Bang added{.keyword = "d", .name = "D", .addressTemplate = "https://d.test/"};
    const auto merged = recordText::merged(settings.bangs(), {changed, repeated, added, added});
    EXPECT_THAT(keywords(merged), ElementsAre("a", "bb", "c", "d"));
    EXPECT_FALSE(model.import("[{}]"));
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_TRUE(model.import(R"([{"keyword": "e", "name": "E", "template": "https://e.test/"}])"));
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("a", "b", "c", "e"));
}

class RecordsPageTest : public RecordModelTest {
protected:
    QString notice() { return page->row("Your bangs")->notice(); }

    /// What the page says about a file.
    QString status() {
        QString text;
        for (const auto* label : page->findChildren<QLabel*>()) {
            text = label->text().contains("file.json") ? label->text() : text;
        }
        return text;
    }

    std::unique_ptr<RecordsPage> page = RecordsPage::bangs(settings);
    RecordView& view = *partsOf<RecordView>(*page).at(0);
};

TEST_F(RecordsPageTest, ProblemsAppearAsOneTypesAndEscapeBringsTheTextBack) {
    EXPECT_EQ(notice(), "");
    view.setCurrentIndex(view.model()->index(1, 0));
    press(view, Qt::Key_Return);
    auto* editor = view.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    press(*editor, Qt::Key_A, Qt::NoModifier, "A");
    EXPECT_EQ(notice(), "a appear more than once");
    press(*editor, Qt::Key_Space, Qt::NoModifier, " ");
    EXPECT_EQ(notice(), "a keyword is blank or contains a space");
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("a", "A ", "c"));
    press(*editor, Qt::Key_Escape);
    EXPECT_EQ(notice(), "");
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("a", "b", "c"));
}

TEST_F(RecordsPageTest, KeysMoveAndRemoveTheSelectedRow) {
    view.setCurrentIndex(view.model()->index(0, 0));
    press(view, Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("b", "a", "c"));
    press(view, Qt::Key_Down, Qt::AltModifier);
    press(view, Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("b", "c", "a"));
    press(view, Qt::Key_Up, Qt::AltModifier);
    press(view, Qt::Key_Delete);
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre("b", "c"));
    press(view, Qt::Key_Delete);
    press(view, Qt::Key_Delete);
    press(view, Qt::Key_Delete);
    EXPECT_THAT(keywords(settings.bangs()), ElementsAre());
}

TEST_F(RecordsPageTest, FilesAreReadAndWrittenAndWhatFailsIsSaid) {
    const TemporaryFolder folder;
    const auto path = QString::fromStdString((folder.path() / "file.json").string());
    page->importFile(path);
    EXPECT_TRUE(status().startsWith("file.json cannot be read")) << status().toStdString();
    page->exportFile(path);
    EXPECT_EQ(status(), "Exported to file.json.");
    const auto before = settings.bangs();
    settings.bangs.set({});
    page->importFile(path);
    EXPECT_EQ(settings.bangs(), before);
    EXPECT_EQ(status(), "Imported file.json: 3 added.");
    folder.write("file.json", "not JSON");
    page->importFile(path);
    EXPECT_EQ(status(), "file.json holds no list of bangs. Nothing was changed.");
    EXPECT_EQ(settings.bangs(), before);
}

} // namespace
} // namespace pello
