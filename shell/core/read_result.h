// What came of reading a project or system file.
#pragma once

enum class ReadResult {
    Ok,
    Missing, // cannot be opened for reading and writing
    Damaged, // counts out of range or items missing: what is whole was read, counts set to match
    Useless, // shorter than its fixed part: nothing was read
};
