@echo off
rem Zentrik's compiler utility on Windows: makes the program of a project with the g++ on the PATH,
rem by way of zkcc.cpp, which is built beside it when it is not there yet.
setlocal
set "here=%~dp0"
if not exist "%here%zkcc.exe" g++ -std=c++17 -O1 -static -o "%here%zkcc.exe" "%here%zkcc.cpp" "%here%command_line.cpp" "%here%translate.cpp" "%here%rule_blocks.cpp" "%here%tokens.cpp" || exit /b 1
"%here%zkcc.exe" %*
