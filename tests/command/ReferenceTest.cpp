/// docs/scenario.md against the program: its tables are the program's own, and its examples are true.
#include "tests/command/CommandLine.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <vector>

namespace panotra::testing {
namespace {

using Json = nlohmann::ordered_json;
using Row = std::vector<std::string>;

class Reference : public CommandLine {
protected:
    Reference()
    {
        std::ostringstream text;
        text << std::ifstream(PANOTRA_SOURCES "/docs/scenario.md").rdbuf();
        page = text.str();
        const std::string fence = "\n```\n";
        const auto begin = page.find(fence) + fence.size();
        scenario = page.substr(begin, page.find(fence, begin) + 1 - begin);
    }

    /// The rows below the heading, without the titles. Code is bare.
    std::vector<Row> table(const std::string& title) const
    {
        std::vector<Row> rows;
        std::istringstream lines(page.substr(page.find("\n## " + title + '\n') + 1));
        std::string line;
        std::getline(lines, line);
        while (std::getline(lines, line) && !line.starts_with("## ")) {
            if (line.starts_with('|'))
                rows.push_back(cellsOf(line));
        }
        rows.erase(rows.begin(), rows.begin() + std::min<std::ptrdiff_t>(2, std::ssize(rows)));
        return rows;
    }

    /// The event of that name which the scenario of the page leaves.
    Json event(const std::string& name) const
    {
        write("page", scenario);
        std::istringstream lines(run("play page --format json").output);
        for (std::string line; std::getline(lines, line);) {
            if (auto found = Json::parse(line); found.at("event") == name)
                return found;
        }
        return {};
    }

    std::string page;
    std::string scenario;

private:
    static Row cellsOf(const std::string& line)
    {
        Row cells;
        std::string cell;
        for (std::size_t place = 1; place < line.size(); ++place) {
            if (line[place] == '\\' && line.substr(place + 1, 1) == "|") {
                cell += line[++place];
            } else if (line[place] != '|') {
                cell += line[place];
            } else {
                cells.push_back(cell.size() < 2 ? "" : cell.substr(1, cell.size() - 2));
                if (std::ranges::count(cells.back(), '`') == 2 && cells.back().front() == '`'
                    && cells.back().back() == '`')
                    cells.back() = cells.back().substr(1, cells.back().size() - 2);
                cell.clear();
            }
        }
        return cells;
    }
};

/// The paths to all values that are no objects, with the words of the page for what varies. A list counts as one value
/// with its elements at N, but for a list of objects.
void collectPaths(const Json& value, const std::string& path, std::set<std::string>& paths)
{
    const auto below = [&](const std::string& part) {
        return path.empty() ? part : path + '.' + part;
    };
    if (value.is_object()) {
        for (const auto& [key, element] : value.items()) {
            const auto part = path == "sliders" ? "SLOT"
                : path == "system"              ? "CATEGORY"
                : path == "prefs"               ? "DOMAIN"
                : path == "prefs.DOMAIN"        ? "KEY"
                                                : key;
            collectPaths(element, below(part), paths);
        }
    } else if (value.is_array() && !value.empty() && value.front().is_object()) {
        for (const auto& element : value)
            collectPaths(element, below("N"), paths);
    } else {
        paths.insert(path);
    }
}

TEST_F(Reference, IsWhatTheProgramPrints)
{
    const auto marker = page.find("\n<!-- What follows is the output of ");
    ASSERT_NE(marker, page.npos);
    EXPECT_EQ(page.substr(page.find('\n', marker + 1) + 1), run("play --reference").output)
        << "scripts/write-reference writes the page anew";
}

TEST_F(Reference, HasTrueExamplesForEveryPath)
{
    const auto rows = table("State");
    EXPECT_GT(rows.size(), 30u);
    auto text = scenario;
    for (const auto& row : rows)
        text += row.at(2) + '\n';
    write("true", text);
    const auto ended = run("play true");
    EXPECT_EQ(ended.status, 0) << ended.errors;
}

TEST_F(Reference, HasEveryPathOfTheStateAndNoOther)
{
    auto state = event("state");
    ASSERT_TRUE(state.is_object());
    state.erase("t");
    state.erase("event");
    std::set<std::string> found;
    collectPaths(state, {}, found);
    std::set<std::string> told;
    for (const auto& row : table("State"))
        told.insert(row.at(0));
    EXPECT_EQ(told, found);
}

/// The nodes of a tree by the words that the page has for what they are; "every view" and its layer for all.
void collectNodes(const Json& node, std::map<std::string, std::vector<Json>>& nodes)
{
    const std::map<std::string, std::string> words { { "PNOWindow", "the window" }, { "UILabel", "a label" },
        { "UIImageView", "an image view" }, { "_UIBackdropView", "a backdrop" }, { "PNOVolumeView", "a slider" } };
    nodes["every view"].push_back(node);
    nodes["its `layer`"].push_back(node.at("layer"));
    if (const auto found = words.find(node.at("class").get<std::string>()); found != words.end())
        nodes[found->second].push_back(node);
    for (const auto& subview : node.at("subviews"))
        collectNodes(subview, nodes);
}

TEST_F(Reference, HasEveryFieldOfTheTreeAndNoOther)
{
    const auto tree = event("tree");
    ASSERT_TRUE(tree.is_object());
    std::map<std::string, std::vector<Json>> nodes;
    collectNodes(tree.at("root"), nodes);
    std::map<std::string, std::set<std::string>> told;
    for (const auto& row : table("Tree"))
        told[row.at(0)].insert(row.at(1));
    EXPECT_EQ(told.size(), nodes.size());
    for (const auto& [words, some] : nodes) {
        for (const auto& node : some) {
            std::set<std::string> found;
            for (const auto& [field, value] : node.items()) {
                if (words == "every view" ? told[words].contains(field) : !told["every view"].contains(field))
                    found.insert(field);
            }
            EXPECT_EQ(told[words], found) << words << ' ' << node;
        }
    }
    // What is told of no kind of view is in no view.
    for (const auto& view : nodes["every view"]) {
        for (const auto& [field, value] : view.items()) {
            const auto isToldOf = [&name = field](const auto& kind) {
                return kind.second.contains(name);
            };
            EXPECT_TRUE(std::ranges::any_of(told, isToldOf)) << field;
        }
    }
}

TEST_F(Reference, HasTrueExamplesForEveryFieldOfTheTree)
{
    std::map<std::string, std::vector<Json>> nodes;
    collectNodes(event("tree").at("root"), nodes);
    for (const auto& row : table("Tree")) {
        if (row.at(3).empty())
            continue;
        const auto fields = Json::parse('{' + row.at(3) + '}');
        const auto example = fields.begin();
        EXPECT_EQ(example.key(), row.at(1));
        const auto& some = nodes.at(row.at(0));
        const auto has = [&example](const Json& node) {
            const auto& value = node.at(example.key());
            return value == example.value()
                || (value.is_number_float()
                    && std::abs(value.get<double>() - example.value().get<double>()) < 1e-6); // the page rounds
        };
        EXPECT_TRUE(std::ranges::any_of(some, has))
            << row.at(0) << ": " << row.at(3) << " is nowhere in " << Json(some);
    }
}

TEST_F(Reference, ListsEveryEventThatItsScenarioLeaves)
{
    write("page", scenario);
    std::set<std::string> told;
    for (const auto& row : table("Events"))
        told.insert(row.at(0));
    EXPECT_GT(told.size(), 30u);
    std::istringstream lines(run("play page --format json").output);
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(told.contains(Json::parse(line).at("event").get<std::string>())) << line;
}

} // namespace
} // namespace panotra::testing
