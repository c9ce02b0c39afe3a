// The project's auxiliary results file (.aux): the result names chosen for the project. Both
// functions leave a file alone that cannot be opened for reading and writing, and return true. They
// return false when the file could not be written; it is then as it was.
#pragma once

// Takes every name that also stands in the results file `results`, which must be writable as well,
// out of the auxiliary file `auxiliary`.
bool PruneResults(const char* auxiliary, const char* results);

// Empties the auxiliary file.
bool EmptyResults(const char* auxiliary);
