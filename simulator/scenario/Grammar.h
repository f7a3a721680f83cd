/// From words to commands: what a scenario may say, checked whole before anything runs.
#pragma once

#include "simulator/scenario/Lexer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace panotra::sim {

struct Form;

/// The arguments of a command, already of the kinds that its form asks for; the words that a form fixes are left
/// out. Asking an argument for another kind than its form's is a programmer's mistake.
class Arguments {
public:
    /// Absent, for an unquoted `nil`; else as the placeholder's kind says.
    using Value = std::variant<std::monostate, std::string, double, float, std::int64_t, std::uint64_t>;

    void add(Value value) { m_values.push_back(std::move(value)); }
    void addNil() { m_values.emplace_back(); }

    const std::string& text(std::size_t index) const { return std::get<std::string>(m_values.at(index)); }
    double number(std::size_t index) const { return std::get<double>(m_values.at(index)); }
    float level(std::size_t index) const { return std::get<float>(m_values.at(index)); }
    std::int64_t integer(std::size_t index) const { return std::get<std::int64_t>(m_values.at(index)); }
    std::uint64_t state(std::size_t index) const { return std::get<std::uint64_t>(m_values.at(index)); }
    /// Whether the argument is this word of a choice.
    bool is(std::size_t index, std::string_view word) const { return text(index) == word; }

    std::optional<std::string> optionalText(std::size_t index) const { return optional<std::string>(index); }
    std::optional<float> optionalLevel(std::size_t index) const { return optional<float>(index); }

private:
    template <typename T> std::optional<T> optional(std::size_t index) const
    {
        if (std::holds_alternative<std::monostate>(m_values.at(index)))
            return std::nullopt;
        return std::get<T>(m_values.at(index));
    }

    std::vector<Value> m_values;
};

struct Command {
    std::size_t line; ///< from 1
    std::string_view source; ///< the line as written, in the text that was parsed
    std::vector<std::string_view> remarks; ///< the comments above it, likewise
    const Form* form;
    Arguments arguments;
};

struct Mistake {
    std::size_t line; ///< from 1
    std::string message; ///< "found …, expected …"
};

/// What a file holds. With a mistake in it the commands are not to be played.
struct Scenario {
    std::vector<Command> commands;
    std::vector<Mistake> mistakes; ///< in the order of lines
};

/// `text` must outlive the scenario.
Scenario parseScenario(std::string_view text);

struct PictureAsked {
    std::size_t line;
    std::string name; ///< without its extension
};

/// The pictures that playing the scenario writes.
std::vector<PictureAsked> picturesOf(const Scenario& scenario);

} // namespace panotra::sim
