/// It replaces this process, so that whoever started it, a service manager for one, still watches the right one.
#include "simulator/commands/OtherProgram.h"

#include "simulator/Play.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <unistd.h>

namespace panotra::sim {

ExitStatus becomeProgram(const char* name, char** arguments)
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / name;
    ::execv(program.c_str(), arguments);
    complain(program.string() + ": " + std::strerror(errno));
    return ExitStatus::FileFailed;
}

} // namespace panotra::sim
