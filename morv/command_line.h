// What Zentrik tells the compiler utility.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace morv {

struct Job {                        // texts are UTF-8 on Windows
    std::string api;                // the API main's source, without its extension
    std::string resource;           // its resource script
    std::string rules;              // the rules source, in `project`
    std::string dde;                // the DDE source, in `project`
    std::filesystem::path runtime;  // the MORV Path
    std::filesystem::path project;  // the project folder
    std::filesystem::path include;  // more headers; may be empty
    std::filesystem::path compiler; // where the compiler is; may be empty
    std::filesystem::path work;     // Zentrik's work folder
    std::string program;            // what to make in `project`, without an extension
    bool console = false;           // make one for this system's console, of the runtime alone
};

// Reads the words of the command line: the names of the API main, its resource script, the rules
// source and the DDE source, then the five paths of a job in their order. Blanks in paths and in
// the name of the rules source have cut them into words; of the ways to put the words together the
// one counts whose paths are there. Returns an empty text, or what is wrong; `project` is set also
// then when it was found.
std::string ReadCommandLine(const std::vector<std::string>& words, Job& job);

// A path, or a name alone, as this system knows it. Off Windows a path with a drive belongs to a
// Wine prefix, whose names have any case.
std::filesystem::path HostPath(const std::string& path);

// Where the program of a job goes.
std::filesystem::path ProgramOf(const Job& job);

} // namespace morv
