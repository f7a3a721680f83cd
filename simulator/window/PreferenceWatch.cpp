/// Files are known by their names.
#include "simulator/window/PreferenceWatch.h"

#include "simulator/preferences/DomainNames.h"

#include <utility>

namespace panotra::sim {

std::unique_ptr<FolderWatch> PreferenceWatch::make(
    const std::string& folder, std::function<void()> changed, std::function<void()> gone, std::string& failure)
{
    const auto isDomain = [](std::string_view file) {
        return preferences::domainOfFile(file).has_value();
    };
    return FolderWatch::make(folder, { isDomain, std::move(changed), std::move(gone) }, failure);
}

} // namespace panotra::sim
