/// Resources of a package that was installed below a folder, whose name differs from loader to loader and, with some,
/// at every start: the library itself lies there, too, and knows where it was loaded from.
#include "platform/NSBundle.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"
#include "platform/ios/rootless/Surroundings.h"

#include <dlfcn.h>

namespace panotra {

using namespace ios;

namespace {

/// Anything of this library's own.
constinit const char ownByte = 0;

} // namespace

/// The nearest folder around the library that holds the path: how deep libraries lie is the loader's business.
NSBundle NSBundle::bundleWithPath(const char* path) noexcept
{
    Dl_info library {};
    if (path == nullptr || dladdr(&ownByte, &library) == 0 || library.dli_fname == nullptr)
        return nullptr;
    std::array<char, longestPath> candidate;
    for (std::size_t level = 0; pathInFolderAround(library.dli_fname, level, path, candidate); ++level) {
        const NSString text = NSString::stringWithUTF8String(candidate.data());
        if (auto bundle = ask<NSBundle>(classes::NSBundle, selectors::bundleWithPath, text.get()))
            return bundle;
    }
    return nullptr;
}

} // namespace panotra
