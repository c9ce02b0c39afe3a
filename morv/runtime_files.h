// The files of the runtime: what a project is compiled with, and what stands in a work folder.
#pragma once

namespace morv {

// The sources beside the API main.
constexpr const char* kRuntimeSources[] = {
    "commands.cpp",    "datafact.cpp",    "dde_server.cpp",     "dfactres.cpp", "entry_line.cpp",
    "explain.cpp",     "inf_eng.cpp",     "items.cpp",          "justify.cpp",  "names.cpp",
    "output_list.cpp", "program_log.cpp", "program_window.cpp", "session.cpp"};

// The sources of a program for the console.
constexpr const char* kConsoleSources[] = {
    "commands.cpp", "console_main.cpp", "datafact.cpp", "dfactres.cpp", "explain.cpp",
    "inf_eng.cpp",  "items.cpp",        "justify.cpp",  "names.cpp",    "session.cpp"};

// All else: the API main and its resources, the one for a console, headers, templates.
constexpr const char* kRuntimeOthers[] = {
    "apimorv.cpp",   "apimorv.rc",    "commands.h",       "console_main.cpp", "consts1.dat",
    "consts2.dat",   "consts3.dat",   "datafact.h",       "dde_server.h",     "ddecom1.dat",
    "ddecom2.dat",   "ddecom3.dat",   "ddecom4.dat",      "dfactres.h",       "entry_line.h",
    "explain.h",     "inf_eng.h",     "items.h",          "justify.h",        "names.h",
    "output_list.h", "program_log.h", "program_window.h", "session.h",        "shell.h",
    "state.h"};

} // namespace morv
