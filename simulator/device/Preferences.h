/// Preference domains of the simulated device: in memory, or each a property list in a folder that other
/// processes read and write too.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/preferences/Conversions.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// A fresh handle on one domain, as NSUserDefaults is: what it set is seen through it at once and reaches the
/// store when the last reference goes, in one replacement of the file, or none if nothing would change. A handle that
/// outlives its process saves nothing.
struct PreferenceHandle : HostObject {
    ~PreferenceHandle() override;

    /// Reads the domain afresh. Traced as `synchronize`.
    void synchronize();
    /// A number, boolean or string; none if the key is absent. A value of any other kind answers null. Before the
    /// first `synchronize`, the first question reads the domain.
    std::optional<Json> objectForKey(const std::string& key) const;
    /// Traced as `write`.
    void setFloat(const std::string& key, float value);

private:
    friend class PreferenceDomains;
    PreferenceHandle(class PreferenceDomains& domains, std::string domain);
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

class PreferenceDomains {
public:
    /// `folder`: holds a file for each domain, and is made when the first one is saved; none: all live in memory,
    /// as does a domain after whose name no file can be called.
    PreferenceDomains(Device& device, std::optional<std::string> folder);
    ~PreferenceDomains();

    /// Not yet counted by the class table: the caller adopts it.
    PreferenceHandle* open(const std::string& domain);

    /// Written at once, as another process would; not traced. A number, boolean or string.
    void set(const std::string& domain, const std::string& key, const Json& value);
    void unset(const std::string& domain, const std::string& key);
    /// Every domain with a number, boolean or string in it: {domain: {key: value}}. Reads files afresh.
    Json all() const;

    /// How many times a file was replaced (in memory: how many times a domain changed), for those who count.
    std::size_t replacements() const;
    /// How many handles were opened.
    std::size_t handlesOpened() const;
    /// Why a file could not be read or written, a line each, in order. A place reports once, and again only after
    /// it went well in between.
    const std::vector<std::string>& warnings() const;

private:
    friend struct PreferenceHandle;
    struct Implementation;
    /// Shared with nobody for long: handles look whether it is still there.
    std::shared_ptr<Implementation> m_implementation;
};

// The platform's conversions of what a handle answers.
using preferences::booleanOf;
using preferences::numberOf;
using preferences::unsignedShortOf;

} // namespace panotra::sim
