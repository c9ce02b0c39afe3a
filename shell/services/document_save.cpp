#include "shell/services/document_save.h"

#include "shell/core/messages.h"
#include "shell/services/file_dialogs.h"

Saved SaveDocumentAs(const SavedDocument& document) {
    const auto still_open = StillOpen(document);
    char name[kNameSize];
    const bool chosen = SaveDlg(document.filter, document.title, document.extension, name,
                                OFN_OVERWRITEPROMPT) == 0;
    if (!still_open())
        return Saved::Gone;
    if (!chosen)
        return Saved::Cancelled;
    const std::string before = Text(document.name);
    document.rename(name);
    if (document.save() == 0) {
        document.modified = 0;
        return Saved::Done;
    }
    if (!still_open())
        return Saved::Gone;
    document.rename(before.c_str());
    return Saved::Failed;
}

Saved SaveDocument(const SavedDocument& document) {
    if (document.untitled()) {
        const Saved saved = SaveDocumentAs(document);
        if (saved == Saved::Cancelled && document.forgets_when_cancelled)
            document.modified = 0;
        return saved;
    }
    const auto still_open = StillOpen(document);
    if (document.save() != 0)
        return still_open() ? Saved::Failed : Saved::Gone;
    document.modified = 0;
    return Saved::Done;
}

bool MayCloseDocument(const SavedDocument& document, HWND owner, const char* text,
                      const char* caption) {
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
