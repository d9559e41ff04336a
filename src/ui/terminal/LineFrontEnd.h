#pragma once

#include "core/controller/PelloController.h"

#include <functional>
#include <iosfwd>
#include <string_view>

namespace pello {

/// The launcher in a terminal, line by line: a text searches, a number runs that row, an empty line
/// runs the first. Works on any terminal and on a pipe.
class LineFrontEnd {
public:
    /// `turn` lets the main loop do what is due. Everything must outlive the front end.
    LineFrontEnd(PelloController& controller, std::function<void()> turn, std::istream& input,
                 std::ostream& output);

    /// Converses until the input ends.
    void run();

private:
    void answer(std::string_view line);
    void runRow(int row);
    void showRows();
    void showNotice();

    PelloController& controller_;
    std::function<void()> turn_;
    std::istream& input_;
    std::ostream& output_;
};

} // namespace pello
