// Help and About.
#pragma once

#include <windows.h>

void ContentsHelp(HWND hwnd);           // the help file's contents
void IndexHelp(HWND hwnd);              // the help file's index topic
void AboutZentrik(HWND hwnd);           // the About box
void TopicHelp(HWND hwnd, DWORD topic); // a topic of the help file by context number
