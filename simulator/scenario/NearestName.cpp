/// The distance between words, and how much of it still is a slip of the finger.
#include "simulator/scenario/NearestName.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace panotra::sim {

namespace {

char asSmallLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::size_t editDistance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t { 0 });
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const auto exchanged = diagonal + (asSmallLetter(a[i]) == asSmallLetter(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({ exchanged, row[j] + 1, diagonal + 1 });
        }
    }
    return row.back();
}

} // namespace

std::optional<std::size_t> misspelling(std::string_view word, std::string_view name)
{
    // Another number is meant as it stands.
    if (word != name && word.find_first_not_of("0123456789") == word.npos)
        return std::nullopt;
    // Of a short word half may be wrong, of a long one two letters. Longer words are not even compared.
    const auto farthest = std::min<std::size_t>(2, word.size() / 2);
    if (word.size() > name.size() + farthest || name.size() > word.size() + farthest)
        return std::nullopt;
    const auto distance = editDistance(word, name);
    return distance <= farthest ? std::optional(distance) : std::nullopt;
}

std::string didYouMean(std::string_view word, std::span<const std::string_view> names)
{
    std::optional<std::size_t> least;
    std::string_view nearest;
    for (const auto name : names) {
        const auto distance = misspelling(word, name);
        if (distance && (!least || *distance < *least)) {
            least = distance;
            nearest = name;
        }
    }
    return least ? " (did you mean " + std::string(nearest) + "?)" : std::string();
}

} // namespace panotra::sim
