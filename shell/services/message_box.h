// Message boxes on the screen.
#pragma once

// Has ShowMessage show real boxes.
void UseMessageBoxes();
