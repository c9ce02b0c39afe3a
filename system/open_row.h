// What a double-click on a row of the project or system window opens.
#pragma once

void EditItem(int index, const char* nom);  // a row of the project window
void EditItem2(int index, const char* nom); // a row of the system window
