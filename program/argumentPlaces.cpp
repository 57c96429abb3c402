#include "program/argumentPlaces.h"

#include <algorithm>

namespace {

// Of A to Z.
constexpr int kPlaces[] = {1, 2, 3, 7,  8,  9,  0,  11, 4,  5,  6,  0,  13,
                           0, 0, 0, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26};
constexpr int kFirstOfSets = 4;
constexpr int kLastOfSets = 33;

int placeOf(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? kPlaces[letter - 'A'] : 0;
}

bool isSetLetter(char letter) noexcept { return letter >= 'I' && letter <= 'K'; }

} // namespace

std::vector<int> argumentPlaces(std::string_view letters) {
    const bool hasSets = std::ranges::any_of(
        letters, [&](char c) { return isSetLetter(c) && std::ranges::count(letters, c) > 1; });
    std::vector<int> places;
    int set = 0;
    char before = '\0'; // of the set letters
    for (const char letter : letters) {
        if (!hasSets || !isSetLetter(letter)) {
            places.push_back(placeOf(letter));
            continue;
        }
        // A letter that does not come later in the alphabet begins the next set.
        set += before != '\0' && letter <= before ? 1 : 0;
        before = letter;
        const int place = kFirstOfSets + 3 * set + (letter - 'I');
        places.push_back(place > kLastOfSets ? 0 : place);
    }
    return places;
}
