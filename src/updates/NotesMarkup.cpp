#include "updates/NotesMarkup.h"

#include "base/Text.h"
#include "updates/NotesTags.h"

#include <algorithm>
#include <optional>
#include <vector>

// Nothing of the input is copied but its text, escaped: what comes out is safe because of how it is
// written, whatever came in. So reading need not understand markup as a browser does. Where the two
// differ, some text is lost or shows that was not meant to.

namespace pello {
namespace {

constexpr std::size_t kLongest = std::size_t{64} << 10;
/// Elements within elements; more are left out, their text stays.
constexpr std::size_t kDeepest = 12;
constexpr std::size_t kLongestEntity = 12;

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isNamePart(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '-';
}

bool isSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

char lowercasedAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

std::string lowercasedAscii(std::string_view text) {
    std::string lowered(text);
    for (char& character : lowered) {
        character = lowercasedAscii(character);
    }
    return lowered;
}

/// Whether an entity such as "&amp;" or "&#38;" begins at `text`.
bool beginsWithEntity(std::string_view text) {
    const std::size_t end = text.substr(0, kLongestEntity).find(';');
    if (end == std::string_view::npos || end < 2) {
        return false;
    }
    std::string_view name = text.substr(1, end - 1);
    name.remove_prefix(name.front() == '#' ? 1 : 0);
    return !name.empty() && std::ranges::all_of(name, isNamePart);
}

/// Takes from the front of what is left of the notes.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }
    [[nodiscard]] std::string_view rest() const { return rest_; }
    [[nodiscard]] char next() const { return rest_.empty() ? '\0' : rest_.front(); }

    void skip(std::size_t count) { rest_.remove_prefix(std::min(count, rest_.size())); }

    /// Takes as long as `belongs` says so.
    template <class Belongs>
    std::string_view take(Belongs belongs) {
        const auto end = std::ranges::find_if_not(rest_, belongs);
        const auto taken = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        skip(taken.size());
        return taken;
    }

    /// Skips `mark` and all before it, or everything when there is none.
    void skipPast(std::string_view mark) {
        const std::size_t at = rest_.find(mark);
        skip(at == std::string_view::npos ? rest_.size() : at + mark.size());
    }

private:
    std::string_view rest_;
};

/// A tag as it was written: "<name href=...>" or "</name>".
struct WrittenTag {
    std::string name;
    bool isEnd = false;
    std::string_view href;
};

std::string_view attributeValue(Reader& reader) {
    const char quote = reader.next();
    if (quote != '"' && quote != '\'') {
        return reader.take([](char next) { return !isSpace(next) && next != '>'; });
    }
    reader.skip(1);
    const auto value = reader.take([quote](char next) { return next != quote; });
    reader.skip(1);
    return value;
}

/// Reads the tag that begins here. The last of several links counts.
WrittenTag readTag(Reader& reader) {
    reader.skip(1);
    WrittenTag tag;
    tag.isEnd = reader.next() == '/';
    reader.skip(tag.isEnd ? 1 : 0);
    tag.name = lowercasedAscii(reader.take(isNamePart));
    while (!reader.isAtEnd() && reader.next() != '>') {
        const auto name = reader.take(
            [](char next) { return !isSpace(next) && next != '=' && next != '>' && next != '/'; });
        reader.take(isSpace);
        if (reader.next() == '=') {
            reader.skip(1);
            reader.take(isSpace);
            const auto value = attributeValue(reader);
            tag.href = lowercasedAscii(name) == "href" ? value : tag.href;
        } else if (name.empty()) {
            reader.skip(reader.next() == '/' ? 1 : 0);
        }
    }
    reader.skip(1);
    return tag;
}

/// Writes tags so that each ends before the one around it does.
class Writer {
public:
    void text(std::string_view text) {
        for (; !text.empty(); text.remove_prefix(1)) {
            written_ += escaped(text);
        }
    }

    void open(std::string_view name, std::string_view href) {
        if (isBlock(name)) {
            closeAll("p"); // paragraphs do not hold blocks
        }
        if (name == "li" && !open_.empty() && open_.back() == "li") {
            closeLast();
        }
        if (open_.size() >= kDeepest) {
            return;
        }
        written_.append("<").append(name);
        if (name == "a") {
            written_ += " href=\"";
            text(href);
            written_ += '"';
        }
        written_ += '>';
        open_.push_back(name);
    }

    void single(std::string_view name) { written_.append("<").append(name).append(">"); }

    /// Closes the innermost `name` and all in it, if there is one.
    void close(std::string_view name) {
        if (std::ranges::find(open_, name) == open_.end()) {
            return;
        }
        while (open_.back() != name) {
            closeLast();
        }
        closeLast();
    }

    [[nodiscard]] std::string finish() {
        while (!open_.empty()) {
            closeLast();
        }
        return std::move(written_);
    }

private:
    static bool isBlock(std::string_view name) {
        return name == "p" || name == "ul" || name == "ol" || name == "pre" || name == "h4" ||
               name == "blockquote";
    }

    static std::string_view escaped(std::string_view text) {
        switch (text.front()) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '&':
            return beginsWithEntity(text) ? text.substr(0, 1) : "&amp;";
        default: {
            const bool isControl = static_cast<unsigned char>(text.front()) < ' ';
            return isControl && !isSpace(text.front()) ? "" : text.substr(0, 1);
        }
        }
    }

    void closeAll(std::string_view name) {
        if (!open_.empty() && open_.back() == name) {
            closeLast();
        }
    }

    void closeLast() {
        written_.append("</").append(open_.back()).append(">");
        open_.pop_back();
    }

    std::string written_;
    std::vector<std::string_view> open_;
};

/// Skips to behind the end of the element `name`, whose first tag has been read.
void skipElement(Reader& reader, const std::string& name) {
    const auto found = std::ranges::search(
        reader.rest(), "</" + name, {}, [](char character) { return lowercasedAscii(character); });
    reader.skip(static_cast<std::size_t>(found.begin() - reader.rest().begin()));
    reader.skipPast(">");
}

/// Whether what begins here is a tag, and not a mark for "less than".
bool beginsWithTag(std::string_view text) {
    return text.size() > 1 &&
           (isLetter(text[1]) || (text[1] == '/' && text.size() > 2 && isLetter(text[2])));
}

void takeTag(Reader& reader, Writer& writer) {
    const WrittenTag written = readTag(reader);
    const NotesTag tag = notesTag(written.name);
    switch (tag.fate) {
    case NotesTag::Fate::unwrapped:
        break;
    case NotesTag::Fate::dropped:
        if (!written.isEnd) {
            skipElement(reader, written.name);
        }
        break;
    case NotesTag::Fate::single:
        writer.single(tag.name);
        break;
    case NotesTag::Fate::kept:
        if (written.isEnd) {
            writer.close(tag.name);
        } else if (tag.name != "a" || isWebAddress(written.href)) {
            writer.open(tag.name, written.href);
        }
        break;
    }
}

/// What has no tags at all was written line by line.
std::string linesKept(const std::string& text) {
    std::string lines;
    for (const char character : text) {
        lines += character == '\n' ? "<br>" : std::string(1, character);
    }
    return lines;
}

} // namespace

bool isWebAddress(std::string_view address) {
    const std::string start = lowercasedAscii(address.substr(0, 8));
    return start.starts_with("http://") || start.starts_with("https://");
}

std::string sanitizedNotes(std::string_view html) {
    const std::string cut = text::wellFormed(html.substr(0, kLongest));
    Reader reader(text::trimmingWhitespaceAndControls(cut));
    Writer writer;
    bool hasTags = false;
    while (!reader.isAtEnd()) {
        writer.text(reader.take([](char next) { return next != '<'; }));
        if (reader.rest().starts_with("<!--")) {
            reader.skip(4);
            reader.skipPast("-->");
        } else if (beginsWithTag(reader.rest())) {
            takeTag(reader, writer);
            hasTags = true;
        } else if (reader.rest().starts_with("<!") || reader.rest().starts_with("<?")) {
            reader.skipPast(">");
        } else if (!reader.isAtEnd()) {
            writer.text("<");
            reader.skip(1);
        }
    }
    writer.text(html.size() > kLongest ? "…" : "");
    const std::string notes = writer.finish();
    return hasTags ? notes : linesKept(notes);
}

} // namespace pello
