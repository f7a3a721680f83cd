/// Loads the library's file, and reads its process-wide values where the file has them.
#include "tests/hosts/HostLibrary.h"

#include "model/ProcessValues.h"
#include "simulator/Globals.h"
#include "simulator/Play.h"
#include "tests/hosts/HostProcess.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/LibraryImage.h"
#include "tests/hosts/macho/MachImage.h"
#include "tests/hosts/macho/MachImports.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace panotra::hosts {

namespace {

std::string& libraryPath()
{
    static std::string path;
    return path;
}

std::string chosenPath()
{
    if (!libraryPath().empty())
        return libraryPath();
    const char* const named = std::getenv("PANOTRA_LIBRARY");
    return named != nullptr ? named : PANOTRA_NATIVE_LIBRARY;
}

std::unique_ptr<LibraryImage>& image()
{
    static std::unique_ptr<LibraryImage> loaded;
    return loaded;
}

/// The structure that the same header made of the library's sources; before the load, what a process starts with.
const ProcessValues& values()
{
    constexpr static ProcessValues fresh;
    if (image() == nullptr)
        return fresh;
    static const void* const found = image()->symbol("_ZN7panotra13processValuesE", sizeof(ProcessValues));
    if (found == nullptr)
        throw std::runtime_error(chosenPath() + ": its process-wide values are not to be found");
    return *static_cast<const ProcessValues*>(found);
}

/// The reference holds the object alone, and only the library's own code can count it.
template <typename Handle> void* heldBy(const ProcessReference<Handle>& reference)
{
    void* object = nullptr;
    static_assert(sizeof reference == sizeof object);
    std::memcpy(&object, &reference, sizeof object);
    return object;
}

void* import(std::string_view name)
{
    void* const ofFormat = machImport(name);
    return ofFormat != nullptr ? ofFormat : importedSymbol(name);
}

std::unique_ptr<LibraryImage> open(const std::string& path)
{
    return isMachFile(path) ? openMachImage(path, import) : openNativeImage(path);
}

void load()
{
    prepareProcess();
    try {
        image() = open(chosenPath());
        values();
    } catch (const std::runtime_error& error) {
        sim::complain(error.what());
        std::exit(static_cast<int>(sim::ExitStatus::FileFailed));
    }
}

sim::Json globals()
{
    const auto category = textOfString(heldBy(values().globalCategory));
    return sim::globalsReport(values(), category ? sim::Json(*category) : sim::Json(nullptr));
}

sim::LayoutMemory layoutMemory()
{
    return { values().justCreated, values().previousOrientation };
}

} // namespace

void chooseLibrary(const std::string& path)
{
    libraryPath() = path;
}

sim::Library chosenLibrary()
{
    startFoundation();
    return { load, globals, layoutMemory, chosenPath };
}

} // namespace panotra::hosts
