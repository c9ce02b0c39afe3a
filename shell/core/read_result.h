// What came of reading a project or system file.
#pragma once

enum class ReadResult {
    Ok,
    Missing, // cannot be opened for reading and writing
    Damaged, // items are missing: what is whole was read, counts set to match
    Useless, // shorter than its fixed part, or counts that no such file has: nothing was read
};
