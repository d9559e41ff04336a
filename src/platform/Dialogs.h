#pragma once

#include <functional>
#include <string>

namespace pello {

/// Asks the user. Returns at once; main thread only.
class Dialogs {
public:
    /// A question that warns of what is about to be done.
    struct Confirmation {
        std::string title;
        std::string message;
        /// What the button says that does it; the other says "Cancel".
        std::string confirmTitle;
    };
    enum class Answer { confirmed, cancelled };

    virtual ~Dialogs() = default;

    /// Shows the question in front of everything. `answered` is called once, in a later turn of the
    /// loop, unless this object goes before.
    virtual void confirm(const Confirmation& question,
                         std::function<void(Answer answer)> answered) = 0;
};

} // namespace pello
