/// The command with which another process looks at the settings and changes them.
#include "simulator/commands/Prefs.h"

#include "tests/unit/preferences/TemporaryFolder.h"

#include <sstream>

namespace panotra::preferences {
namespace {

using sim::ExitStatus;
using testing::writeBytes;
using testing::xmlWith;

class PrefsCommandTest : public ::testing::Test {
protected:
    ExitStatus run(PrefsAction action, std::vector<std::string> words = {})
    {
        PrefsRequest request;
        request.action = action;
        request.folder = folder.path();
        request.domain = domain;
        std::optional<std::string>* const places[] = { &request.key, &request.type, &request.value };
        for (std::size_t i = 0; i < words.size(); ++i)
            *places[i] = words[i];
        return run(request);
    }

    ExitStatus run(const PrefsRequest& request)
    {
        std::ostringstream outputStream, errorStream;
        const ExitStatus status = runPrefsCommand(request, outputStream, errorStream);
        output = outputStream.str();
        errors = errorStream.str();
        EXPECT_LE(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
        return status;
    }

    testing::TemporaryFolder folder;
    std::string domain = "net.qorvath.panotra";
    std::filesystem::path path = folder / (domain + ".plist");
    std::string output;
    std::string errors;
};

TEST_F(PrefsCommandTest, GetsWhatItSet)
{
    domain = "net.example.domain";
    const std::vector<std::string> cases[]
        = { { "activeStyle", "int", "1" }, { "scale", "float", "0.875" }, { "replaceHUD", "bool", "yes" },
              { "handleShake", "bool", "no" }, { "name", "string", "two words" }, { "whole", "float", "1.0" } };
    for (const auto& words : cases) {
        EXPECT_EQ(run(PrefsAction::Set, words), ExitStatus::AllWell);
        EXPECT_EQ(output + errors, "");
        EXPECT_EQ(run(PrefsAction::Get, { words[0] }), ExitStatus::AllWell);
        EXPECT_EQ(output, words[2] + "\n");
    }
}

TEST_F(PrefsCommandTest, SetsWhateverItGets)
{
    const std::vector<std::string> cases[] = { { "k", "float", "inf" }, { "k", "float", "-inf" },
        { "k", "float", "nan" }, { "k", "int", "18446744073709551615" }, { "k", "string", "\x1B[31m\n" } };
    for (const auto& words : cases) {
        EXPECT_EQ(run(PrefsAction::Set, words), ExitStatus::AllWell);
        EXPECT_EQ(run(PrefsAction::Get, { "k" }), ExitStatus::AllWell);
        EXPECT_EQ(output, words[2] + "\n");
    }
}

TEST_F(PrefsCommandTest, GivesATerminalNoControlCharacters)
{
    run(PrefsAction::Set, { "k", "string", "\x1B[31m\n" });
    PrefsRequest request { PrefsAction::Get, folder.path(), domain, "k", std::nullopt, std::nullopt, true };
    EXPECT_EQ(run(request), ExitStatus::AllWell);
    EXPECT_EQ(output, "\"\\u001b[31m\\n\"\n");
    run(PrefsAction::Set, { "k", "string", "two words" });
    EXPECT_EQ(run(request), ExitStatus::AllWell);
    EXPECT_EQ(output, "two words\n");
    run(PrefsAction::Set, { "\xC2\x9B", "string", "\x7F" });
    EXPECT_EQ(run(PrefsAction::List), ExitStatus::AllWell);
    EXPECT_EQ(output, "k string \"two words\"\n\"\\u009b\" string \"\\u007f\"\n");
}

TEST_F(PrefsCommandTest, ListsEveryKeyWithItsType)
{
    writeBytes(path,
        xmlWith("<key>scale</key><real>0.5</real><key>replaceHUD</key><true/><key>name</key><string>a \"b\"</string>"
                "<key>activeStyle</key><integer>1</integer><key>when</key><date>2020-01-02T03:04:05Z</date>"));
    EXPECT_EQ(run(PrefsAction::List), ExitStatus::AllWell);
    EXPECT_EQ(
        output, "scale float 0.5\nreplaceHUD bool yes\nname string \"a \\\"b\\\"\"\nactiveStyle int 1\nwhen other\n");
}

TEST_F(PrefsCommandTest, ListsEveryKeyOnOneLine)
{
    writeBytes(path, xmlWith("<key>two words</key><true/><key></key><true/><key>line\nbreak</key><true/>"));
    EXPECT_EQ(run(PrefsAction::List), ExitStatus::AllWell);
    EXPECT_EQ(output, "\"two words\" bool yes\n\"\" bool yes\n\"line\\nbreak\" bool yes\n");
}

TEST_F(PrefsCommandTest, ListsNothingOfADomainThatHasNoFile)
{
    EXPECT_EQ(run(PrefsAction::List), ExitStatus::AllWell);
    EXPECT_EQ(output + errors, "");
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(PrefsCommandTest, UnsetsAKey)
{
    run(PrefsAction::Set, { "scale", "float", "0.5" });
    EXPECT_EQ(run(PrefsAction::Unset, { "scale" }), ExitStatus::AllWell);
    EXPECT_EQ(run(PrefsAction::Get, { "scale" }), ExitStatus::NotFulfilled);
    EXPECT_EQ(errors, "panotra: no key \"scale\" in net.qorvath.panotra\n");
    EXPECT_EQ(run(PrefsAction::Unset, { "scale" }), ExitStatus::NotFulfilled);
}

TEST_F(PrefsCommandTest, CannotGetAValueThatIsNoSetting)
{
    writeBytes(path, xmlWith("<key>when</key><date>2020-01-02T03:04:05Z</date>"));
    EXPECT_EQ(run(PrefsAction::Get, { "when" }), ExitStatus::NotFulfilled);
    EXPECT_EQ(errors, "panotra: \"when\" is no number, boolean or string\n");
}

TEST_F(PrefsCommandTest, SaysWhatItExpectedOfAValue)
{
    EXPECT_EQ(run(PrefsAction::Set, { "scale", "float", "big" }), ExitStatus::WrongInput);
    EXPECT_EQ(errors, "panotra: \"float\" \"big\": expected a number, inf, -inf or nan\n");
    EXPECT_EQ(run(PrefsAction::Set, { "scale", "double", "1" }), ExitStatus::WrongInput);
    EXPECT_EQ(errors, "panotra: \"double\" \"1\": expected one of the types int, float, bool and string\n");
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(PrefsCommandTest, RefusesTooManyWordsAndTooFew)
{
    EXPECT_EQ(run(PrefsAction::List, { "key" }), ExitStatus::WrongInput);
    EXPECT_EQ(run(PrefsAction::Get), ExitStatus::WrongInput);
    EXPECT_EQ(run(PrefsAction::Get, { "key", "int" }), ExitStatus::WrongInput);
    EXPECT_EQ(run(PrefsAction::Set, { "key" }), ExitStatus::WrongInput);
    EXPECT_EQ(run(PrefsAction::Set, { "key", "int" }), ExitStatus::WrongInput);
    EXPECT_EQ(errors, "panotra: expected a type and a value after the key\n");
    EXPECT_EQ(run(PrefsAction::Unset, { "key", "int", "1" }), ExitStatus::WrongInput);
}

TEST_F(PrefsCommandTest, RefusesNamesThatCannotBe)
{
    EXPECT_EQ(run(PrefsAction::Get, { "\xFF" }), ExitStatus::WrongInput);
    domain = "../elsewhere";
    EXPECT_EQ(run(PrefsAction::Set, { "key", "int", "1" }), ExitStatus::WrongInput);
    EXPECT_EQ(errors, "panotra: domain \"../elsewhere\": a domain's name has no \"/\" in it\n");
}

TEST_F(PrefsCommandTest, ReportsAFileThatCannotBeReadAndLeavesIt)
{
    writeBytes(path, "garbage");
    for (const PrefsAction action : { PrefsAction::List, PrefsAction::Get, PrefsAction::Unset }) {
        const std::vector<std::string> words(action == PrefsAction::List ? 0 : 1, "key");
        EXPECT_EQ(run(action, words), ExitStatus::FileFailed);
        EXPECT_EQ(errors, "panotra: " + path.string() + ": is no property list (line 1: syntax error)\n");
    }
    EXPECT_EQ(testing::readBytes(path), "garbage");
}

TEST_F(PrefsCommandTest, SetsADamagedFileAsideBeforeItSets)
{
    writeBytes(path, "garbage");
    EXPECT_EQ(run(PrefsAction::Set, { "activeStyle", "int", "1" }), ExitStatus::FileFailed)
        << "the settings that were in the file are out of use";
    EXPECT_EQ(run(PrefsAction::Get, { "activeStyle" }), ExitStatus::AllWell);
    EXPECT_EQ(output, "1\n");
    writeBytes(path, "garbage");
    EXPECT_EQ(run(PrefsAction::Set, { "activeStyle", "int", "1" }), ExitStatus::FileFailed);
    EXPECT_NE(errors.find("set aside as"), std::string::npos);
    EXPECT_EQ(testing::readBytes(path.string() + ".unreadable-1"), "garbage");
}

TEST_F(PrefsCommandTest, ReportsAFileThatCannotBeWritten)
{
    std::filesystem::create_directory(path);
    EXPECT_EQ(run(PrefsAction::Set, { "key", "int", "1" }), ExitStatus::FileFailed);
    EXPECT_NE(errors.find("Is a directory"), std::string::npos);
}

TEST_F(PrefsCommandTest, UsesTheDefaultFolderWhenNoneIsGiven)
{
    const char* const previous = std::getenv("XDG_DATA_HOME");
    const std::string saved = previous == nullptr ? "" : previous;
    ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    EXPECT_EQ(run({ PrefsAction::Set, std::nullopt, domain, "key", "int", "1" }), ExitStatus::AllWell);
    ::setenv("XDG_DATA_HOME", saved.c_str(), 1);
    EXPECT_TRUE(std::filesystem::exists(folder / "panotra/preferences/net.qorvath.panotra.plist"));
}

} // namespace
} // namespace panotra::preferences
