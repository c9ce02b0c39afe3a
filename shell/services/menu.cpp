#include "shell/services/menu.h"

#include "shell/services/mdi.h"

namespace {

// One run of items of the menu. A popup of -1 is the menu bar itself.
struct GroupItems {
    int group;
    int popup; // position in the menu bar, before the system menu of a maximised child
    int first; // positions in the popup
    int last;
    bool by_position; // a popup has no command identifier and is changed by its position
};

constexpr int kBar = -1;

constexpr GroupItems kGroups[] = {
    {kProjectItems, 0, 8, 8, false},    // Remove MORV Item
    {kAddProjectItem, 0, 7, 7, true},   // Add MORV Item
    {kOpenProject, 0, 2, 4, false},     // Save MORV, Save MORV as, Close MORV
    {kBuildProject, kBar, 3, 3, false}, // Debug
    {kBuildProject, 4, 1, 1, false},    // Compile
    {kOpenSystem, 1, 2, 4, false},      // Save MORV System, Save MORV System As, Close MORV System
    {kOpenSystem, 1, 7, 7, true},       // Add Resource
    {kSystemResources, 1, 8, 8, false}, // Remove
    {kTextOnTop, 5, 7, 9, false},       // Save File, Save File As, Close File
    {kSystemFacts, 1, 9, 9, false},     // a separator: Init Facts Base is always available
};

// With a maximised child the menu bar starts with that child's system menu. Items of the bar itself
// are taken without that offset, so Debug then stays as it was.
HMENU MenuOf(HMENU bar, const GroupItems& items) {
    if (items.popup == kBar)
        return bar;
    const HWND child = GetMdi();
    const int offset = child && IsZoomed(child) ? 1 : 0;
    return GetSubMenu(bar, items.popup + offset);
}

void ChangeItems(HMENU menu, const GroupItems& items, UINT state) {
    for (int position = items.first; position <= items.last; ++position) {
        if (items.by_position) {
            EnableMenuItem(menu, static_cast<UINT>(position), MF_BYPOSITION | state);
            continue;
        }
        const UINT id = GetMenuItemID(menu, position);
        if (id != static_cast<UINT>(-1))
            EnableMenuItem(menu, id, MF_BYCOMMAND | state);
    }
}

void ChangeGroup(HWND hwnd, int group, UINT state) {
    // What GetMenu returns for a child window is its identifier.
    const HMENU bar = GetMenu(hwnd);
    if (!IsMenu(bar))
        return;
    for (const GroupItems& items : kGroups)
        if (items.group == group)
            ChangeItems(MenuOf(bar, items), items, state);
    DrawMenuBar(hwnd);
}

} // namespace

void GrayMenu(HWND hwnd, int a) {
    ChangeGroup(hwnd, a, MF_GRAYED);
}

void EnableMenu(HWND hwnd, int a) {
    ChangeGroup(hwnd, a, MF_ENABLED);
}
