#include "resources/core/facts_file.h"

#include "shell/core/paths.h"
#include "shell/core/replacement.h"

#include <limits>

namespace {

constexpr std::size_t kAtEnd = std::numeric_limits<std::size_t>::max();

// Writes fact `index`, or one behind the last when there is no such fact. Returns where it stands,
// or -1 on failure.
int WriteFact(const char* path, files::Mode mode, std::size_t index, const Dat& fact) {
    const int han = files::Open(path, mode);
    if (han == -1)
        return -1;
    const std::int64_t length = files::Length(han);
    bool ok = length >= 0;
    if (ok) {
        index = std::min(index, static_cast<std::size_t>(length) / sizeof(Dat));
        const auto at = static_cast<std::int64_t>(index * sizeof(Dat));
        std::string before(
            static_cast<std::size_t>(std::min<std::int64_t>(length - at, sizeof fact)), '\0');
        ok = files::Seek(han, at, files::Origin::Start) == at &&
             files::Read(han, before.data(), static_cast<unsigned>(before.size())) ==
                 static_cast<int>(before.size()) &&
             files::Seek(han, at, files::Origin::Start) == at;
        if (ok && !(files::WriteAll(han, BytesOf(fact)) && files::Flush(han))) {
            ok = false;
            // What could not be written whole must not leave its beginning behind.
            const int reason = files::LastError();
            if (files::Seek(han, at, files::Origin::Start) == at)
                files::WriteAll(han, before);
            files::ChangeSize(han, length);
            files::SetLastError(reason);
        }
    }
    return files::Close(han) && ok ? static_cast<int>(index) : -1;
}

} // namespace

std::string TypesFileOf(const char* path) {
    return WithExtension(path, ".typ");
}

std::int32_t IdentAfter(std::int32_t ident) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(ident) + 1);
}

std::int32_t NextIdent(const std::vector<Dat>& facts) {
    return facts.size() > 1 ? IdentAfter(facts.back().Ident) : 2;
}

bool ReadFact(const char* path, std::size_t index, Dat& fact) {
    const int han = files::Open(path, files::Mode::Read);
    if (han == -1)
        return false;
    const auto at = static_cast<std::int64_t>(index * sizeof(Dat));
    Dat read;
    const bool ok = files::Seek(han, at, files::Origin::Start) == at &&
                    files::Read(han, &read, sizeof read) == static_cast<int>(sizeof read);
    if (ok)
        fact = read;
    files::Close(han);
    return ok;
}

int AppendFact(const char* path, const Dat& fact) {
    return WriteFact(path, files::Mode::UpdateOrCreate, kAtEnd, fact);
}

int ReplaceFact(const char* path, std::size_t index, const Dat& fact) {
    return WriteFact(path, files::Mode::Update, index, fact);
}

Removal RemoveFact(const char* path, std::size_t index) {
    std::string bytes;
    if (!files::ReadWhole(path, files::Mode::Update, bytes))
        return Removal::Failed;
    if (index >= bytes.size() / sizeof(Dat))
        return Removal::NoSuchFact;
    bytes.erase(index * sizeof(Dat), sizeof(Dat));
    files::Replacement files;
    if (bytes.size() >= sizeof(Dat)) {
        files.Put(path, bytes, files::Before::Dropped);
    } else {
        files.TakeAway(path, files::Before::Dropped);
        files.TakeAway(TypesFileOf(path), files::Before::Kept);
    }
    return files.CarryOut() ? Removal::Done : Removal::Failed;
}
