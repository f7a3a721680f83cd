/// Which file holds which domain, and which domains have none; the default folder.
#include "simulator/preferences/DomainNames.h"
#include "simulator/preferences/DefaultFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace panotra::preferences {
namespace {

TEST(DomainNames, ADomainIsAFileOfItsName)
{
    EXPECT_EQ(fileOfDomain("/folder", "net.qorvath.panotra"), "/folder/net.qorvath.panotra.plist");
    EXPECT_EQ(domainOfFile("/folder/net.qorvath.panotra.plist"), "net.qorvath.panotra");
    EXPECT_EQ(lockOfFile("/folder/net.qorvath.panotra.plist"), "/folder/.net.qorvath.panotra.lock");
}

TEST(DomainNames, ANameMayHoldBlanksDotsAndOtherAlphabets)
{
    for (const char* name : { "a", "two words", ".GlobalPreferences", "...", "caf\xC3\xA9", "a\"b", "-rf", "~" })
        EXPECT_FALSE(objectionToDomain(name)) << name;
}

TEST(DomainNames, ANameThatWouldLeaveTheFolderHasNoFile)
{
    for (const char* name : { "", ".", "..", "/", "/etc/passwd", "../x", "a/b", "a/" })
        EXPECT_TRUE(objectionToDomain(name)) << name;
}

TEST(DomainNames, ANameThatNoFolderCanHoldHasNoFile)
{
    EXPECT_TRUE(objectionToDomain(std::string_view("a\0b", 3)));
    EXPECT_TRUE(objectionToDomain("line\nbreak"));
    EXPECT_TRUE(objectionToDomain("\xFF"));
    EXPECT_FALSE(objectionToDomain(std::string(232, 'x')));
    EXPECT_TRUE(objectionToDomain(std::string(233, 'x')));
}

TEST(DomainNames, OtherFilesOfTheFolderAreNoDomains)
{
    for (const char* name : { ".x.lock", ".x.plist.new", "x.plist.unreadable-1", "x.txt", "x", ".plist" })
        EXPECT_FALSE(domainOfFile(name)) << name;
}

class DefaultFolder : public ::testing::Test {
protected:
    DefaultFolder() { ::setenv("HOME", "/home/someone", 1); }
    ~DefaultFolder() override
    {
        restore("XDG_DATA_HOME", m_dataHome);
        restore("HOME", m_home);
    }

private:
    static std::optional<std::string> valueOf(const char* variable)
    {
        const char* value = std::getenv(variable);
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }

    static void restore(const char* variable, const std::optional<std::string>& value)
    {
        if (value)
            ::setenv(variable, value->c_str(), 1);
        else
            ::unsetenv(variable);
    }

    std::optional<std::string> m_dataHome = valueOf("XDG_DATA_HOME");
    std::optional<std::string> m_home = valueOf("HOME");
};

TEST_F(DefaultFolder, IsInTheUsersDataFolder)
{
    ::setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(defaultFolder(), "/data/panotra/preferences");
}

TEST_F(DefaultFolder, IsBelowHomeWhenNoAbsoluteDataFolderIsSet)
{
    for (const char* value : { "", "relative/folder" }) {
        ::setenv("XDG_DATA_HOME", value, 1);
        EXPECT_EQ(defaultFolder(), "/home/someone/.local/share/panotra/preferences");
    }
    ::unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(defaultFolder(), "/home/someone/.local/share/panotra/preferences");
}

TEST_F(DefaultFolder, IsNowhereForAUserWithoutHome)
{
    ::unsetenv("XDG_DATA_HOME");
    ::unsetenv("HOME");
    EXPECT_FALSE(defaultFolder());
}

} // namespace
} // namespace panotra::preferences
