// The list in the program's window: what the rules say, the newest line last.
#ifndef MORV_OUTPUT_LIST
#define MORV_OUTPUT_LIST

#include <string>
#include <windows.h>

constexpr int kMostRows = 2000; // the log keeps more

HFONT DialogFont(); // the font of dialogs; it lasts as long as the program

// The list of a window, which is told of double-clicks; null when it cannot be made.
HWND MakeOutputList(HWND parent);

std::string SelectedLine(HWND list); // empty without one

void AddOutputLine(HWND list, const std::string& line);

// While it lives the list is not painted. At the end the newest line is shown, unless the person
// had scrolled up from it: then the lines in sight stay. Inside another one it does nothing.
class ListUpdate {
public:
    explicit ListUpdate(HWND list);
    ListUpdate(const ListUpdate&) = delete;
    ListUpdate& operator=(const ListUpdate&) = delete;
    ~ListUpdate();

private:
    static inline bool updating_ = false;
    HWND list_;
    bool outermost_, at_end_;
};

#endif
