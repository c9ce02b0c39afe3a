#include "tests/fuzz/fuzz.h"

#include "tests/core/build_disk.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz({reinterpret_cast<const char*>(data), size});
    return 0;
}

namespace fuzz {

namespace {

const zentrik_test::Disk& OwnDisk() {
    static const zentrik_test::Disk disk;
    return disk;
}

} // namespace

void Holds(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

std::size_t Input::Byte() {
    const std::string_view taken = Take(1);
    return taken.empty() ? 0 : static_cast<unsigned char>(taken[0]);
}

std::size_t Input::Word() {
    const std::size_t low = Byte();
    return low + 256 * Byte();
}

std::string_view Input::Take(std::size_t size) {
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(taken.size());
    return taken;
}

std::string FileOf(std::string_view bytes) {
    OwnDisk().Put("input", bytes);
    return OwnDisk().Path("input");
}

std::string ContentOf(const std::string& path) {
    std::string text;
    Holds(files::ReadWhole(path.c_str(), files::Mode::Read, text),
          "a file that was written is there");
    return text;
}

} // namespace fuzz
