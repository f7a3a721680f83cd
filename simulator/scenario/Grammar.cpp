/// Words against the table of forms. Every mistake of a line is found, not only its first.
#include "simulator/scenario/Grammar.h"

#include "facts/VolumeSlots.h"
#include "simulator/scenario/Forms.h"
#include "simulator/scenario/NearestName.h"
#include "simulator/scenario/Numbers.h"
#include "simulator/systems/Systems.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

namespace panotra::sim {

namespace {

constexpr std::int64_t firstSlot = 0;
constexpr std::int64_t lastSlot = volumeSlotCount - 1;

/// The lines of commands after which others may not stand, mistaken ones included: otherwise every line after a
/// mistaken `load` would be called a mistake too.
struct EarlierLines {
    std::optional<std::size_t> load;
    std::optional<std::size_t> system; ///< `ios`
    std::optional<std::size_t> presence; ///< the first `lack` or `have`

    void note(const Line& line)
    {
        if (line.words.empty())
            return;
        const auto& name = line.words.front().text;
        auto* const place = name == "load"     ? &load
            : name == "ios"                    ? &system
            : name == "lack" || name == "have" ? &presence
                                               : nullptr;
        if (place != nullptr && !*place)
            *place = line.number;
    }
};

/// "a", "a or b", "a, b or c".
std::string listed(const std::vector<std::string_view>& alternatives)
{
    std::string result;
    for (std::size_t index = 0; index < alternatives.size(); ++index) {
        if (index > 0)
            result += index + 1 == alternatives.size() ? " or " : ", ";
        result += alternatives[index];
    }
    return result;
}

std::vector<std::string_view> commandNames()
{
    std::vector<std::string_view> names;
    for (const auto& form : allForms())
        names.push_back(form.syntax.command());
    return names;
}

/// Whether a picture of that name lies in the folder of pictures or below it.
bool isPictureName(std::string_view word)
{
    const std::filesystem::path path(word);
    return !path.has_root_directory() && std::ranges::find(path, std::filesystem::path("..")) == path.end();
}

/// `value` if it lies in the range, ends included.
template <typename T>
std::optional<Arguments::Value> within(
    std::optional<T> value, T low = std::numeric_limits<T>::lowest(), T high = std::numeric_limits<T>::max())
{
    return value && *value >= low && *value <= high ? std::optional<Arguments::Value>(*value) : std::nullopt;
}

/// The value of a placeholder's word; none if it is not of the kind.
std::optional<Arguments::Value> valueOf(const std::string& word, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return word;
    case Kind::Picture:
        return isPictureName(word) ? std::optional<Arguments::Value>(word) : std::nullopt;
    case Kind::Number:
        return within(parseDouble(word));
    case Kind::NumberAboveZero:
        return within(parseDouble(word), std::numeric_limits<double>::denorm_min());
    case Kind::NumberNotBelowZero:
        return within(parseDouble(word), 0.0);
    case Kind::Level:
        return within(parseFloat(word));
    case Kind::Integer:
        return within(parseInteger<std::int64_t>(word));
    case Kind::Slot:
        return within(parseInteger<std::int64_t>(word), firstSlot, lastSlot);
    case Kind::State:
        return within(parseInteger<std::uint64_t>(word));
    case Kind::System:
        return within(
            parseInteger<std::int64_t>(word), std::int64_t { systems::oldest }, std::int64_t { systems::newest });
    }
    return std::nullopt;
}

/// Checks one line and says what is wrong with it, as often as something is.
class LineChecker {
public:
    LineChecker(const Line& line, std::vector<Mistake>& mistakes)
        : m_line(line)
        , m_mistakes(mistakes)
        , m_fixedWords(line.words.size())
    {
        for (const auto& form : allForms()) {
            if (form.syntax.command() == name())
                m_forms.push_back(&form);
        }
    }

    /// None after complaints.
    std::optional<Command> check(const EarlierLines& earlier)
    {
        const auto mistakesBefore = m_mistakes.size();
        if (m_forms.empty()) {
            complain(inQuotes(name()), "a command" + didYouMean(name(), commandNames()));
            return std::nullopt;
        }
        checkPhase(m_forms.front()->phase, earlier.load);
        if (name() == "ios" && !earlier.load)
            checkSystemPlace(earlier);
        Command command {
            .line = m_line.number,
            .source = m_line.source,
            .remarks = m_line.remarks,
            .form = chooseForm(),
            .arguments = {},
        };
        if (command.form != nullptr)
            readArguments(command.form->syntax, command.arguments);
        return m_mistakes.size() == mistakesBefore ? std::optional(std::move(command)) : std::nullopt;
    }

private:
    const std::string& name() const { return m_line.words.front().text; }

    void complain(const std::string& found, const std::string& expected)
    {
        m_mistakes.push_back({ m_line.number, "found " + found + ", expected " + expected });
    }

    void checkPhase(Phase phase, std::optional<std::size_t> loadLine)
    {
        const auto line = loadLine ? " (line " + std::to_string(*loadLine) + ")" : std::string();
        if (phase == Phase::AfterLoad && !loadLine)
            complain(name() + " before load", "it after load");
        else if (phase == Phase::BeforeLoad && loadLine)
            complain(name() + " after load" + line, "it before load");
        else if (phase == Phase::Load && loadLine)
            complain("a second load", "only the first" + line);
    }

    /// What is lacking is lacking of a system's classes, so that the system comes first.
    void checkSystemPlace(const EarlierLines& earlier)
    {
        if (earlier.system)
            complain("a second ios", "only the first (line " + std::to_string(*earlier.system) + ")");
        else if (earlier.presence)
            complain("ios after lack or have (line " + std::to_string(*earlier.presence) + ")", "it before them");
    }

    /// The form that the words follow, by its fixed words and their number; null after a complaint.
    const Form* chooseForm()
    {
        auto candidates = m_forms;
        for (std::size_t position = 1; position < m_line.words.size() && candidates.size() > 1; ++position) {
            if (!narrow(candidates, position))
                return nullptr;
        }
        const auto termCount = [](const Form* form) {
            return form->syntax.terms().size();
        };
        const auto fitting = std::ranges::find(candidates, m_line.words.size(), termCount);
        if (fitting != candidates.end())
            return *fitting;

        const auto count = m_line.words.size() - 1;
        std::vector<std::string_view> syntaxes;
        for (const auto* form : candidates)
            syntaxes.push_back(form->syntax.text());
        complain(
            (count == 0 ? "nothing" : std::to_string(count) + (count == 1 ? " word" : " words")) + " after " + name(),
            listed(syntaxes));
        return nullptr;
    }

    /// Keeps the forms that have the word at `position` as a fixed one, or else those with a placeholder there.
    bool narrow(std::vector<const Form*>& candidates, std::size_t position)
    {
        const auto& word = m_line.words[position].text;
        std::vector<const Form*> exact;
        std::vector<const Form*> open;
        for (const auto* form : candidates) {
            if (position >= form->syntax.terms().size())
                continue;
            const auto& term = form->syntax.terms()[position];
            const auto alternatives = term.alternatives();
            m_fixedWords[position].insert(m_fixedWords[position].end(), alternatives.begin(), alternatives.end());
            if (term.placeholder != nullptr)
                open.push_back(form);
            else if (std::ranges::find(alternatives, word) != alternatives.end())
                exact.push_back(form);
        }
        candidates = exact.empty() ? open : exact;
        if (candidates.empty())
            complain(inQuotes(word), listed(m_fixedWords[position]));
        return !candidates.empty();
    }

    void readArguments(const Syntax& syntax, Arguments& arguments)
    {
        for (std::size_t position = 1; position < m_line.words.size(); ++position) {
            const auto& term = syntax.terms()[position];
            const auto& word = m_line.words[position];
            if (term.placeholder != nullptr)
                readPlaceholder(term, word, m_fixedWords[position], arguments);
            else
                readChoice(term, word, arguments);
        }
    }

    void readChoice(const Term& term, const Word& word, Arguments& arguments)
    {
        const auto alternatives = term.alternatives();
        if (std::ranges::find(alternatives, word.text) == alternatives.end())
            complain(inQuotes(word.text), listed(alternatives));
        else if (alternatives.size() > 1)
            arguments.add(word.text);
    }

    /// `otherWords`: what other forms of the command have in this place.
    void readPlaceholder(
        const Term& term, const Word& word, std::vector<std::string_view> otherWords, Arguments& arguments)
    {
        const bool isNil = word.text == "nil" && !word.quoted;
        if (isNil && term.mayBeNil) {
            arguments.addNil();
            return;
        }
        if (auto value = isNil ? std::nullopt : valueOf(word.text, term.placeholder->kind)) {
            arguments.add(std::move(*value));
            return;
        }
        otherWords.insert(otherWords.begin(), term.placeholder->expected);
        if (term.mayBeNil)
            otherWords.push_back("nil");
        complain((isNil ? "nil" : inQuotes(word.text)) + " for " + std::string(term.text), listed(otherWords));
    }

    const Line& m_line;
    std::vector<Mistake>& m_mistakes;
    std::vector<const Form*> m_forms; ///< of the line's command
    std::vector<std::vector<std::string_view>> m_fixedWords; ///< by position, of the forms considered there
};

} // namespace

Scenario parseScenario(std::string_view text)
{
    Scenario scenario;
    EarlierLines earlier;
    for (const auto& line : readLines(text)) {
        if (line.mistake)
            scenario.mistakes.push_back({ line.number, *line.mistake });
        else if (auto command = LineChecker(line, scenario.mistakes).check(earlier))
            scenario.commands.push_back(std::move(*command));
        earlier.note(line);
    }
    return scenario;
}

std::vector<PictureAsked> picturesOf(const Scenario& scenario)
{
    std::vector<PictureAsked> pictures;
    for (const auto& command : scenario.commands) {
        const auto terms = command.form->syntax.terms();
        if (terms.size() > 1 && terms[1].placeholder != nullptr && terms[1].placeholder->kind == Kind::Picture)
            pictures.push_back({ command.line, command.arguments.text(0) });
    }
    return pictures;
}

} // namespace panotra::sim
