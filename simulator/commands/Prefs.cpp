/// The command `panotra prefs`: another process that looks at the settings and changes them.
#include "simulator/commands/Prefs.h"

#include "simulator/commands/PrefsAdvice.h"
#include "simulator/preferences/DefaultFolder.h"
#include "simulator/preferences/DomainNames.h"
#include "simulator/preferences/PropertyListFile.h"
#include "simulator/preferences/SettingText.h"
#include "simulator/text/Printable.h"
#include "simulator/text/Utf8.h"

#include <ostream>

namespace panotra::preferences {

using sim::ExitStatus;

namespace {

/// The text as it is, or in quotes where a reader could not tell where it ends.
std::string oneWord(const std::string& text)
{
    const bool needsQuotes = text.empty() || text.find_first_of(" \"") != text.npos || text != printable(text);
    return needsQuotes ? inQuotes(text) : text;
}

class Command {
public:
    Command(const PrefsRequest& request, std::ostream& output, std::ostream& errors)
        : m_request(request)
        , m_output(output)
        , m_errors(errors)
    {
    }

    ExitStatus run()
    {
        if (auto mistake = mistakeInWords())
            return fail(ExitStatus::WrongInput, *mistake);
        if (auto objection = objectionToDomain(m_request.domain))
            return fail(ExitStatus::WrongInput, "domain " + inQuotes(m_request.domain) + ": " + *objection);
        const auto folder = m_request.folder ? std::filesystem::path(*m_request.folder) : defaultFolder();
        if (!folder)
            return fail(ExitStatus::FileFailed, "no home folder to keep preferences in: give one with --prefs");
        bool isTroubled = false;
        PropertyListFile file(fileOfDomain(*folder, m_request.domain), [&](const std::string& line) {
            say(line);
            isTroubled = true;
        });
        const ExitStatus status = run(file);
        // Done, but not as whoever asked expects: what the file held before is out of use, or may be again.
        return status == ExitStatus::AllWell && isTroubled ? ExitStatus::FileFailed : status;
    }

private:
    std::optional<std::string> mistakeInWords() const
    {
        const bool needsKey = m_request.action != PrefsAction::List;
        const bool needsValue = m_request.action == PrefsAction::Set;
        if (m_request.key.has_value() != needsKey)
            return needsKey ? "expected a key after the domain" : "expected nothing after the domain";
        if (m_request.type.has_value() != needsValue || m_request.value.has_value() != needsValue)
            return needsValue ? "expected a type and a value after the key" : "expected nothing after the key";
        if (needsKey && !isUtf8(*m_request.key))
            return "expected a key in UTF-8";
        return std::nullopt;
    }

    ExitStatus run(PropertyListFile& file)
    {
        switch (m_request.action) {
        case PrefsAction::List:
            return list(file);
        case PrefsAction::Get:
            return get(file);
        case PrefsAction::Set:
            return set(file);
        case PrefsAction::Unset:
            return unset(file);
        }
        return ExitStatus::WrongInput;
    }

    ExitStatus list(PropertyListFile& file)
    {
        if (!file.read(Damaged::Leave))
            return ExitStatus::FileFailed;
        for (const auto& [key, value] : file.settings()) {
            m_output << oneWord(key) << ' ' << typeOf(value);
            if (!value.is_null())
                m_output << ' ' << (value.is_string() ? inQuotes(textOf(value)) : textOf(value));
            m_output << '\n';
        }
        return ExitStatus::AllWell;
    }

    ExitStatus get(PropertyListFile& file)
    {
        if (!file.read(Damaged::Leave))
            return ExitStatus::FileFailed;
        const Json* value = file.settings().find(*m_request.key);
        if (value == nullptr)
            return failForAbsentKey();
        if (value->is_null())
            return fail(ExitStatus::NotFulfilled, inQuotes(*m_request.key) + " is no number, boolean or string");
        // A program gets every byte; a terminal would take some for orders.
        const std::string text = textOf(*value);
        m_output << (m_request.isForTerminal && text != printable(text) ? inQuotes(text) : text) << '\n';
        return ExitStatus::AllWell;
    }

    ExitStatus set(PropertyListFile& file)
    {
        const ReadSetting setting = readSetting(*m_request.type, *m_request.value);
        if (!setting.value) {
            const auto words = inQuotes(*m_request.type) + " " + inQuotes(*m_request.value);
            return fail(ExitStatus::WrongInput, words + ": expected " + setting.expected);
        }
        file.set(*m_request.key, *setting.value);
        const ExitStatus status = save(file);
        // Stored it is: whoever tries what the mixer makes of odd values wants to.
        if (const auto advice = adviceOnSetting(m_request.domain, *m_request.key, *setting.value);
            advice && status == ExitStatus::AllWell)
            say(*advice + "; stored all the same");
        return status;
    }

    ExitStatus unset(PropertyListFile& file)
    {
        if (!file.read(Damaged::Leave))
            return ExitStatus::FileFailed;
        if (file.settings().find(*m_request.key) == nullptr)
            return failForAbsentKey();
        file.unset(*m_request.key);
        return save(file);
    }

    ExitStatus save(PropertyListFile& file)
    {
        return file.save() == Saved::Failed ? ExitStatus::FileFailed : ExitStatus::AllWell;
    }

    ExitStatus failForAbsentKey()
    {
        return fail(ExitStatus::NotFulfilled, "no key " + inQuotes(*m_request.key) + " in " + m_request.domain);
    }

    ExitStatus fail(ExitStatus status, const std::string& reason)
    {
        say(reason);
        return status;
    }

    void say(const std::string& line) { m_errors << "panotra: " << printable(line) << '\n'; }

    const PrefsRequest& m_request;
    std::ostream& m_output;
    std::ostream& m_errors;
};

} // namespace

ExitStatus runPrefsCommand(const PrefsRequest& request, std::ostream& output, std::ostream& errors)
{
    return Command(request, output, errors).run();
}

} // namespace panotra::preferences
