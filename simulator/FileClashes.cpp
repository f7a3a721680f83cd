/// Files compared by what they are, and by where they would be made if they are not there yet.
#include "simulator/FileClashes.h"

#include "simulator/preferences/DomainNames.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <system_error>

namespace panotra::sim {

namespace {

namespace fs = std::filesystem;

/// Where opening the path to write leads: through links, also through those that lead to nothing yet.
fs::path destinationOf(const fs::path& path)
{
    constexpr int mostLinks = 40; // as the system has it
    std::error_code error;
    fs::path place = fs::absolute(path, error);
    for (int links = 0; links < mostLinks && fs::is_symlink(fs::symlink_status(place, error)); ++links)
        place = place.parent_path() / fs::read_symlink(place, error);
    const fs::path folder = fs::weakly_canonical(place.parent_path(), error);
    return error ? place.lexically_normal() : folder / place.filename();
}

bool isSame(const fs::path& a, const fs::path& b)
{
    std::error_code error;
    return fs::equivalent(a, b, error) || destinationOf(a) == destinationOf(b);
}

/// Whether the file holds a domain of the folder, or guards one.
bool isOwnOf(const fs::path& folder, const fs::path& file)
{
    const auto isOwnName = [](const fs::path& name) {
        return preferences::domainOfFile(name) || name.string().starts_with('.');
    };
    const fs::path destination = destinationOf(file);
    if (isSame(destination.parent_path(), folder) && isOwnName(destination.filename()))
        return true;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (isOwnName(entry->path().filename()) && fs::equivalent(entry->path(), file, ignored))
            return true;
    }
    return false;
}

bool harms(const NamedFile& written, const NamedFile& other)
{
    std::error_code error;
    switch (other.use) {
    case NamedFile::Use::Read:
        return isSame(written.path, other.path) && fs::is_regular_file(other.path, error);
    case NamedFile::Use::Written:
        return isSame(written.path, other.path) && !isSame(written.path, "/dev/null");
    case NamedFile::Use::Preferences:
        return isOwnOf(other.path, written.path);
    }
    return false;
}

} // namespace

const NamedFile* clashWith(const NamedFile& file, std::span<const NamedFile> others)
{
    const auto found = std::ranges::find_if(others, [&file](const NamedFile& other) { return harms(file, other); });
    return found == others.end() ? nullptr : &*found;
}

std::optional<std::string> clashAmong(std::span<const NamedFile> files)
{
    for (const NamedFile& file : files) {
        const auto name = printable(file.path.string());
        for (const NamedFile& other : files) {
            if (&file == &other)
                continue;
            // Preferences are written as well: what lies among them is read in vain.
            if (other.use == NamedFile::Use::Preferences && isOwnOf(other.path, file.path))
                return name + ": " + file.words + " cannot be a file of the preferences in "
                    + printable(other.path.string());
            if (file.use == NamedFile::Use::Written && harms(file, other))
                return name + ": " + file.words + " would overwrite " + other.words;
        }
    }
    return std::nullopt;
}

bool staysBelow(const fs::path& folder, const fs::path& relative)
{
    std::error_code error;
    const fs::path root = fs::weakly_canonical(fs::absolute(folder, error), error);
    fs::path place = root;
    for (const fs::path& part : relative) {
        place /= part;
        if (!fs::is_symlink(fs::symlink_status(place, error)))
            continue;
        // A link that leads to nothing would be followed when the file is made.
        place = fs::canonical(place, error);
        if (error)
            return false;
    }
    return std::mismatch(root.begin(), root.end(), place.begin(), place.end()).first == root.end();
}

} // namespace panotra::sim
