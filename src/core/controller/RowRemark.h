#pragma once

#include <string_view>

namespace pello {

/// What a row says about the last thing that was done with it.
enum class RowRemark {
    copied,        ///< its answer is on the pasteboard
    forgotten,     ///< what was learned about it is forgotten
    nothingLearned ///< there was nothing to forget
};

/// In words, with a mark for what was done.
[[nodiscard]] constexpr std::string_view remarkText(RowRemark remark) {
    switch (remark) {
    case RowRemark::copied:
        return "✓ Copied";
    case RowRemark::forgotten:
        return "✓ Forgotten";
    case RowRemark::nothingLearned:
        return "Nothing learned yet";
    }
    return "";
}

} // namespace pello
