#pragma once

#include "base/Signal.h"
#include "core/controller/ChangeGroup.h"
#include "core/controller/ChoiceList.h"
#include "core/controller/ControllerParts.h"
#include "core/controller/HistoryRecall.h"
#include "core/controller/LauncherPanel.h"
#include "core/controller/OwnCommands.h"
#include "core/controller/PanelMoves.h"
#include "core/controller/QuerySearch.h"
#include "core/controller/ResultRows.h"
#include "core/controller/RowActions.h"
#include "core/controller/RowRemark.h"
#include "core/controller/RowSupply.h"
#include "core/controller/SourceUpdates.h"
#include "core/items/SearchResult.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Owns the launcher's state: what is typed, what was found, which row is selected.
///
/// Every keystroke ends in `setQuery` and is answered before it returns; nothing on that road waits
/// for anything. Main thread only; lives until the program quits.
class PelloController {
public:
    using Pruning = SourceUpdates::Pruning;

    explicit PelloController(const ControllerParts& parts);

    // What the panel shows

    [[nodiscard]] const std::string& query() const { return query_; }

    /// Takes `query` as typed and refreshes the results; the text that stands already does nothing.
    void setQuery(std::string_view query);

    /// Best first. Valid until the next change.
    [[nodiscard]] std::span<const SearchResult> results() const { return rows_.all(); }

    /// The selected row; 0 when there are no results.
    [[nodiscard]] int selection() const { return rows_.selection(); }

    /// Selects `row`, or the nearest that exists.
    void setSelection(int row);

    /// What would complete the typed text to the first result's title; nothing when there is no
    /// such text or another row is selected.
    [[nodiscard]] std::optional<std::string> inlineCompletion() const;

    /// Types the completion, if there is one.
    void acceptCompletion();

    /// The script whose argument is being typed instead of a query; nothing otherwise.
    [[nodiscard]] std::optional<std::string> argumentPrompt() const {
        return supply_.argumentPrompt();
    }

    /// Goes back to searching.
    void leaveArgumentPrompt();

    /// What the text is typed for instead of a search: the script of the argument prompt, or what
    /// is to be chosen; nothing otherwise.
    [[nodiscard]] std::optional<std::string> prompt() const { return supply_.prompt(); }

    /// A sentence that the user should see, until dismissed: what could not be read, saved or
    /// opened.
    [[nodiscard]] const std::optional<std::string>& notice() const { return notice_; }
    void report(std::string_view sentence);
    void dismissNotice();

    /// Emitted after the query, the results, the selection, the notice or the place in the history
    /// changed, once per change and with all of them final.
    Signal<> changed;

    // What the user does

    /// Steps to the previous query in the history, or back towards the text typed before.
    void recallOlder();
    void recallNewer();

    /// Which entry of the history is shown; nothing while it is what the user typed.
    [[nodiscard]] std::optional<int> historyCursor() const { return history_.cursor(); }

    /// Runs or reveals the selected row. Without one, nothing.
    void runSelection();
    void revealSelection();

    /// Writes a script for the user to start from, unless it is there, and shows it there.
    void writeSampleScript();

    /// Shows the script of that file name in the file viewer.
    void revealScript(std::string_view fileName) {
        parts_.workspace.reveal(parts_.scripts.directory() / fileName);
    }

    /// Puts the selected answer on the pasteboard; the panel stays. False when the selected row is
    /// no answer.
    bool copySelection();

    /// Forgets what was learned about the selected row, which stays where it is and says so.
    void forgetSelection();

    /// What the selected row says about the last thing that was done with it, until something else
    /// is typed.
    [[nodiscard]] std::optional<RowRemark> selectionRemark() const {
        return actions_.remark(rows_.selected());
    }

    /// Says in each row why it stands where it does, or says so no longer. Until something else is
    /// typed.
    void toggleReasons();

    /// The reason of each row, in the order of the rows, empty for a row without one. None unless
    /// they are shown.
    [[nodiscard]] std::span<const std::string> reasons() const { return reasons_; }

    /// Shows the selected emoji in its skin tones, instead of the results, until something else is
    /// typed. False when the selected row has none.
    bool offerVariants();

    /// Shows the results again. False when no variants are shown.
    bool withdrawVariants();

    /// Starts the selected script another time, beside the one that runs. False when none does.
    bool runAgain();

    /// Records the choice, hides the panel and starts the item's action in a later turn of the main
    /// loop.
    void run(const LaunchItemRef& item);

    /// Presents the panel with lines to choose from. Whatever closes it, or shows it for something
    /// else, gives the choice up.
    void choose(ChoiceList::Question question);

    /// Closes the panel if it shows lines to choose from.
    void giveUpChoice();

    /// What the commands about the launcher itself do; without it they do nothing.
    std::function<void()> onCheckForUpdates;
    std::function<void()> onShowReleaseNotes;

    // The panel

    /// `panel` must outlive the controller or be replaced; null for none.
    void setPanel(LauncherPanel* panel) { panel_ = panel; }

    /// Presents the panel with `prefilling` typed and the first row selected.
    void show(std::string_view prefilling = {});
    void hide();
    void toggle();
    [[nodiscard]] bool isPresented() const { return panel_ != nullptr && panel_->isPresented(); }

    /// How often the panel was presented.
    [[nodiscard]] int presentationToken() const { return presentationToken_; }

    /// The user moves the panel; while that goes on it is not placed anew.
    void beginPanelDrag() { moves_.begin(); }
    void endPanelDrag(const PanelPlacement& placement) { moves_.end(placement); }
    void resetPanelPlacement() { moves_.undo(); }
    [[nodiscard]] bool isPanelDragged() const { return moves_.isMoving(); }

    // The sources

    /// Recomputes the results and clamps the selection.
    void refresh();

    /// The items of a normal search, one list per source, in the order that breaks ties.
    [[nodiscard]] Catalogue catalogue() const { return search_.catalogue(); }

    /// Scans the sources again. With `forgetMissing`, what was learned about items that are gone
    /// is forgotten once the scan has ended.
    void reindex(Pruning pruning = Pruning::keepAll) { sources_.reindex(pruning); }

    [[nodiscard]] PelloSettings& settings() { return parts_.settings; }

private:
    void takeIn(SourceUpdates::News news);
    void followSources();
    void remark(RowRemark what);
    void startOver();
    void present(std::string_view prefilling);
    void endChoice(const LaunchItem* chosen);
    void keepTime();
    void askForArgument(const ScriptCommand& command);
    void replaceResults(std::vector<SearchResult> results);
    void recall(const std::optional<std::string>& text);

    using Change = ChangeGroup::Operation;

    ControllerParts parts_;
    ChangeGroup changes_{changed};
    QuerySearch search_{parts_, ownCommands(onCheckForUpdates, onShowReleaseNotes)};
    RowSupply supply_{parts_, search_};
    RowActions actions_{parts_};
    LauncherPanel* panel_ = nullptr;
    std::string query_;
    ResultRows rows_;
    int presentationToken_ = 0;
    std::optional<std::string> notice_;
    std::vector<std::string> reasons_; // of the rows, unless empty
    PanelMoves moves_{parts_.settings};
    HistoryRecall history_{parts_.queryHistory};
    bool isRecallingHistory_ = false;
    Subscription nextSecond_;
    // The last one, as it tells at once.
    SourceUpdates sources_{parts_, [this](SourceUpdates::News news) { takeIn(news); }};
};

} // namespace pello
