// The columns of a list box whose rows have TABs in them.
#pragma once

#include "shell/services/list_rows.h"

// A ListFill for such a list: at its end the tab stops are where the columns align whatever is in
// the rows, and the list can be scrolled sideways to the end of its rows.
class ColumnFill {
public:
    explicit ColumnFill(HWND list, int rows = 0, int bytes = 0);
    ColumnFill(const ColumnFill&) = delete;
    ColumnFill& operator=(const ColumnFill&) = delete;
    ~ColumnFill();

private:
    HWND list_;
    ListFill fill_;
};
