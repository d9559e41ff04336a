#include "app/DoctorCommand.h"

#include "app/Diagnosis.h"
#include "app/HeadlessPlatform.h"
#include "app/client/ControlClient.h"
#include "base/Text.h"
#include "core/settings/PelloSettings.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

namespace pello {
namespace {

std::optional<KeyboardReport> askForReport() {
    const auto line = askRunningLauncher(controlSocketPath(), kReportVerb);
    return line ? KeyboardReport::fromLine(*line) : std::nullopt;
}

std::string padded(std::string_view text, std::size_t columns) {
    const std::size_t used = text::characterCount(text);
    return std::string(text) + std::string(used < columns ? columns - used : 1, ' ');
}

std::string_view nameOf(Finding::Verdict verdict) {
    constexpr std::array<std::string_view, 3> kNames = {"ok", "none", "WRONG"};
    return kNames.at(static_cast<std::size_t>(verdict));
}

} // namespace

int run(const DoctorCommand& /*command*/) {
    HeadlessPlatform platform({});
    const PelloSettings settings(platform.defaults(), platform.loginItem());
    const Diagnosis diagnosis{.display = X11ServerFacts::read(),
                              .session = SessionFacts::read(Environment::ofThisProcess()),
                              .keyboard = askForReport(),
                              .usesNotifications = settings.includesScripts.get()};
    const auto findings = diagnosis.findings();
    for (const Finding& finding : findings) {
        std::cout << padded(nameOf(finding.verdict), 7) << padded(finding.subject, 15)
                  << finding.text << '\n';
    }
    const bool isWell = std::ranges::none_of(findings, [](const Finding& finding) {
        return finding.verdict == Finding::Verdict::wrong;
    });
    return isWell ? ExitStatus::kSuccess : ExitStatus::kNothing;
}

} // namespace pello
