// State that several modules share.
#pragma once

#include "shell/core/record_text.h"

// The work folder: the current folder at the start, without a last '\'.
extern char WorkPath[kNameSize];

// What the dialog "Add_Box" and the opposites dialog work on.
constexpr int kAddResults = 1; // results of the project
constexpr int kAddFacts = 2;   // facts of the system
extern int AddType;
extern char ResulFile[kNameSize];      // the results file chosen for "Add_Box"
extern char ResultFileName[kNameSize]; // the results file of the results and opposites dialogs
extern char DDEIKnw[kNameSize];        // the DDE items file last chosen by an editor of values
