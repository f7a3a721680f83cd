/// A folder for one test, gone with it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace panotra::preferences::testing {

inline void writeBytes(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

inline std::string readBytes(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

/// A property list in XML with these keys and values in its dictionary.
inline std::string xmlWith(const std::string& entries)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>" + entries
        + "</dict>\n</plist>\n";
}

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = ::testing::TempDir() + "panotra-preferences-XXXXXX";
        m_path = ::mkdtemp(pattern.data());
        ::chmod(m_path.c_str(), 0755);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, error);
        std::filesystem::remove_all(m_path, error);
    }

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    /// The names of what is in the folder.
    std::set<std::string> names() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            names.insert(entry.path().filename().string());
        return names;
    }

private:
    std::filesystem::path m_path;
};

/// While it lives, permissions count: the superuser acts as an ordinary user.
class AsOrdinaryUser {
public:
    AsOrdinaryUser()
    {
        constexpr uid_t nobody = 65534;
        if (m_user == 0 && ::seteuid(nobody) != 0)
            ADD_FAILURE() << "cannot act as another user";
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
    ~AsOrdinaryUser()
    {
        if (::seteuid(m_user) != 0)
            std::abort();
    }

private:
    uid_t m_user = ::geteuid();
};

} // namespace panotra::preferences::testing
