/// A property list on disk as a set of keys and values that several processes read and change.
#include "simulator/preferences/PropertyListFile.h"

#include "simulator/preferences/DomainNames.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <cassert>

namespace panotra::preferences {

namespace {

bool changesAnything(const PropertyListTree& tree, const std::vector<Change>& changes)
{
    return std::ranges::any_of(changes, [&](const Change& change) { return tree.isChangedBy(change); });
}

} // namespace

struct PropertyListFile::Loaded {
    /// Null: there is none, for this reason, the end of a sentence that begins with the file's name.
    Tree tree;
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
        accept(loaded.tree);
    else
        report(m_isReadingTroubled, loaded.trouble);
    return loaded.tree != nullptr;
}

Saved PropertyListFile::save()
{
    if (m_changes.empty())
        return Saved::Nothing;

    // Most saves bring nothing new. They need neither the lock nor a folder that can be written.
    Loaded loaded = load();
    if (loaded.tree && !changesAnything(*loaded.tree, m_changes))
        return finish(loaded.tree, Saved::Nothing);

    FileLock lock;
    loaded = loadLocked(lock);
    if (loaded.tree) {
        if (!changesAnything(*loaded.tree, m_changes))
            return finish(loaded.tree, Saved::Nothing);
        const auto changed = std::make_shared<PropertyListTree>(*loaded.tree);
        for (const Change& change : m_changes)
            changed->apply(change);
        const Failure failure = replaceWith(changed);
        if (!failure)
            return finish(changed, Saved::Replaced);
        loaded.trouble = "cannot be changed: " + *failure;
    }
    report(m_isSavingTroubled, loaded.trouble + "; nothing is saved");
    return Saved::Failed;
}

Failure PropertyListFile::replaceWith(const Tree& tree)
{
    PropertyListTree::Serialized serialized = tree->serialize();
    if (!serialized.bytes)
        return "with the change it " + serialized.objection;
    std::filesystem::path target = m_file;
    if (auto failure = followLinks(target))
        return failure;
    const Replacement replacement = replaceFile(target, *serialized.bytes);
    if (replacement.failure)
        return replacement.failure;
    if (replacement.doubt && !m_isLastingTroubled)
        tell("is saved, but a power failure may undo that: its folder: " + *replacement.doubt);
    m_isLastingTroubled = replacement.doubt.has_value();
    m_known = { std::move(*serialized.bytes), tree };
    return std::nullopt;
}

void PropertyListFile::change(Change change)
{
    assert(!change.value || isStorable(*change.value));
    m_settings.apply(change);
    m_settingsOf = nullptr;
    const auto earlier = std::ranges::find(m_changes, change.key, &Change::key);
    if (earlier == m_changes.end())
        m_changes.push_back(std::move(change));
    else
        *earlier = std::move(change);
}

PropertyListFile::Loaded PropertyListFile::load()
{
    FileContents contents = readFile(m_file, largestFileBytes);
    if (contents.failure)
        return { nullptr, "cannot be read: " + *contents.failure };
    if (!contents.bytes)
        return { std::make_shared<PropertyListTree>() };
    // Whoever reads again and again finds the same bytes most of the time.
    if (m_known.tree != nullptr && *contents.bytes == m_known.bytes)
        return { m_known.tree };
    PropertyListTree::Parsed parsed = PropertyListTree::parse(*contents.bytes);
    if (!parsed.tree)
        return { nullptr, std::move(parsed.objection), true };
    m_known = { std::move(*contents.bytes), std::make_shared<PropertyListTree>(std::move(*parsed.tree)) };
    return { m_known.tree };
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
        return { nullptr, "cannot be changed: " + *failure };

    Loaded loaded = load();
    if (!loaded.isDamaged)
        return loaded;
    std::filesystem::path newName;
    if (const Failure reason = setAside(target, newName))
        return { nullptr, "cannot be changed: " + *reason };
    tell(loaded.trouble + "; set aside as " + newName.string());
    return { std::make_shared<PropertyListTree>() };
}

Saved PropertyListFile::finish(const Tree& tree, Saved saved)
{
    m_changes.clear();
    m_settingsOf = nullptr;
    m_isSavingTroubled = false;
    accept(tree);
    return saved;
}

void PropertyListFile::accept(const Tree& tree)
{
    m_isReadingTroubled = false;
    if (m_settingsOf == tree)
        return;
    m_settings = tree->settings();
    for (const Change& change : m_changes)
        m_settings.apply(change);
    m_settingsOf = tree;
}

void PropertyListFile::report(bool& isTroubled, const std::string& trouble)
{
    if (!m_isReadingTroubled && !m_isSavingTroubled)
        tell(trouble);
    isTroubled = true;
}

/// Names of files, and what stands in them, may hold anything; a line that a person reads may not.
void PropertyListFile::tell(const std::string& what) const
{
    m_warn(printable(m_file.string() + ": " + what));
}

} // namespace panotra::preferences
