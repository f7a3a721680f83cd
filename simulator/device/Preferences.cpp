/// Preference domains of the simulated device: in memory, or each a property list in a folder.
#include "simulator/device/Preferences.h"

#include "simulator/device/EventFields.h"
#include "simulator/preferences/DomainNames.h"
#include "simulator/preferences/PropertyListFile.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <set>
#include <utility>

namespace panotra::sim {

using preferences::Change;
using preferences::Damaged;
using preferences::PropertyListFile;
using preferences::Saved;
using preferences::Settings;

namespace {

/// One domain: a file, or memory where there is no folder, or no file that could be named after it.
struct Domain {
    std::optional<PropertyListFile> file;
    Settings memory;

    const Settings& settings() const { return file ? file->settings() : memory; }

    void read(Damaged damaged)
    {
        if (file)
            file->read(damaged);
    }

    /// Answers whether the file was replaced, or the memory changed.
    bool apply(const std::vector<Change>& changes)
    {
        bool isDifferent = false;
        for (const Change& change : changes) {
            if (!file)
                isDifferent |= memory.apply(change);
            else if (change.value)
                file->set(change.key, *change.value);
            else
                file->unset(change.key);
        }
        return file ? file->save() == Saved::Replaced : isDifferent;
    }
};

} // namespace

struct PreferenceDomains::Implementation {
    Device& device;
    std::optional<std::filesystem::path> folder;
    std::map<std::string, Domain> domains {};
    std::size_t replacements = 0;
    std::size_t handlesOpened = 0;
    std::vector<std::string> warnings {};

    Domain& domain(const std::string& name)
    {
        const auto [entry, isNew] = domains.try_emplace(name);
        if (isNew && folder) {
            const auto warn = [this](const std::string& line) {
                warnings.push_back(line);
            };
            if (auto objection = preferences::objectionToDomain(name))
                warn("preference domain " + inQuotes(name) + " stays in memory: " + *objection);
            else
                entry->second.file.emplace(preferences::fileOfDomain(*folder, name), warn);
        }
        return entry->second;
    }

    void apply(const std::string& name, const std::vector<Change>& changes)
    {
        replacements += domain(name).apply(changes);
    }

    /// The domains that were used, and those that have a file.
    std::set<std::string> names() const
    {
        std::set<std::string> names;
        for (const auto& entry : domains)
            names.insert(entry.first);
        if (!folder)
            return names;
        std::error_code error;
        for (std::filesystem::directory_iterator file(*folder, error), end; !error && file != end;
             file.increment(error)) {
            if (auto name = preferences::domainOfFile(file->path()))
                names.insert(std::move(*name));
        }
        return names;
    }
};

struct PreferenceHandle::Implementation {
    /// A handle that outlives its process saves nothing.
    std::weak_ptr<PreferenceDomains::Implementation> domains;
    Device& device;
    std::string domain;
    /// The domain as it was read last; none before the first read.
    std::optional<Settings> settings {};
    std::vector<Change> changes {};

    void read()
    {
        const auto process = domains.lock();
        if (process == nullptr)
            return;
        Domain& stored = process->domain(domain);
        stored.read(Damaged::SetAside);
        settings = stored.settings();
        for (const Change& change : changes)
            settings->apply(change);
    }
};

PreferenceHandle::PreferenceHandle(PreferenceDomains& domains, std::string domain)
    : m_implementation(
        new Implementation { domains.m_implementation, domains.m_implementation->device, std::move(domain) })
{
}

PreferenceHandle::~PreferenceHandle()
{
    const auto process = m_implementation->domains.lock();
    if (process != nullptr && !m_implementation->changes.empty())
        process->apply(m_implementation->domain, m_implementation->changes);
}

void PreferenceHandle::synchronize()
{
    m_implementation->device.trace(
        "synchronize", [&](EventFields& fields) { fields.add("domain", m_implementation->domain); });
    m_implementation->read();
}

std::optional<Json> PreferenceHandle::objectForKey(const std::string& key) const
{
    if (!m_implementation->settings)
        m_implementation->read();
    const Json* value = m_implementation->settings ? m_implementation->settings->find(key) : nullptr;
    return value == nullptr ? std::nullopt : std::optional(*value);
}

void PreferenceHandle::setFloat(const std::string& key, float value)
{
    Change change { key, Json(double { value }) };
    m_implementation->device.trace("write", [&](EventFields& fields) {
        fields.add("domain", m_implementation->domain, "key", key, "value", double { value });
    });
    if (m_implementation->settings)
        m_implementation->settings->apply(change);
    m_implementation->changes.push_back(std::move(change));
}

PreferenceDomains::PreferenceDomains(Device& device, std::optional<std::string> folder)
    : m_implementation(new Implementation { device, std::move(folder) })
{
}

PreferenceDomains::~PreferenceDomains() = default;

PreferenceHandle* PreferenceDomains::open(const std::string& domain)
{
    ++m_implementation->handlesOpened;
    return new PreferenceHandle(*this, domain);
}

void PreferenceDomains::set(const std::string& domain, const std::string& key, const Json& value)
{
    m_implementation->apply(domain, { { key, value } });
}

void PreferenceDomains::unset(const std::string& domain, const std::string& key)
{
    m_implementation->apply(domain, { { key, std::nullopt } });
}

Json PreferenceDomains::all() const
{
    Json all = Json::object();
    for (const std::string& name : m_implementation->names()) {
        Domain& domain = m_implementation->domain(name);
        // Looking at the domains is no reason to rename the files of domains that nobody asked for.
        domain.read(Damaged::Leave);
        // No key stands twice; looking for each among those before it would take its time.
        Json values = Json::object();
        auto& members = values.get_ref<Json::object_t&>();
        for (const auto& [key, value] : domain.settings()) {
            if (!value.is_null())
                members.emplace_back(key, value);
        }
        if (!values.empty())
            all[name] = std::move(values);
    }
    return all;
}

std::size_t PreferenceDomains::replacements() const
{
    return m_implementation->replacements;
}

std::size_t PreferenceDomains::handlesOpened() const
{
    return m_implementation->handlesOpened;
}

const std::vector<std::string>& PreferenceDomains::warnings() const
{
    return m_implementation->warnings;
}

} // namespace panotra::sim
