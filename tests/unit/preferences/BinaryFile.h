/// Binary property lists made by hand, object by object, for what no program would write.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace panotra::preferences::testing {

/// `value` as `bytes` bytes, the highest first.
std::string bigEndian(std::uint64_t value, int bytes);

/// A reference to an object by its number, as every file made here writes it.
inline std::string reference(std::uint64_t object)
{
    return bigEndian(object, 4);
}

/// A file of these objects; the first is the root.
std::string binaryFile(const std::vector<std::string>& objects);

/// A file whose root is a dictionary with that object under the key "k"; `more` may be referred to from number 3 on.
std::string binaryFileWith(const std::string& object, const std::vector<std::string>& more = {});

} // namespace panotra::preferences::testing
