// "KnowType_Box": the knowledge types that were added to a facts base.
#pragma once

#include "shell/core/record_text.h"

#include <windows.h>

extern char KTypeFileName[kNameSize]; // the knowledge types file being edited

// Edits that file in a dialog without an owner, which leaves the facts base usable. Where one edits
// it already, that one comes to the front.
void EditKnowledgeTypes();
INT_PTR CALLBACK TypeKnowledge(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
