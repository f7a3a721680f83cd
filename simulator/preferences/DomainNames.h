/// Which file of a folder holds which preference domain.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

/// Why no file can be named after the domain, or none. A domain is a plain name: one that would lead out of the
/// folder, or that no folder can hold, has no file.
std::optional<std::string> objectionToDomain(std::string_view domain);

/// `FOLDER/DOMAIN.plist`, for a domain without objection.
std::filesystem::path fileOfDomain(const std::filesystem::path& folder, std::string_view domain);

/// The domain that a file of that name would hold, or none.
std::optional<std::string> domainOfFile(const std::filesystem::path& file);

/// The lock that guards a property list: `.DOMAIN.lock` in the same folder.
std::filesystem::path lockOfFile(const std::filesystem::path& file);

} // namespace panotra::preferences
