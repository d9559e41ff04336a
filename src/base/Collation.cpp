#include "base/Collation.h"

#include <unicode/coll.h>
#include <unicode/locid.h>

namespace pello {

struct Collation::Rules {
    std::unique_ptr<icu::Collator> collator;
};

namespace {

icu::StringPiece piece(std::string_view utf8) {
    return {utf8.data(), static_cast<int32_t>(utf8.size())};
}

} // namespace

Collation::Collation(std::string_view locale) : rules_(std::make_unique<Rules>()) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale wanted = locale.empty() ? icu::Locale::getDefault()
                                        : icu::Locale::createCanonical(std::string(locale).c_str());
    if (std::string_view(wanted.getVariant()) == "POSIX") {
        wanted =
            icu::Locale::getUS(); // the rules of "C" put every capital before every small letter
    }
    rules_->collator.reset(icu::Collator::createInstance(wanted, status));
    if (U_FAILURE(status) != 0 || rules_->collator == nullptr) {
        status = U_ZERO_ERROR;
        rules_->collator.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
    }
    if (rules_->collator != nullptr) {
        // Secondary strength: letters and accents count, case does not.
        rules_->collator->setStrength(icu::Collator::SECONDARY);
    }
}

Collation::~Collation() = default;

int Collation::compare(std::string_view left, std::string_view right) const {
    if (rules_->collator == nullptr) { // no Unicode data installed: any fixed order will do
        return left.compare(right);
    }
    UErrorCode status = U_ZERO_ERROR;
    return rules_->collator->compareUTF8(piece(left), piece(right), status);
}

std::string Collation::sortKey(std::string_view utf8) const {
    if (rules_->collator == nullptr) {
        return std::string(utf8);
    }
    const auto wide = icu::UnicodeString::fromUTF8(piece(utf8));
    std::string key(2 * utf8.size() + 16, '\0');
    const auto fill = [&] {
        return rules_->collator->getSortKey(wide, reinterpret_cast<uint8_t*>(key.data()),
                                            static_cast<int32_t>(key.size()));
    };
    auto length = static_cast<std::size_t>(fill());
    if (length > key.size()) {
        key.resize(length);
        length = static_cast<std::size_t>(fill());
    }
    key.resize(length > 0 ? length - 1 : 0); // without the terminating zero
    return key;
}

const Collation& userCollation() {
    static const Collation collation;
    return collation;
}

} // namespace pello
