// The rule check and the generators over a project whose files are damaged. The input is a row of
// changes: which file, where, how many bytes, and the bytes, which take the place of all that was
// there from that place on.
#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "tests/core/build_disk.h"
#include "tests/core/check_log.h"
#include "tests/fuzz/fuzz.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::CheckLog;
using zentrik_test::Disk;

constexpr const char* kFiles[] = {"first.lse", "first.typ",  "first.rul", "first.siz",
                                  "first.hdr", "first.var",  "first.ikw", "plant.dde",
                                  "plant.aux", "extern.cpp", "main.cpp",  "morv\\ddecom1.dat"};

// The sound project, put down once; its files are kept as texts.
struct Sound {
    Sound() : project(zentrik_test::PutSampleProject(disk)) {
        for (const char* name : kFiles)
            contents.push_back(disk.Content(name));
    }

    Disk disk;
    ProjectRecord project;
    std::vector<std::string> contents;
};

const Sound& TheSound() {
    static const Sound sound;
    return sound;
}

// Puts the changed files down, and the project record as the last of them.
ProjectRecord Damaged(fuzz::Input input) {
    const Sound& sound = TheSound();
    std::vector<std::string> contents = sound.contents;
    contents.emplace_back(BytesOf(sound.project));
    while (!input.AtEnd()) {
        std::string& content = contents[input.Byte() % contents.size()];
        const std::size_t at = std::min(input.Word(), content.size());
        const std::size_t size = input.Word();
        content.replace(at, content.npos, input.Take(size));
    }
    for (std::size_t i = 0; i < sound.contents.size(); ++i)
        sound.disk.Put(kFiles[i], contents[i]);
    ProjectRecord project = sound.project;
    std::memcpy(&project, contents.back().data(), std::min(contents.back().size(), sizeof project));
    return project;
}

struct Generated {
    std::vector<int> results;
    std::vector<std::string> files;

    bool operator==(const Generated&) const = default;
};

Generated Build(const ProjectRecord& project) {
    const Disk& disk = TheSound().disk;
    const BuildNames names(disk.Path("plant.mrv").c_str());
    const SupportInput in{project, names, disk.Path("morv"), disk.Path("work"), nullptr};
    SystemHead last{};
    Boxes boxes;
    Generated generated;
    const auto run = [&](int result, const std::string& file) {
        fuzz::Holds(result == 0 || (result == -1 && !boxes.shown.empty()), "what fails says so");
        generated.results.push_back(result);
        std::string& text = generated.files.emplace_back();
        files::ReadWhole(file.c_str(), files::Mode::Read, text);
    };
    run(CrearRulesH(project, names.rules_h.c_str(), nullptr), names.rules_h);
    run(CrearRulesCpp(project, last, names.rules_cpp.c_str(), "plantR.h", nullptr),
        names.rules_cpp);
    run(WriteDdecom(in), names.ddecom_h);
    run(WriteConsts(in, last), names.consts_h);
    run(WriteMorvApi(in), disk.Path("morv\\MorvApi.h"));
    return generated;
}

} // namespace

void Fuzz(std::string_view input) {
    const ProjectRecord project = Damaged(fuzz::Input(input));
    CheckLog log;
    Lexical anul = Lexical::Code;
    Boxes boxes;
    CheckProject(project, anul, log, nullptr);
    const Generated once = Build(project);
    fuzz::Holds(Build(project) == once, "the same project makes the same files");
}
