// Help and About. Help is the help file of the work folder; without one it is the guide beside the
// program, and without that the viewer is asked for the help file all the same.
#pragma once

#include <windows.h>

void ContentsHelp(HWND hwnd);           // the help file's contents
void IndexHelp(HWND hwnd);              // the help file's index topic
void AboutZentrik(HWND hwnd);           // the About box
void TopicHelp(HWND hwnd, DWORD topic); // a topic of the help file by context number
