/// The forms of commands: one table says how each is written, when it may stand, what it does, and what people are told
/// of it.
///
/// A syntax is written as it is documented, `screen reference W H`: capitals are placeholders of a known kind,
/// `up|down` is a choice of words and an argument, a word alone is fixed and none. `CATEGORY|nil` may be absent.
#pragma once

#include "facts/VolumeSlots.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/systems/Systems.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace panotra::sim {

class Player;

enum class Kind { Text, Picture, Number, NumberAboveZero, NumberNotBelowZero, Level, Integer, Slot, State, System };

/// A name for an argument in the table below, with what it stands for.
struct Placeholder {
    std::string_view name;
    Kind kind;
    std::string_view expected; ///< how a mistake describes it
};

// The words for SLOT and SYSTEM name these numbers.
static_assert(volumeSlotCount == 12);
static_assert(systems::oldest == 9 && systems::newest == 16);

inline constexpr std::array placeholders {
    Placeholder { "BUNDLE", Kind::Text, "a bundle identifier" },
    Placeholder { "CATEGORY", Kind::Text, "a category" },
    Placeholder { "CLASS", Kind::Text, "a class" },
    Placeholder { "DOMAIN", Kind::Text, "a preference domain" },
    Placeholder { "KEY", Kind::Text, "a key" },
    Placeholder { "LISTENER", Kind::Text, "a listener's name" },
    Placeholder { "NAME", Kind::Text, "a name" },
    Placeholder { "PATH", Kind::Text, "a path into the state" },
    Placeholder { "PICTURE", Kind::Picture, "a name in the folder of pictures or below it, without .." },
    Placeholder { "REASON", Kind::Text, "a reason" },
    Placeholder { "STRING", Kind::Text, "a string" },
    Placeholder { "VALUE", Kind::Text, "a value" },
    Placeholder { "DELAY", Kind::Number, "a number" },
    Placeholder { "NUMBER", Kind::Number, "a number" },
    Placeholder { "X", Kind::Number, "a number" },
    Placeholder { "Y", Kind::Number, "a number" },
    Placeholder { "W", Kind::NumberAboveZero, "a number above 0" },
    Placeholder { "H", Kind::NumberAboveZero, "a number above 0" },
    Placeholder { "SCALE", Kind::NumberAboveZero, "a number above 0" },
    Placeholder { "SECONDS", Kind::NumberNotBelowZero, "a number not below 0" },
    Placeholder { "LEVEL", Kind::Level, "a number that a 32-bit float can hold" },
    Placeholder { "INTEGER", Kind::Integer, "a whole number of 64 bits" },
    Placeholder { "MODE", Kind::Integer, "a whole number of 64 bits" },
    Placeholder { "N", Kind::Integer, "a whole number of 64 bits" },
    Placeholder { "TYPE", Kind::Integer, "a whole number of 64 bits" },
    Placeholder { "SLOT", Kind::Slot, "a whole number from 0 to 11" },
    Placeholder { "STATE", Kind::State, "a whole number of 64 bits without sign" },
    Placeholder { "SYSTEM", Kind::System, "a whole number from 9 to 16" },
};

/// One word of a syntax.
struct Term {
    std::string_view text; ///< the fixed word, or the words of a choice with bars between
    const Placeholder* placeholder = nullptr;
    bool mayBeNil = false;

    /// The fixed words that may stand here; none for a placeholder.
    std::vector<std::string_view> alternatives() const;
};

class Syntax {
public:
    /// Does not compile if a capital word is no placeholder.
    consteval Syntax(const char* text)
        : m_text(text)
    {
        for (std::string_view rest = m_text; !rest.empty();) {
            const auto word = rest.substr(0, rest.find(' '));
            m_terms.at(m_count++) = termOf(word);
            rest.remove_prefix(word.size() == rest.size() ? word.size() : word.size() + 1);
        }
    }

    constexpr std::string_view text() const { return m_text; }
    constexpr std::string_view command() const { return m_terms.front().text; }
    constexpr std::span<const Term> terms() const { return { m_terms.data(), m_count }; }

private:
    static constexpr Term termOf(std::string_view word)
    {
        constexpr std::string_view orNil = "|nil";
        const bool mayBeNil = word.ends_with(orNil);
        const auto name = mayBeNil ? word.substr(0, word.size() - orNil.size()) : word;
        for (const auto& placeholder : placeholders) {
            if (placeholder.name == name)
                return { name, &placeholder, mayBeNil };
        }
        if (name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == name.npos)
            throw "a placeholder that is not in the table";
        return { word };
    }

    static constexpr std::size_t longestForm = 6;

    std::string_view m_text;
    std::array<Term, longestForm> m_terms {};
    std::size_t m_count = 0;
};

/// When a command may stand.
enum class Phase { BeforeLoad, Load, AfterLoad, Always };

struct Form {
    using Play = void (*)(Player& player, const Arguments& arguments);

    Syntax syntax;
    Phase phase;
    std::string_view meaning; ///< in words for people
    std::string_view example; ///< a line of a scenario
    Play play;

    consteval Form(Syntax formSyntax, Phase formPhase, const char* formMeaning, const char* formExample, Play formPlay)
        : syntax(formSyntax)
        , phase(formPhase)
        , meaning(formMeaning)
        , example(formExample)
        , play(formPlay)
    {
    }
};

/// Every form of every command; the forms of one command stand together.
std::span<const Form> allForms();

} // namespace panotra::sim
