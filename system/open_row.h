// What a double-click on a row of the project or system window opens. The documents know which row
// is selected; without one nothing happens.
#pragma once

#include <string>

void EditItem();  // a row of the project window
void EditItem2(); // a row of the system window

// Opens a system, unless one is open: that one stays, and comes to the front when it is this one.
void OpenSystem(const std::string& name);
