// "KnowType_Box": the knowledge types that were added to a facts base.
#pragma once

#include "shell/core/record_text.h"

#include <windows.h>

extern char KTypeFileName[kNameSize]; // the knowledge types file being edited

INT_PTR CALLBACK TypeKnowledge(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
