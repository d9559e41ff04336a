#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Words with one space between them, of which any stretch is at hand as one text. A plain value.
class JoinedWords {
public:
    template <class Words>
    explicit JoinedWords(const Words& words) {
        begins_.reserve(words.size() + 1);
        for (const auto& word : words) {
            begins_.push_back(text_.size());
            text_.append(word).append(" ");
        }
        begins_.push_back(text_.size());
    }

    /// The words from number `first` up to, not including, number `last`; alive as long as this.
    [[nodiscard]] std::string_view between(std::size_t first, std::size_t last) const {
        if (first >= last) {
            return {};
        }
        return std::string_view(text_).substr(begins_[first], begins_[last] - 1 - begins_[first]);
    }

private:
    std::string text_;
    std::vector<std::size_t> begins_;
};

} // namespace pello
