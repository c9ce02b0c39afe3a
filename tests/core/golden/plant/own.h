// What the extern file of the project includes: once in the rules header, once in its own text.
#pragma once

inline int own(int a) { return a; }
