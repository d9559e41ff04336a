#include "core/controller/PelloController.h"

#include "base/Text.h"
#include "core/controller/ArgumentRow.h"
#include "core/controller/Completion.h"
#include "core/controller/RankingWords.h"
#include "core/controller/StableRows.h"
#include "sources/PelloCommands.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace pello {

class PelloController::Change {
public:
    explicit Change(PelloController& controller) : controller_(controller) {
        ++controller_.openChanges_;
    }
    ~Change() {
        if (--controller_.openChanges_ == 0 && std::exchange(controller_.hasChanged_, false)) {
            controller_.changed.emit();
        }
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

private:
    PelloController& controller_;
};

PelloController::PelloController(const ControllerParts& parts) : parts_(parts) {
    parts_.indexer.onIndexChanged = [this] { applicationsChanged(); };
    parts_.aliases.onIndexChanged = [this] { takeIn(Source::aliases); };
    parts_.scripts.onIndexChanged = [this] { takeIn(Source::scripts); };
    parts_.scripts.onNeedsArgument = [this](const ScriptCommand& command) {
        askForArgument(command);
    };
    subscriptions_.push_back(parts_.runningScripts.changed.connect([this] {
        followSources();
        keepTime();
    }));
    parts_.quickActions.onChanged = [this] { takeIn(Source::answers); };
    parts_.glyphs.onPrepared = [this] { takeIn(Source::glyphs); };
    subscriptions_.push_back(parts_.settings.changed.connect([this] {
        configureSources();
        refresh();
    }));
    subscriptions_.push_back(parts_.usage.changed.connect([this] { followSources(); }));
    parts_.indexer.configure(parts_.settings.searchDirectories(parts_.bundles.standardFolders()));
    parts_.aliases.configure(parts_.settings.urlAliases.get());
    refresh();
}

// What the panel shows

void PelloController::setQuery(std::string_view query) {
    if (query == query_) {
        return;
    }
    const Change change(*this);
    if (!isRecallingHistory_) {
        history_.end();
    }
    query_ = query;
    variants_.clear();
    remark_.reset();
    reasons_.clear();
    announce();
    refresh();
}

void PelloController::setSelection(int row) {
    const Change change(*this);
    const int before = std::exchange(selection_, std::max(0, row));
    clampSelection();
    if (selection_ != before) {
        announce();
    }
}

std::optional<std::string> PelloController::inlineCompletion() const {
    if (prompted_ || selection_ != 0 || results_.empty()) {
        return std::nullopt;
    }
    return completion(query_, results_.front().item->title);
}

void PelloController::acceptCompletion() {
    if (const auto rest = inlineCompletion()) {
        setQuery(query_ + *rest);
    }
}

void PelloController::report(std::string_view sentence) {
    const Change change(*this);
    if (notice_ != sentence) {
        notice_ = sentence;
        announce();
    }
}

void PelloController::dismissNotice() {
    const Change change(*this);
    if (std::exchange(notice_, std::nullopt)) {
        announce();
    }
}

void PelloController::announce() {
    hasChanged_ = true;
}

// Searching

void PelloController::refresh() {
    const Change change(*this);
    if (parts_.settings.startsCompact.get() && text::isBlank(query_) && !choice_.isAsked()) {
        replaceResults({});
        setSelection(0);
        return;
    }
    replaceResults(search());
    setSelection(selection_);
}

/// What a source has at first is waited for: it takes its own place, unless the user has chosen a
/// row by then.
void PelloController::takeIn(Source source) {
    const bool isKnown = std::exchange(knownSources_.at(static_cast<std::size_t>(source)), true);
    if (isKnown || selection_ != 0) {
        followSources();
    } else {
        refresh();
    }
}

/// What the sources have now, below what the user looks at.
void PelloController::followSources() {
    if (!isPresented()) {
        refresh();
        return;
    }
    const Change change(*this);
    replaceResults(stableRows(results_, selection_, search(),
                              [this](const LaunchItem& item) { return search_.exists(item); }));
    setSelection(selection_);
}

std::vector<SearchResult> PelloController::search() const {
    if (choice_.isAsked()) {
        return choice_.rows(query_);
    }
    if (prompted_) {
        return argumentRow(parts_.scripts, *prompted_, query_);
    }
    if (!variants_.empty()) {
        return variants_;
    }
    return search_.results(query_);
}

// Arguments

std::optional<std::string> PelloController::argumentPrompt() const {
    return prompted_ ? std::optional(prompted_->name) : std::nullopt;
}

std::optional<std::string> PelloController::prompt() const {
    return choice_.isAsked() ? choice_.prompt() : argumentPrompt();
}

/// The user types the argument behind the keyword, or where that means something else, by itself.
void PelloController::askForArgument(const ScriptCommand& command) {
    const bool isUnderstood = command.keyword && search_.finds(command, *command.keyword);
    show(isUnderstood ? *command.keyword + ' ' : "");
    if (!isUnderstood) {
        const Change change(*this);
        prompted_ = command;
        announce();
        refresh();
    }
}

void PelloController::leaveArgumentPrompt() {
    const Change change(*this);
    if (std::exchange(prompted_, std::nullopt)) {
        announce();
        setQuery("");
        refresh();
    }
}

void PelloController::replaceResults(std::vector<SearchResult> results) {
    if (results != results_) {
        results_ = std::move(results);
        if (!reasons_.empty()) {
            explainRows();
        }
        announce();
    }
}

void PelloController::clampSelection() {
    const int last = static_cast<int>(results_.size()) - 1;
    selection_ = std::max(0, std::min(selection_, last));
}

// Running

const SearchResult* PelloController::selectedResult() const {
    const auto row = static_cast<std::size_t>(selection_);
    return row < results_.size() ? &results_[row] : nullptr;
}

void PelloController::runSelection() {
    if (const SearchResult* result = selectedResult()) {
        run(LaunchItemRef(result->item)); // a copy: running replaces the results
    }
}

void PelloController::revealSelection() {
    const SearchResult* result = selectedResult();
    const auto file = result != nullptr ? result->item->revealURL : std::nullopt;
    if (file) {
        hide();
        parts_.workspace.reveal(*file);
    }
}

void PelloController::revealScript(std::string_view fileName) {
    parts_.workspace.reveal(parts_.scripts.directory() / fileName);
}

void PelloController::writeSampleScript() {
    parts_.scripts.writeSample([this](const std::optional<std::filesystem::path>& file) {
        if (file) {
            parts_.workspace.reveal(*file);
        } else {
            report("The sample script could not be written.");
        }
    });
}

bool PelloController::copySelection() {
    const SearchResult* result = selectedResult();
    if (result == nullptr || result->item->kind != LaunchItem::Kind::calculation) {
        return false;
    }
    parts_.pasteboard.setText(result->item->title);
    remark(RowRemark::copied);
    return true;
}

void PelloController::forgetSelection() {
    if (const SearchResult* result = selectedResult()) {
        const Change change(*this);
        const bool wasKnown = parts_.usage.forget(std::string(result->id()));
        remark(wasKnown ? RowRemark::forgotten : RowRemark::nothingLearned);
    }
}

void PelloController::remark(RowRemark what) {
    const Change change(*this);
    remark_ = {selectedResult()->item, what};
    announce();
}

std::optional<RowRemark> PelloController::selectionRemark() const {
    const SearchResult* result = selectedResult();
    const bool isMeant = result != nullptr && remark_ && result->item == remark_->first;
    return isMeant ? std::optional(remark_->second) : std::nullopt;
}

void PelloController::toggleReasons() {
    const Change change(*this);
    if (reasons_.empty()) {
        explainRows();
    } else {
        reasons_.clear();
    }
    announce();
}

void PelloController::explainRows() {
    std::unordered_map<std::string_view, std::string> words;
    const auto explanations = search_.explanations(query_);
    for (const SearchExplanation& row : explanations) {
        words.emplace(row.result.id(), rankingWords(row));
    }
    reasons_.clear();
    for (const SearchResult& result : results_) {
        reasons_.push_back(words[result.id()]);
    }
}

bool PelloController::offerVariants() {
    const SearchResult* result = selectedResult();
    std::vector<SearchResult> variants;
    if (result != nullptr) {
        for (LaunchItemRef& variant : parts_.glyphs.variants(*result->item)) {
            variants.push_back({.item = std::move(variant), .score = 0, .titleMatches = {}});
        }
    }
    if (variants.empty()) {
        return false;
    }
    const Change change(*this);
    variants_ = std::move(variants);
    refresh();
    setSelection(0);
    return true;
}

bool PelloController::withdrawVariants() {
    if (variants_.empty()) {
        return false;
    }
    variants_.clear();
    refresh();
    return true;
}

bool PelloController::runAgain() {
    const SearchResult* result = selectedResult();
    if (result == nullptr || parts_.runningScripts.row(*result->item) == nullptr) {
        return false;
    }
    const LaunchItemRef item = result->item;
    parts_.queryHistory.record(query_);
    hide();
    parts_.loop.post([this, item] { parts_.runningScripts.runAgain(*item); });
    return true;
}

void PelloController::run(const LaunchItemRef& item) {
    if (choice_.isAsked()) {
        endChoice(item.get());
        return;
    }
    if (!prompted_) {
        parts_.queryHistory.record(query_);
    }
    hide();
    if (!item->isEphemeral) {
        // Without its prefix: the glyph learned for ":fire" is the one for "emoji fire" too.
        parts_.usage.record(item->id, QuerySearch::mode(query_).text);
    }
    parts_.loop.post([item] {
        if (item->run) {
            item->run();
        }
    });
}

// Choosing for other programs

void PelloController::choose(ChoiceList::Question question) {
    choice_.ask(std::move(question));
    present("");
}

void PelloController::giveUpChoice() {
    if (choice_.isAsked()) {
        endChoice(nullptr);
    }
}

/// The panel is gone before whoever asked goes on. As it goes, it may ask to be hidden once more.
void PelloController::endChoice(const LaunchItem* chosen) {
    const Change change(*this);
    const auto answer = choice_.end(chosen);
    if (isPresented()) {
        panel_->dismiss();
    }
    answer();
    setQuery("");
    refresh(); // lets go of the lines
}

// History

void PelloController::recallOlder() {
    if (!prompted_ && !choice_.isAsked()) {
        recall(history_.older(query_));
    }
}

void PelloController::recallNewer() {
    recall(history_.newer());
}

void PelloController::recall(const std::optional<std::string>& text) {
    if (text) {
        const Change change(*this);
        isRecallingHistory_ = true;
        setQuery(*text);
        isRecallingHistory_ = false;
        announce();
    }
}

// The panel

void PelloController::show(std::string_view prefilling) {
    choice_.cancel();
    present(prefilling);
}

void PelloController::present(std::string_view prefilling) {
    {
        const Change change(*this);
        ++presentationToken_;
        prompted_.reset();
        selection_ = 0;
        variants_.clear();
        remark_.reset();
        reasons_.clear();
        history_.end();
        if (query_ != prefilling) {
            setQuery(prefilling);
        } else {
            refresh(); // what was learned weighs less with every minute
        }
        announce();
    }
    if (panel_ != nullptr) {
        panel_->present();
    }
    parts_.quickActions.keepUp();
    keepTime();
}

/// The rows of running scripts say for how long, as long as somebody can see it.
void PelloController::keepTime() {
    nextSecond_ = {};
    if (!parts_.runningScripts.isEmpty() && isPresented()) {
        nextSecond_ = parts_.loop.after(std::chrono::seconds(1), [this] {
            followSources();
            keepTime();
        });
    }
}

void PelloController::hide() {
    giveUpChoice();
    if (isPresented()) {
        panel_->dismiss();
    }
}

void PelloController::toggle() {
    if (isPresented()) {
        hide();
    } else {
        show();
    }
}

void PelloController::endPanelDrag(const PanelPlacement& placement) {
    isDragging_ = false;
    parts_.settings.panelPlacement.set(placement);
}

void PelloController::resetPanelPlacement() {
    parts_.settings.panelPlacement.set(PanelPlacement{});
}

// The sources

std::shared_ptr<const PreparedList> PelloController::ownCommands() const {
    const auto calling = [](const std::function<void()>& action) {
        return [&action] {
            if (action) {
                action();
            }
        };
    };
    return PreparedList::make(
        PelloCommands::items({.checkForUpdates = calling(onCheckForUpdates),
                              .showReleaseNotes = calling(onShowReleaseNotes)}));
}

void PelloController::configureSources() {
    parts_.aliases.configure(parts_.settings.urlAliases.get());
    const auto wanted = parts_.settings.searchDirectories(parts_.bundles.standardFolders());
    if (wanted != parts_.indexer.directories()) {
        parts_.indexer.configure(wanted);
        parts_.indexer.rescan();
    }
}

void PelloController::reindex(Pruning pruning) {
    prunesAfterScan_ = prunesAfterScan_ || pruning == Pruning::forgetMissing;
    parts_.indexer.rescan();
    parts_.scripts.rescan();
}

void PelloController::applicationsChanged() {
    parts_.aliases.rescan(); // others may open their addresses by now
    if (std::exchange(prunesAfterScan_, false)) {
        pruneUsage();
    }
    takeIn(Source::applications);
}

void PelloController::pruneUsage() {
    std::unordered_set<std::string> existing;
    for (const LaunchItem& item : parts_.indexer.items()->items()) {
        existing.insert(item.id);
    }
    // Only applications have been scanned in full: whatever else is missing may come back.
    parts_.usage.prune(existing, [](std::string_view id) { return !id.starts_with("app:"); });
}

} // namespace pello
