#include "shell/services/ask_and_save.h"

#include "shell/core/record_text.h"
#include "shell/services/asking.h"

#include <commdlg.h>

Saved AskAndSave(const Savable& savable) {
    const NameQuestion& question = savable.question;
    const Asking asking(savable.subject, Question::Name, {question.title});
    if (asking.Refused())
        return Saved::Asking;
    char name[kNameSize];
    const bool chosen = SaveDlg(question.filter, question.title, question.extension, name,
                                OFN_OVERWRITEPROMPT) == 0;
    if (!savable.alive())
        return Saved::Gone;
    if (!chosen)
        return Saved::Cancelled;
    if (savable.save_as(name))
        return Saved::Done;
    return savable.alive() ? Saved::Failed : Saved::Gone;
}

Saved Save(const Savable& savable) {
    if (!savable.has_file())
        return AskAndSave(savable);
    if (savable.save())
        return Saved::Done;
    return savable.alive() ? Saved::Failed : Saved::Gone;
}
