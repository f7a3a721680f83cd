/// Binary property lists made by hand, object by object, for what no program would write.
#include "tests/unit/preferences/BinaryFile.h"

namespace panotra::preferences::testing {

std::string bigEndian(std::uint64_t value, int bytes)
{
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
    return text;
}

std::string binaryFile(const std::vector<std::string>& objects)
{
    std::string file = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(file.size(), 4);
        file += object;
    }
    const std::string unused(6, '\0');
    return file + table + unused + "\4\4" + bigEndian(objects.size(), 8) + bigEndian(0, 8) + bigEndian(file.size(), 8);
}

std::string binaryFileWith(const std::string& object, const std::vector<std::string>& more)
{
    std::vector<std::string> objects { "\xD1" + reference(1) + reference(2), "\x51k", object };
    objects.insert(objects.end(), more.begin(), more.end());
    return binaryFile(objects);
}

} // namespace panotra::preferences::testing
