// The rows of a list box.
#pragma once

#include <string>
#include <windows.h>

class ListRows {
public:
    explicit ListRows(HWND list) : list_(list) {}

    int Count() const;
    std::string RowText(int row) const;            // empty when there is no such row
    int Selected() const;                          // -1 when there is none
    int FindExact(const std::string& text) const;  // any letter case; -1 when absent
    int FindPrefix(const std::string& text) const; // any letter case; -1 when absent
    void Select(int row);
    int Add(const std::string& text); // at the end, or in its place in a sorted list
    int Insert(int row, const std::string& text);
    bool Delete(int row); // false when there is no such row
    void Clear();

private:
    HWND list_;
};

// While one of these lives its list is not repainted; it is once at the end. Use it around every
// loop that changes rows. With several at once for a list the first one counts.
class ListFill {
public:
    // `rows` and `bytes` of text are reserved when known.
    explicit ListFill(HWND list, int rows = 0, int bytes = 0);
    ListFill(const ListFill&) = delete;
    ListFill& operator=(const ListFill&) = delete;
    ~ListFill();

private:
    HWND list_;
    bool first_;
};
