/// The terminal asked, and the environment heard.
#include "simulator/Terminal.h"

#include <charconv>
#include <cstdlib>
#include <optional>

#include <sys/ioctl.h>
#include <unistd.h>

namespace panotra::sim {

namespace {

std::string_view environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::optional<std::size_t> terminalWidth()
{
    winsize size {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0)
        return size.ws_col;
    return std::nullopt;
}

/// What a shell passes on if it is told to export it: it knows of a terminal behind a pipe.
std::optional<std::size_t> askedWidth()
{
    const auto text = environment("COLUMNS");
    std::size_t width = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), width);
    return error == std::errc() && end == text.data() + text.size() && width != 0 ? std::optional(width) : std::nullopt;
}

} // namespace

TextLook lookOfText(bool isStandardOutput)
{
    TextLook look;
    const bool isTerminal = isStandardOutput && isatty(STDOUT_FILENO) == 1;
    const auto terminal = isTerminal ? terminalWidth() : std::nullopt;
    look.width = terminal ? *terminal : askedWidth().value_or(look.width);
    const auto kind = environment("TERM");
    look.hasColours = isTerminal && environment("NO_COLOR").empty() && !kind.empty() && kind != "dumb";
    return look;
}

} // namespace panotra::sim
