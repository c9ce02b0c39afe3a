#include "shell/services/document.h"

#include "shell/core/messages.h"
#include "shell/services/asking.h"

#include <algorithm>

namespace {

bool SaveUnderItsName(const Document& document) {
    if (document.save() != 0)
        return false;
    document.modified = 0;
    return true;
}

Savable AsSavable(const Document& document) {
    const auto still_open = StillOpen(document);
    const auto save_as = [&document, still_open](const std::string& path) {
        const std::string before = Text(document.name);
        document.rename(path.c_str());
        const bool saved = SaveUnderItsName(document);
        if (!saved && still_open())
            document.rename(before.c_str());
        return saved;
    };
    return {document.window, document.question,
            still_open,      [&document] { return !document.untitled(); },
            save_as,         [&document] { return SaveUnderItsName(document); }};
}

} // namespace

bool Opened(const Document& document, HWND owner, const char* caption) {
    return !Refused(owner, document.state != 1, document.not_open, caption);
}

bool Refused(HWND owner, bool reason, const char* text, const char* caption) {
    if (reason)
        ShowMessage(owner, text, caption);
    return reason;
}

bool RemoveRow(int row, std::span<const RowSection> sections) {
    const auto section = std::ranges::find_if(
        sections, [](const RowSection& candidate) { return candidate.part != 0; });
    if (section == sections.end())
        return false;
    section->remove(section->part == 1 ? -1 : row);
    return true;
}

Saved SaveDocumentAs(const Document& document) {
    return AskAndSave(AsSavable(document));
}

Saved SaveDocument(const Document& document) {
    const Saved saved = Save(AsSavable(document));
    if (saved == Saved::Cancelled && document.forgets_when_cancelled)
        document.modified = 0;
    return saved;
}

bool MayCloseDocument(const Document& document, HWND owner, const char* text, const char* caption) {
    const Asking asking(document.window, Question::Close, {caption, document.question.title});
    if (asking.Refused())
        return false;
    if (document.modified != 1)
        return true;
    const auto still_open = StillOpen(document);
    const Answer answer = ShowMessage(owner, text, caption, Buttons::YesNoCancel);
    if (!still_open() || answer == Answer::Cancel)
        return false;
    if (answer != Answer::Yes)
        return true;
    const Saved saved = SaveDocument(document);
    return saved == Saved::Done || saved == Saved::Cancelled;
}
