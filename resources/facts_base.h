// "Knowledge_Box": the facts base editor.
#pragma once

#include "shell/core/record_text.h"

#include <windows.h>

extern char KnowFileName[kNameSize]; // the facts base being edited
extern int KTyp;                     // 1: it is an existing file, 0: a new one was named

void NewKnowledge(HWND hwnd); // asks for a new facts base and edits it
INT_PTR CALLBACK KnowledgeNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
