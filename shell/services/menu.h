// Greying and enabling menu items, by groups.
#pragma once

#include <windows.h>

// The groups of items, by what they need.
enum MenuGroup {
    kProjectItems = 1,    // Remove MORV Item
    kAddProjectItem = 2,  // the popup Add MORV Item
    kOpenProject = 3,     // Save MORV, Save MORV as, Close MORV
    kBuildProject = 4,    // Debug, Compile
    kOpenSystem = 5,      // Save, Save As and Close MORV System, the popup Add Resource
    kSystemResources = 6, // Remove
    kTextOnTop = 7,       // Save File, Save File As, Close File
    kSystemFacts = 8,     // no visible effect
};
constexpr MenuGroup kProjectGroups[] = {kProjectItems, kAddProjectItem, kOpenProject,
                                        kBuildProject};
constexpr MenuGroup kSystemGroups[] = {kOpenSystem, kSystemResources};

// Both change the items of group `a` in the menu of `hwnd`, if it has one.
void GrayMenu(HWND hwnd, int a);
void EnableMenu(HWND hwnd, int a);
