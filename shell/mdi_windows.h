// The window procedures of the four kinds of MDI children.
#pragma once

#include <windows.h>

LRESULT CALLBACK MdiFunc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);  // text editor
LRESULT CALLBACK MdiFunc2(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam); // project
LRESULT CALLBACK MdiFunc3(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam); // system
LRESULT CALLBACK MdiFunc4(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam); // messages
