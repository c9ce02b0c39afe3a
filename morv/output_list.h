// The list in the program's window: what the rules say, the newest line last.
#ifndef MORV_OUTPUT_LIST
#define MORV_OUTPUT_LIST

#include <string>
#include <windows.h>

// The list of a window; null when it cannot be made.
HWND MakeOutputList(HWND parent);

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
