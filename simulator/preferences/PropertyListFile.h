/// A property list on disk as a set of keys and values that several processes read and change.
///
/// What is not set here stays as it is: other keys, whatever their values are, and what other processes set
/// meanwhile. Nothing that is in a file is ever overwritten unread. What cannot be saved stays in memory, where
/// this object goes on to see it, and is part of the next save. Comments in a file do not survive a save.
#pragma once

#include "simulator/preferences/FileLock.h"
#include "simulator/preferences/FileReplacement.h"
#include "simulator/preferences/PropertyListTree.h"
#include "simulator/preferences/Settings.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace panotra::preferences {

/// What is done with a file that cannot be read as a property list.
enum class Damaged { SetAside, Leave };

enum class Saved {
    Nothing, ///< the file already held all of it and was not touched
    Replaced,
    Failed ///< the changes are kept for the next save
};

class PropertyListFile {
public:
    /// Gets one line, without line end or control characters, for what a person should know. Trouble with a file is
    /// told once, and again only after it was over in between.
    using Warn = std::function<void(const std::string& line)>;

    static constexpr std::chrono::milliseconds usualPatience { 10000 };

    /// `patience`: how long a save waits for other processes that are saving.
    PropertyListFile(std::filesystem::path file, Warn warn, std::chrono::milliseconds patience = usualPatience);

    /// Reads the file afresh; no file is an empty one. Answers false if it cannot be read: then what was last known
    /// stays. A file that was set aside is no longer there, and therefore empty.
    bool read(Damaged);

    /// What was last read, with the changes that are not saved yet.
    const Settings& settings() const { return m_settings; }

    /// Neither reaches the file before `save`. Values must be storable, keys and strings UTF-8.
    void set(const std::string& key, Json value) { change({ key, std::move(value) }); }
    void unset(const std::string& key) { change({ key, std::nullopt }); }

    /// Brings the changes into the file as it is now, in one replacement.
    Saved save();

private:
    using Tree = std::shared_ptr<const PropertyListTree>;
    struct Loaded;
    /// The bytes of a file, and what is in it.
    struct Known {
        std::string bytes;
        Tree tree;
    };

    void change(Change);
    Loaded load();
    Loaded loadLocked(FileLock& lock);
    Failure replaceWith(const Tree& tree);
    Saved finish(const Tree& tree, Saved);
    void accept(const Tree& tree);
    void report(bool& isTroubled, const std::string& trouble);
    void tell(const std::string& what) const;

    std::filesystem::path m_file;
    Warn m_warn;
    std::chrono::milliseconds m_patience;
    Known m_known; ///< as last read or written
    Settings m_settings;
    Tree m_settingsOf; ///< what m_settings are of, with the changes; null: they must be worked out anew
    std::vector<Change> m_changes;
    bool m_isReadingTroubled = false;
    bool m_isSavingTroubled = false;
    bool m_isLastingTroubled = false; ///< what was saved may not outlast a power failure
};

} // namespace panotra::preferences
