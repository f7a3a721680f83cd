/// A property list on disk as a set of keys and values that several processes read and change.
#include "simulator/preferences/PropertyListFile.h"

#include "simulator/preferences/DomainNames.h"
#include "simulator/preferences/PropertyListGuard.h"

#include <algorithm>
#include <cassert>

namespace panotra::preferences {

namespace {

/// Answers whether anything is different now.
bool applyAll(PropertyListTree& tree, const std::vector<Change>& changes)
{
    bool isDifferent = false;
    for (const Change& change : changes)
        isDifferent |= tree.apply(change);
    return isDifferent;
}

} // namespace

struct PropertyListFile::Loaded {
    std::optional<PropertyListTree> tree;
    /// Without a tree, why: the end of a sentence that begins with the file's name.
    std::string trouble {};
    /// There are bytes, but no property list that we could take in.
    bool isDamaged = false;
};

PropertyListFile::PropertyListFile(std::filesystem::path file, Warn warn, std::chrono::milliseconds patience)
    : m_file(std::move(file))
    , m_warn(std::move(warn))
    , m_patience(patience)
{
}

bool PropertyListFile::read(Damaged damaged)
{
    Loaded loaded = load();
    if (loaded.isDamaged && damaged == Damaged::SetAside) {
        const std::string objection = std::move(loaded.trouble);
        FileLock lock;
        loaded = loadLocked(lock);
        loaded.trouble = objection + " and " + loaded.trouble;
    }
    if (loaded.tree)
        accept(*loaded.tree);
    else
        report(m_isReadingTroubled, loaded.trouble);
    return loaded.tree.has_value();
}

Saved PropertyListFile::save()
{
    if (m_changes.empty())
        return Saved::Nothing;

    // Most saves bring nothing new. They need neither the lock nor a folder that can be written.
    Loaded loaded = load();
    if (loaded.tree && !applyAll(*loaded.tree, m_changes))
        return finish(*loaded.tree, Saved::Nothing);

    FileLock lock;
    loaded = loadLocked(lock);
    if (loaded.tree) {
        if (!applyAll(*loaded.tree, m_changes))
            return finish(*loaded.tree, Saved::Nothing);
        const Failure failure = replaceWith(*loaded.tree);
        if (!failure)
            return finish(*loaded.tree, Saved::Replaced);
        loaded.trouble = "cannot be changed: " + *failure;
    }
    report(m_isSavingTroubled, loaded.trouble + "; nothing is saved");
    return Saved::Failed;
}

Failure PropertyListFile::replaceWith(const PropertyListTree& tree) const
{
    const auto bytes = tree.serialize();
    if (!bytes)
        return "no property list can hold its values";
    std::filesystem::path target = m_file;
    if (auto failure = followLinks(target))
        return failure;
    return replaceFile(target, *bytes);
}

void PropertyListFile::change(Change change)
{
    assert(!change.value || isStorable(*change.value));
    assert(change.key.find('\0') == std::string::npos);
    m_settings.apply(change);
    const auto earlier = std::ranges::find(m_changes, change.key, &Change::key);
    if (earlier == m_changes.end())
        m_changes.push_back(std::move(change));
    else
        *earlier = std::move(change);
}

PropertyListFile::Loaded PropertyListFile::load() const
{
    FileContents contents = readFile(m_file, largestFileBytes);
    if (contents.failure)
        return { std::nullopt, "cannot be read: " + *contents.failure };
    if (!contents.bytes)
        return { PropertyListTree() };
    PropertyListTree::Parsed parsed = PropertyListTree::parse(*contents.bytes);
    const bool isDamaged = !parsed.tree;
    return { std::move(parsed.tree), std::move(parsed.objection), isDamaged };
}

/// Reads the file under its lock, so that nobody changes it until the lock goes, and sets a damaged one aside.
PropertyListFile::Loaded PropertyListFile::loadLocked(FileLock& lock)
{
    std::filesystem::path target = m_file;
    Failure failure = followLinks(target);
    if (!failure)
        failure = makeFolders(target.parent_path());
    // Whoever found the lock held too long already has waited enough.
    const auto patience = m_isSavingTroubled ? std::chrono::milliseconds::zero() : m_patience;
    if (!failure)
        failure = lock.acquire(lockOfFile(target), patience);
    if (failure)
        return { std::nullopt, "cannot be changed: " + *failure };

    Loaded loaded = load();
    if (!loaded.isDamaged)
        return loaded;
    std::filesystem::path newName;
    if (const Failure reason = setAside(target, newName))
        return { std::nullopt, "cannot be changed: " + *reason };
    m_warn(m_file.string() + ": " + loaded.trouble + "; set aside as " + newName.string());
    return { PropertyListTree() };
}

Saved PropertyListFile::finish(const PropertyListTree& tree, Saved saved)
{
    m_changes.clear();
    m_isSavingTroubled = false;
    accept(tree);
    return saved;
}

void PropertyListFile::accept(const PropertyListTree& tree)
{
    m_isReadingTroubled = false;
    m_settings = tree.settings();
    for (const Change& change : m_changes)
        m_settings.apply(change);
}

void PropertyListFile::report(bool& isTroubled, const std::string& trouble)
{
    if (!m_isReadingTroubled && !m_isSavingTroubled)
        m_warn(m_file.string() + ": " + trouble);
    isTroubled = true;
}

} // namespace panotra::preferences
