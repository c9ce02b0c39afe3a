// What a double-click on a row of the project or system window opens. The documents know which row
// is selected; without one nothing happens.
#pragma once

void EditItem();  // a row of the project window
void EditItem2(); // a row of the system window
