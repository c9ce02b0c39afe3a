#include "shell/core/file_helpers.h"

#include "shell/core/files.h"
#include "shell/core/messages.h"

#include <cerrno>
#include <cstring>

namespace {

constexpr std::size_t kLongestText = 256;
constexpr std::size_t kPiece = 1u << 16;

const char* ReasonText() {
    switch (files::LastError()) {
    case ENOENT:
        return "No such file or directory";
    case EMFILE:
        return "Too many open files";
    case EACCES:
        return "Permison denied";
    case EINVAL:
        return "Invalid acces code";
    default:
        return nullptr;
    }
}

void ShowReason(const char* text) {
    ShowMessage(nullptr, text, "WARNING", Buttons::Ok, Icon::Stop);
}

} // namespace

std::ptrdiff_t FindStr(std::string_view name, std::string_view text, std::ptrdiff_t ini) {
    if (name.empty() || ini < 0)
        return -1;
    const auto len = static_cast<std::ptrdiff_t>(text.size());
    const auto size = static_cast<std::ptrdiff_t>(name.size());
    std::ptrdiff_t a = 0;
    for (std::ptrdiff_t i = ini; i < len;) {
        if (a == 0) {
            // Nothing matched yet: jump to the next place where a match can start.
            const void* start =
                std::memchr(text.data() + i, name[0], static_cast<std::size_t>(len - i));
            if (!start)
                return -1;
            i = static_cast<const char*>(start) - text.data();
        }
        a = text[i] == name[a] ? a + 1 : 0;
        i += 1;
        if (a == size)
            return i - a;
    }
    return -1;
}

int FindStr(const char* name, const char* text, int len, int ini) {
    if (len <= 0)
        return -1;
    return static_cast<int>(
        FindStr(name, std::string_view(text, static_cast<std::size_t>(len)), ini));
}

bool OutputFile::Create(const char* path) {
    Close();
    ok_ = true;
    han_ = files::Open(path, files::Mode::Create);
    return han_ != -1;
}

void OutputFile::Add(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kPiece)
        Flush();
}

void OutputFile::Flush() {
    std::string_view rest = buffer_;
    while (ok_ && han_ != -1 && !rest.empty()) {
        const int put = files::Write(han_, rest.data(), static_cast<unsigned>(rest.size()));
        ok_ = put > 0;
        if (ok_)
            rest.remove_prefix(static_cast<std::size_t>(put));
    }
    buffer_.clear();
}

bool OutputFile::Close() {
    Flush();
    if (han_ != -1)
        ok_ = files::Close(han_) && ok_;
    han_ = -1;
    return ok_;
}

void Return(OutputFile& han) {
    han.Add("\r\n");
}

void WriteFile(OutputFile& han, std::string_view Text, int ret) {
    if (Text.size() <= kLongestText)
        han.Add(Text);
    if (ret == 1)
        Return(han);
}

void GetErr() {
    if (const char* text = ReasonText())
        ShowReason(text);
}

void SaveErr() {
    const char* text = ReasonText();
    if (!text)
        text = files::LastError() == ENOSPC ? "No space left on the disk"
                                            : "The file can not be written";
    ShowReason(text);
}
