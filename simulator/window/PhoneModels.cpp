/// Finds a phone by its name or its screen, and says what is around the screen.
#include "simulator/window/PhoneModels.h"

#include "simulator/scenario/TextFormat.h"

#include <algorithm>
#include <cctype>

namespace panotra::sim {

namespace {

std::string plain(std::string_view name)
{
    std::string letters;
    for (const char each : name) {
        if (std::isalnum(static_cast<unsigned char>(each)) != 0)
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(each)));
    }
    return letters;
}

} // namespace

const PhoneModel* modelOf(const ScreenSize& screen)
{
    const auto found = std::ranges::find_if(phoneModels, [&](const PhoneModel& model) {
        return model.screen.width == screen.width && model.screen.height == screen.height
            && model.screen.scale == screen.scale;
    });
    return found == phoneModels.end() ? nullptr : &*found;
}

const PhoneModel* findModel(std::string_view name)
{
    const auto found
        = std::ranges::find_if(phoneModels, [&](const PhoneModel& model) { return plain(model.name) == plain(name); });
    return found == phoneModels.end() ? nullptr : &*found;
}

std::string nameOfPhone(const ScreenSize& screen)
{
    const PhoneModel* const model = modelOf(screen);
    return model != nullptr ? model->name : shortNumber(screen.width) + " x " + shortNumber(screen.height);
}

PhoneBody bodyOf(const ScreenSize& screen)
{
    constexpr double longest = 2; ///< times as high as wide
    if (screen.height < longest * screen.width)
        return { 14, 46, 38, 0, true };
    return { 12, 12, 50, 38, false };
}

} // namespace panotra::sim
