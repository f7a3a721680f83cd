/// A status tells of all that had happened before it was asked for.
#include "simulator/desktop/DesktopAnswers.h"

#include "simulator/desktop/DesktopStatus.h"

#include <optional>
#include <string>
#include <utility>

namespace panotra::sim {

DesktopRequests::Take answersOf(DesktopMixer& mixer, std::function<bool()> present)
{
    return [&mixer, present = std::move(present)](const std::string& request) -> DesktopRequests::Answer {
        if (request == request::present) {
            return [present] {
                return std::optional<std::string>(present() ? isShown : nothingToShow);
            };
        }
        if (request != request::status)
            return {};
        return [&mixer, asked = mixer.askAnew()]() -> std::optional<std::string> {
            return mixer.isDone(asked) ? std::optional(statusOf(mixer)) : std::nullopt;
        };
    };
}

} // namespace panotra::sim
