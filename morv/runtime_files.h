// The files of the runtime: what a project is compiled with, and what stands in a work folder.
#pragma once

namespace morv {

// The sources beside the API main.
constexpr const char* kRuntimeSources[] = {"datafact.cpp",   "dde_server.cpp", "dfactres.cpp",
                                           "explain.cpp",    "inf_eng.cpp",    "justify.cpp",
                                           "output_list.cpp"};

// All else: the API main and its resources, headers, templates.
constexpr const char* kRuntimeOthers[] = {
    "apimorv.cpp",  "apimorv.rc",  "consts1.dat", "consts2.dat",   "consts3.dat", "datafact.h",
    "dde_server.h", "ddecom1.dat", "ddecom2.dat", "ddecom3.dat",   "ddecom4.dat", "dfactres.h",
    "explain.h",    "inf_eng.h",   "justify.h",   "output_list.h", "shell.h",     "state.h"};

} // namespace morv
