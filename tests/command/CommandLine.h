/// The program itself, run by the shell in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace panotra::testing {

struct Ended {
    int status;
    std::string output;
    std::string errors;
};

/// A folder of its own for every test, in which the program runs.
class CommandLine : public ::testing::Test {
protected:
    CommandLine()
    {
        std::string name = (std::filesystem::temp_directory_path() / "panotra-XXXXXX").string();
        folder = mkdtemp(name.data());
        write("good", "load\nlaunch\nexpect globals.scale 0.875\n");
        write("failing", "load\n\nexpect globals.scale 1\nlaunch\nexpect running 7\n");
        write("wrong", "lunch\nload\nscreen 1 1 1\nwait -1\n");
    }
    ~CommandLine() override { std::filesystem::remove_all(folder); }

    void write(const char* file, std::string_view text) const { std::ofstream(folder / file) << text; }
    std::string read(const char* file) const
    {
        std::ostringstream text;
        text << std::ifstream(folder / file).rdbuf();
        return text.str();
    }

    /// Runs a script of the shell in the folder; `$panotra` is the program.
    Ended runScript(const std::string& script) const
    {
        const auto command
            = "cd '" + folder.string() + "' && panotra='" PANOTRA_PROGRAM "' && { " + script + "; } >.output 2>.errors";
        const int status = std::system(command.c_str());
        return { WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(".output"), read(".errors") };
    }
    /// Runs `panotra` with arguments and redirections as the shell reads them.
    Ended run(const std::string& arguments) const { return runScript("\"$panotra\" " + arguments); }

    std::filesystem::path folder;
};

} // namespace panotra::testing
