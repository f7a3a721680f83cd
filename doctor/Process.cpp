/// The process, and the machine that it runs on.
#include "doctor/Examination.h"

#include "doctor/HostMessages.h"
#include "doctor/Report.h"

#include <array>
#include <charconv>
#include <mach-o/dyld.h>
#include <string>
#include <sys/sysctl.h>

namespace panotra::doctor {

namespace {

#if defined(__aarch64__)
constexpr const char* architecture = "arm64";
#elif defined(__arm__)
constexpr const char* architecture = "armv7";
#elif defined(__x86_64__)
constexpr const char* architecture = "x86_64";
#endif

/// A text of the kernel's; empty where it has none of that name.
std::string textOfKernel(const char* name)
{
    std::array<char, 64> text {};
    std::size_t size = text.size() - 1;
    return sysctlbyname(name, text.data(), &size, nullptr, 0) == 0 ? text.data() : "";
}

bool isHookingFramework(std::string_view path)
{
    // Without the first letters, which are written large or small.
    const std::string_view file = path.substr(path.rfind('/') + 1);
    for (const std::string_view part : { "ubstrate", "ubstitute", "llekit", "libhooker" }) {
        if (file.find(part) != file.npos)
            return true;
    }
    return false;
}

/// Of all that is loaded into the process only what the mixer depends on is anybody's business.
void writeLibraries()
{
    bool isMixerLoaded = false;
    const std::uint32_t count = _dyld_image_count();
    for (std::uint32_t index = 0; index < count; ++index) {
        const char* const name = _dyld_get_image_name(index);
        const std::string_view path = name != nullptr ? name : "";
        if (isHookingFramework(path))
            writeLine({ "hooking framework: ", path });
        if (path.ends_with("/Panotra.dylib")) {
            writeLine({ "mixer: ", path });
            isMixerLoaded = true;
        }
    }
    if (!isMixerLoaded)
        writeLine({ "mixer: not loaded" });
}

} // namespace

int examineProcess()
{
    const NSString version = systemVersion();
    writeLine({ "system: ", version ? version.view() : "unknown", " (", textOfKernel("kern.osversion"), ")" });
    writeLine({ "device: ", textOfKernel("hw.machine") });
    writeLine({ "architecture: ", architecture });
    writeLibraries();
    int number = 0;
    std::from_chars(version.view().data(), version.view().data() + version.view().size(), number);
    return number;
}

} // namespace panotra::doctor
