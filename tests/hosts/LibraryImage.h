/// A file of the mixer's library, loaded into this process as the platform's loader loads it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace panotra::hosts {

class LibraryImage {
public:
    virtual ~LibraryImage() = default;
    /// The address of what the library calls `name`, by its mangled C++ name and without what a file format puts
    /// before it, exported or not. Null for a name that the library does not have, or of which fewer than `size` bytes
    /// are there.
    virtual void* symbol(const std::string& name, std::size_t size) const = 0;
};

/// Loads a shared object of this machine; its imports are bound and its constructor has run when the call returns. The
/// image stays in the process. Throws std::runtime_error, "PATH: reason".
std::unique_ptr<LibraryImage> openNativeImage(const std::string& path);

} // namespace panotra::hosts
