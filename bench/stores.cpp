/// What it costs to save twelve levels, and to read one, beside other ways to keep them.
///
///   stores FOLDER                       times of all, in one run
///   stores FOLDER NAME save|read TIMES  one of them so many times, for a tool that counts instructions
///
/// FOLDER should be on a disk: in memory nothing is durable. Each save changes every level. "Durable" is what outlasts
/// a power failure once it is done; "consistent" may be the old file after one, but is no mixture.
#include "facts/PublicNames.h"
#include "facts/VolumeSlots.h"
#include "simulator/preferences/PropertyListFile.h"

#include <glib.h>
#include <nlohmann/json.hpp>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace panotra;
namespace fs = std::filesystem;

struct Store {
    std::string name;
    std::function<void(double level)> save;
    std::function<double()> read;
};

[[noreturn]] void fail(const std::string& what)
{
    std::cerr << "stores: " << what << '\n';
    std::exit(1);
}

Store propertyList(const fs::path& folder, const char* name)
{
    const auto file
        = std::make_shared<preferences::PropertyListFile>(folder / name, [](const std::string& line) { fail(line); });
    return { "property list",
        [file](double level) {
            for (const VolumeSlot& slot : volumeSlots)
                file->set(slot.preferenceKey, level);
            file->save();
        },
        [file] {
            file->read(preferences::Damaged::Leave);
            return file->settings().find(volumeSlots[7].preferenceKey)->get<double>();
        } };
}

/// As a program that has just begun finds it.
Store propertyListAnew(const fs::path& folder)
{
    return { "property list, anew", [folder](double level) { propertyList(folder, "anew.plist").save(level); },
        [folder] {
            return propertyList(folder, "anew.plist").read();
        } };
}

Store keyFile(const fs::path& folder, const char* name, GFileSetContentsFlags flags)
{
    const std::string file = folder / (std::string(name) + ".ini");
    return { name,
        [file, flags](double level) {
            GKeyFile* const keys = g_key_file_new();
            g_key_file_load_from_file(keys, file.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
            for (const VolumeSlot& slot : volumeSlots)
                g_key_file_set_double(keys, ownDomain, slot.preferenceKey, level);
            gsize length = 0;
            gchar* const text = g_key_file_to_data(keys, &length, nullptr);
            if (g_file_set_contents_full(file.c_str(), text, static_cast<gssize>(length), flags, 0644, nullptr) == 0)
                fail(file);
            g_free(text);
            g_key_file_free(keys);
        },
        [file] {
            GKeyFile* const keys = g_key_file_new();
            g_key_file_load_from_file(keys, file.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
            const double level = g_key_file_get_double(keys, ownDomain, volumeSlots[7].preferenceKey, nullptr);
            g_key_file_free(keys);
            return level;
        } };
}

Store database(const fs::path& folder, const char* name, const char* set)
{
    sqlite3* opened = nullptr;
    if (sqlite3_open((folder / (std::string(name) + ".db")).c_str(), &opened) != SQLITE_OK)
        fail(sqlite3_errmsg(opened));
    const std::shared_ptr<sqlite3> levels(opened, sqlite3_close);
    const auto run = [levels](const std::string& words) {
        if (sqlite3_exec(levels.get(), words.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            fail(sqlite3_errmsg(levels.get()));
    };
    const auto prepared = [levels](const char* words) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(levels.get(), words, -1, &statement, nullptr);
        return std::shared_ptr<sqlite3_stmt>(statement, [levels](sqlite3_stmt* each) { sqlite3_finalize(each); });
    };
    run(set);
    run("CREATE TABLE IF NOT EXISTS levels (key TEXT PRIMARY KEY, level REAL)");
    const auto replace = prepared("INSERT OR REPLACE INTO levels VALUES (?, ?)");
    const auto select = prepared("SELECT level FROM levels WHERE key = ?");
    return { name,
        [run, replace](double level) {
            run("BEGIN");
            for (const VolumeSlot& slot : volumeSlots) {
                sqlite3_bind_text(replace.get(), 1, slot.preferenceKey, -1, SQLITE_STATIC);
                sqlite3_bind_double(replace.get(), 2, level);
                sqlite3_step(replace.get());
                sqlite3_reset(replace.get());
            }
            run("COMMIT");
        },
        [select] {
            sqlite3_bind_text(select.get(), 1, volumeSlots[7].preferenceKey, -1, SQLITE_STATIC);
            sqlite3_step(select.get());
            const double level = sqlite3_column_double(select.get(), 0);
            sqlite3_reset(select.get());
            return level;
        } };
}

/// Nothing but what has to be: neither consistent after a power failure nor safe from another writer.
Store bareFile(const fs::path& folder)
{
    const fs::path file = folder / "bare.txt";
    return { "write and rename",
        [file](double level) {
            const fs::path beside = fs::path(file) += ".new";
            std::ofstream text(beside);
            text.precision(17);
            for (const VolumeSlot& slot : volumeSlots)
                text << slot.preferenceKey << ' ' << level << '\n';
            text.close();
            fs::rename(beside, file);
        },
        [file] {
            std::ifstream text(file);
            std::string key;
            double level = 0;
            while (text >> key >> level && key != volumeSlots[7].preferenceKey) { }
            return level;
        } };
}

std::vector<Store> storesIn(const fs::path& folder)
{
    using enum GFileSetContentsFlags;
    return {
        propertyList(folder, "levels.plist"),
        propertyListAnew(folder),
        keyFile(folder, "key file, consistent", G_FILE_SET_CONTENTS_CONSISTENT),
        keyFile(folder, "key file, durable",
            static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE)),
        database(folder, "SQLite", ""),
        database(folder, "SQLite, write-ahead log", "PRAGMA journal_mode=WAL"),
        bareFile(folder),
    };
}

double levelOf(int time)
{
    return 0.25 + time % 64 / 128.0;
}

double microsecondsFor(const std::function<void()>& work)
{
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double, std::micro>(Clock::now() - begin).count();
}

double median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// In turns: what else keeps the disk and the processor busy meets all of them.
void compare(const std::vector<Store>& stores)
{
    constexpr int rounds = 200;
    constexpr int readsARound = 10;
    struct Times {
        std::vector<double> saves, reads;
    };
    std::vector<Times> times(stores.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < stores.size(); ++i) {
            times[i].saves.push_back(microsecondsFor([&] { stores[i].save(levelOf(round)); }));
            for (int read = 0; read < readsARound; ++read) {
                double level = 0;
                times[i].reads.push_back(microsecondsFor([&] { level = stores[i].read(); }));
                if (level != levelOf(round))
                    fail(stores[i].name + " holds another level than was saved");
            }
        }
    }
    std::printf("%-24s%28s%28s\n", "", "twelve levels saved, us", "one level read, us");
    const double ourSave = median(times[0].saves);
    const double ourRead = median(times[0].reads);
    for (std::size_t i = 0; i < stores.size(); ++i) {
        const double save = median(times[i].saves);
        const double read = median(times[i].reads);
        std::printf("%-24s%13.1f, ours %7.2f x%13.2f, ours %7.2f x\n", stores[i].name.c_str(), save, ourSave / save,
            read, ourRead / read);
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2 && count != 5) {
        std::cerr << "stores: expected a folder, and perhaps a name, save or read, and a number\n";
        return 2;
    }
    const fs::path folder = arguments[1];
    fs::create_directories(folder);
    const auto stores = storesIn(folder);
    if (count == 2) {
        compare(stores);
        return 0;
    }
    const auto store = std::ranges::find(stores, arguments[2], &Store::name);
    if (store == stores.end())
        fail(std::string("no store '") + arguments[2] + "'");
    const bool reads = std::string_view(arguments[3]) == "read";
    store->save(levelOf(0));
    for (int time = std::atoi(arguments[4]); time > 0; --time)
        reads ? void(store->read()) : store->save(levelOf(time));
    return 0;
}
