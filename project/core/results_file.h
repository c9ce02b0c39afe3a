// The project's auxiliary results file (.aux): the result names chosen for the project. A file that
// cannot be opened for reading and writing is left alone, which is no failure; a failure, which
// returns false, leaves the file as it was.
#pragma once

// Takes every name that also stands in the results file `results`, which must be writable as well,
// out of the auxiliary file `auxiliary`.
bool PruneResults(const char* auxiliary, const char* results);

// Empties the auxiliary file.
bool EmptyResults(const char* auxiliary);
