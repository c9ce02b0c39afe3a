// The items that are poked: which there are, and what they take.
#ifndef MORV_ITEMS
#define MORV_ITEMS

#include <string>

namespace morv {

// A value for an item that was looked at and not yet given.
struct ItemValue {
    int item = -1;
    std::string text;  // as NewData takes it
    std::string wrong; // empty, or a line that says why the item does not take it
};

// Looks whether the item `name` takes the value `text`. A number may have a decimal comma. The case
// of a name counts only between items that differ in nothing else.
ItemValue LookAtValue(const std::string& name, const std::string& text);

// Gives the value to its item, which it was found right for.
void GiveValue(const ItemValue& value);

const char* ItemName(int item);

} // namespace morv

#endif
