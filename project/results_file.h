// The project's auxiliary results file (.aux): the result names chosen for the project.
#pragma once

// Takes every name that also stands in the results file `results` out of the auxiliary file
// `auxiliary`. Does nothing when either cannot be opened for reading and writing.
void PruneResults(const char* auxiliary, const char* results);

// Empties the auxiliary file; does nothing when it cannot be opened.
void EmptyResults(const char* auxiliary);
