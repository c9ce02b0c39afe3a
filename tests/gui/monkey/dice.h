// All that is left to chance, from one seed.
#pragma once

#include <cstddef>
#include <random>
#include <vector>

namespace monkey {

class Dice {
public:
    explicit Dice(unsigned seed) : random_(seed) {}

    // From 0 to `limit` - 1; 0 for a limit of 0. The standard's own distributions may differ from
    // one library to the next, and a seed is to mean the same everywhere.
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    bool Percent(std::size_t chance) { return Below(100) < chance; }

    template <class Item> const Item& One(const std::vector<Item>& items) {
        return items[Below(items.size())];
    }

private:
    std::mt19937 random_;
};

} // namespace monkey
