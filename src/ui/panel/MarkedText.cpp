#include "ui/panel/MarkedText.h"

#include "base/Text.h"

#include <algorithm>

namespace pello {

namespace {

bool breaksLine(QChar unit) {
    return unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
           unit == QChar::ParagraphSeparator;
}

QString onOneLine(std::string_view utf8) {
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    std::replace_if(text.begin(), text.end(), breaksLine, QLatin1Char(' '));
    return text;
}

} // namespace

MarkedText::MarkedText(std::string_view utf8, std::span<const int> marks) {
    const auto views = text::characterViews(utf8);
    characters_.reserve(views.size());
    for (const auto view : views) {
        characters_.push_back({.text = onOneLine(view)});
    }
    for (const int mark : marks) {
        if (mark >= 0 && static_cast<std::size_t>(mark) < characters_.size()) {
            characters_[static_cast<std::size_t>(mark)].isMarked = true;
        }
    }
}

QString MarkedText::text() const {
    QString whole;
    for (const auto& character : characters_) {
        whole += character.text;
    }
    return whole;
}

std::vector<MarkedText::Range> MarkedText::markedRanges() const {
    std::vector<Range> ranges;
    int position = 0;
    for (const auto& character : characters_) {
        const int length = static_cast<int>(character.text.size());
        if (character.isMarked) {
            if (ranges.empty() || ranges.back().start + ranges.back().length != position) {
                ranges.push_back({.start = position});
            }
            ranges.back().length += length;
        }
        position += length;
    }
    return ranges;
}

MarkedText MarkedText::elided(std::size_t kept) const {
    if (kept >= characters_.size()) {
        return *this;
    }
    const auto tail = static_cast<std::ptrdiff_t>(kept / 2);
    const auto head = static_cast<std::ptrdiff_t>(kept) - tail;
    MarkedText shorter("…");
    shorter.characters_.insert(shorter.characters_.begin(), characters_.begin(),
                               characters_.begin() + head);
    shorter.characters_.insert(shorter.characters_.end(), characters_.end() - tail,
                               characters_.end());
    return shorter;
}

QString lineOf(std::string_view utf8) {
    return onOneLine(utf8);
}

} // namespace pello
