/// The mixer's library as the simulated loader sees it.
#include "simulator/LinkedLibrary.h"

#include "hooks/Panotra.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"
#include "simulator/Globals.h"

#include <nlohmann/json.hpp>

namespace panotra::sim {
namespace {

/// A fresh image of the library: what another process held is gone with its memory.
void resetImage()
{
    processValues = {};
    previous = {};
}

void load()
{
    resetImage();
    constructor();
}

Json globals()
{
    const NSString category = processValues.globalCategory.get();
    return globalsReport(processValues, category ? Json(category.view()) : Json(nullptr));
}

LayoutMemory layoutMemory()
{
    return { processValues.justCreated, processValues.previousOrientation };
}

} // namespace

Library loadedLibrary()
{
    resetImage();
    return { load, globals, layoutMemory };
}

} // namespace panotra::sim
