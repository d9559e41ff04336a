#include "core/controller/PelloController.h"

#include "core/controller/Completion.h"
#include "core/controller/StableRows.h"

#include <utility>

namespace pello {

PelloController::PelloController(const ControllerParts& parts) : parts_(parts) {
    parts_.scripts.onNeedsArgument = [this](const ScriptCommand& command) {
        askForArgument(command);
    };
    refresh();
}

// What the panel shows

void PelloController::setQuery(std::string_view query) {
    if (query == query_) {
        return;
    }
    const Change change(changes_);
    if (!isRecallingHistory_) {
        history_.end();
    }
    query_ = query;
    startOver();
    changes_.announce();
    refresh();
}

/// What was asked about the rows of another text is no longer shown.
void PelloController::startOver() {
    supply_.endVariants();
    actions_.endRemark();
    reasons_.clear();
}

void PelloController::setSelection(int row) {
    const Change change(changes_);
    if (rows_.select(row)) {
        changes_.announce();
    }
}

std::optional<std::string> PelloController::inlineCompletion() const {
    if (supply_.isArgumentAsked() || selection() != 0 || results().empty()) {
        return std::nullopt;
    }
    return completion(query_, results().front().item->title);
}

void PelloController::acceptCompletion() {
    if (const auto rest = inlineCompletion()) {
        setQuery(query_ + *rest);
    }
}

void PelloController::report(std::string_view sentence) {
    const Change change(changes_);
    if (notice_ != sentence) {
        notice_ = sentence;
        changes_.announce();
    }
}

void PelloController::dismissNotice() {
    const Change change(changes_);
    if (std::exchange(notice_, std::nullopt)) {
        changes_.announce();
    }
}

// Searching

void PelloController::refresh() {
    const Change change(changes_);
    replaceResults(supply_.rows(query_));
    setSelection(selection());
}

/// What a source has at first is waited for: it takes its own place, unless the user has chosen a
/// row by then.
void PelloController::takeIn(SourceUpdates::News news) {
    using News = SourceUpdates::News;
    if (news == News::settings || (news == News::firstItems && selection() == 0)) {
        refresh();
    } else {
        followSources();
    }
    if (news == News::runningScripts) {
        keepTime();
    }
}

/// What the sources have now, below what the user looks at.
void PelloController::followSources() {
    if (!isPresented()) {
        refresh();
        return;
    }
    const Change change(changes_);
    replaceResults(stableRows(results(), selection(), supply_.rows(query_),
                              [this](const LaunchItem& item) { return search_.exists(item); }));
    setSelection(selection());
}

// Arguments

/// The user types the argument behind the keyword, or where that means something else, by itself.
void PelloController::askForArgument(const ScriptCommand& command) {
    const bool isUnderstood = command.keyword && search_.finds(command, *command.keyword);
    show(isUnderstood ? *command.keyword + ' ' : "");
    if (!isUnderstood) {
        const Change change(changes_);
        supply_.askForArgument(command);
        changes_.announce();
        refresh();
    }
}

void PelloController::leaveArgumentPrompt() {
    const Change change(changes_);
    if (supply_.endArgument()) {
        changes_.announce();
        setQuery("");
        refresh();
    }
}

void PelloController::replaceResults(std::vector<SearchResult> results) {
    if (rows_.replace(std::move(results))) {
        if (!reasons_.empty()) {
            reasons_ = search_.reasons(query_, rows_.all());
        }
        changes_.announce();
    }
}

// Running

void PelloController::runSelection() {
    if (const SearchResult* result = rows_.selected()) {
        run(LaunchItemRef(result->item)); // a copy: running replaces the results
    }
}

void PelloController::revealSelection() {
    const SearchResult* result = rows_.selected();
    const auto file = result != nullptr ? result->item->revealURL : std::nullopt;
    if (file) {
        hide();
        parts_.workspace.reveal(*file);
    }
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
    const SearchResult* result = rows_.selected();
    const auto copied = result != nullptr ? actions_.copy(*result->item) : std::nullopt;
    if (copied) {
        remark(*copied);
    }
    return copied.has_value();
}

void PelloController::forgetSelection() {
    if (const SearchResult* result = rows_.selected()) {
        const Change change(changes_);
        remark(actions_.forget(std::string(result->id()))); // a copy: forgetting makes new rows
    }
}

void PelloController::remark(RowRemark what) {
    const Change change(changes_);
    actions_.remark(rows_.selected()->item, what);
    changes_.announce();
}

void PelloController::toggleReasons() {
    const Change change(changes_);
    reasons_ = reasons_.empty() ? search_.reasons(query_, rows_.all()) : std::vector<std::string>();
    changes_.announce();
}

bool PelloController::offerVariants() {
    const SearchResult* result = rows_.selected();
    if (result == nullptr || !supply_.offerVariants(*result->item)) {
        return false;
    }
    const Change change(changes_);
    refresh();
    setSelection(0);
    return true;
}

bool PelloController::withdrawVariants() {
    const bool wereShown = supply_.endVariants();
    if (wereShown) {
        refresh();
    }
    return wereShown;
}

bool PelloController::runAgain() {
    const SearchResult* result = rows_.selected();
    if (result == nullptr || !actions_.isRunning(*result->item)) {
        return false;
    }
    const LaunchItemRef item = result->item;
    parts_.queryHistory.record(query_);
    hide();
    actions_.startAgain(item);
    return true;
}

void PelloController::run(const LaunchItemRef& item) {
    if (supply_.isChoiceAsked()) {
        endChoice(item.get());
        return;
    }
    if (!supply_.isArgumentAsked()) {
        parts_.queryHistory.record(query_);
    }
    hide();
    actions_.start(item, query_);
}

// Choosing for other programs

void PelloController::choose(ChoiceList::Question question) {
    supply_.choice().ask(std::move(question));
    present("");
}

void PelloController::giveUpChoice() {
    if (supply_.isChoiceAsked()) {
        endChoice(nullptr);
    }
}

/// The panel is gone before whoever asked goes on. As it goes, it may ask to be hidden once more.
void PelloController::endChoice(const LaunchItem* chosen) {
    const Change change(changes_);
    const auto answer = supply_.choice().end(chosen);
    if (isPresented()) {
        panel_->dismiss();
    }
    answer();
    setQuery("");
    refresh(); // lets go of the lines
}

// History

void PelloController::recallOlder() {
    if (!supply_.isArgumentAsked() && !supply_.isChoiceAsked()) {
        recall(history_.older(query_));
    }
}

void PelloController::recallNewer() {
    recall(history_.newer());
}

void PelloController::recall(const std::optional<std::string>& text) {
    if (text) {
        const Change change(changes_);
        isRecallingHistory_ = true;
        setQuery(*text);
        isRecallingHistory_ = false;
        changes_.announce();
    }
}

// The panel

void PelloController::show(std::string_view prefilling) {
    supply_.choice().cancel();
    present(prefilling);
}

void PelloController::present(std::string_view prefilling) {
    {
        const Change change(changes_);
        ++presentationToken_;
        supply_.endArgument();
        rows_.select(0);
        startOver();
        history_.end();
        if (query_ != prefilling) {
            setQuery(prefilling);
        } else {
            refresh(); // what was learned weighs less with every minute
        }
        changes_.announce();
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

} // namespace pello
