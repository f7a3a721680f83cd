/// Which file of a folder holds which preference domain.
#include "simulator/preferences/DomainNames.h"

#include "simulator/preferences/FileReplacement.h"
#include "simulator/text/Utf8.h"

#include <algorithm>

namespace panotra::preferences {

namespace {

constexpr std::string_view extension = ".plist";
constexpr std::size_t longestFileName = 255; // bytes
constexpr std::size_t longestDomain = longestFileName - extension.size() - longestDecoration;

} // namespace

std::optional<std::string> objectionToDomain(std::string_view domain)
{
    if (domain.empty())
        return "a domain has a name";
    if (domain == "." || domain == "..")
        return "that is a folder";
    if (domain.size() > longestDomain)
        return "the name is longer than " + std::to_string(longestDomain) + " bytes";
    if (domain.find('/') != domain.npos)
        return "a domain's name has no \"/\" in it";
    if (!isUtf8(domain))
        return "the name is not UTF-8";
    const auto isControl = [](unsigned char byte) {
        return byte < 0x20 || byte == 0x7F;
    };
    if (std::ranges::any_of(domain, isControl))
        return "the name has a control character in it";
    return std::nullopt;
}

std::filesystem::path fileOfDomain(const std::filesystem::path& folder, std::string_view domain)
{
    return folder / (std::string(domain) + std::string(extension));
}

std::optional<std::string> domainOfFile(const std::filesystem::path& file)
{
    const std::string name = file.filename().string();
    if (!name.ends_with(extension))
        return std::nullopt;
    std::string domain = name.substr(0, name.size() - extension.size());
    if (objectionToDomain(domain))
        return std::nullopt;
    return domain;
}

std::filesystem::path lockOfFile(const std::filesystem::path& file)
{
    std::string name = file.filename().string();
    if (name.ends_with(extension))
        name.resize(name.size() - extension.size());
    return file.parent_path() / ("." + name + ".lock");
}

} // namespace panotra::preferences
