// The rows of a list box.
#pragma once

#include "shell/services/text_measure.h"

#include <optional>
#include <string>
#include <windows.h>

class ListRows {
public:
    explicit ListRows(HWND list) : list_(list) {}

    int Count() const;
    std::string RowText(int row) const; // empty when there is no such row
    int Selected() const;               // -1 when there is none
    std::optional<std::string> SelectedText() const;
    int FindExact(const std::string& text) const;  // any letter case; -1 when absent
    int FindPrefix(const std::string& text) const; // any letter case; -1 when absent
    void Select(int row);
    int Add(const std::string& text); // at the end, or in its place in a sorted list
    int Insert(int row, const std::string& text);
    bool Delete(int row);  // false when there is no such row
    bool DeleteSelected(); // false when there is none
    void Clear();

private:
    void Widen(const std::string& text);

    HWND list_;
};

// Lets a list scroll sideways to the end of its widest row; one made without a horizontal scroll
// bar ignores it.
class ListWidth {
public:
    explicit ListWidth(HWND list);

    void Take(const std::string& row);

private:
    HWND list_;
    TextMeasure measure_;
    int width_; // rows up to this width can be seen whole
};

// While one of these lives its list is not repainted, only once at the end. Use it around every
// loop that changes rows. Of several at once for a list the one made first does it all.
class ListFill {
public:
    enum class Width { OfEachRow, FoundAtTheEnd };

    // `rows` and `bytes` of text are reserved when known.
    explicit ListFill(HWND list, int rows = 0, int bytes = 0)
        : ListFill(list, Width::OfEachRow, rows, bytes) {}
    // With FoundAtTheEnd the rows that are added do not widen the list: who fills it will.
    ListFill(HWND list, Width width, int rows = 0, int bytes = 0);
    ListFill(const ListFill&) = delete;
    ListFill& operator=(const ListFill&) = delete;
    ~ListFill();

private:
    HWND list_;
    bool first_; // of those that live for the list
};
