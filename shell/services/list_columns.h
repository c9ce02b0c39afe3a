// The columns of a list box whose rows have TABs in them.
#pragma once

#include "shell/services/list_rows.h"

// A ListFill for such a list. At its end it sets the tab stops so that the columns align, and lets
// the list scroll sideways to the end of its widest row.
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
