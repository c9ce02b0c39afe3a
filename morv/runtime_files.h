// The files of the runtime: what a project is compiled with, and what stands in a work folder.
#pragma once

namespace morv {

// What is compiled beside the API main.
constexpr const char* kRuntimeSources[] = {"runtime_engine.cpp", "runtime_window.cpp"};

// What is compiled into a program for the console.
constexpr const char* kConsoleSources[] = {"runtime_engine.cpp", "console_main.cpp"};

// All else: what these hold, the API main and its resources, the one for a console, headers,
// templates.
constexpr const char* kRuntimeOthers[] = {
    "apimorv.cpp",      "apimorv.rc",    "commands.cpp",    "commands.h",     "console_main.cpp",
    "consts1.dat",      "consts2.dat",   "consts3.dat",     "datafact.cpp",   "datafact.h",
    "dde_server.cpp",   "dde_server.h",  "ddecom1.dat",     "ddecom2.dat",    "ddecom3.dat",
    "ddecom4.dat",      "dfactres.cpp",  "dfactres.h",      "entry_line.cpp", "entry_line.h",
    "explain.cpp",      "explain.h",     "inf_eng.cpp",     "inf_eng.h",      "items.cpp",
    "items.h",          "justify.cpp",   "justify.h",       "names.cpp",      "names.h",
    "output_list.cpp",  "output_list.h", "program_log.cpp", "program_log.h",  "program_window.cpp",
    "program_window.h", "session.cpp",   "session.h",       "shell.h",        "state.h"};

} // namespace morv
