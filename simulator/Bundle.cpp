/// Where the mixer's resource bundle is.
#include "simulator/Bundle.h"

#include <filesystem>

namespace panotra::sim {

std::string bundleBesideProgram()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : (program.parent_path() / "Panotra.bundle").string();
}

} // namespace panotra::sim
