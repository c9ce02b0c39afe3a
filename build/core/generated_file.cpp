#include "build/core/generated_file.h"

#include "shell/core/messages.h"

int Finish(OutputFile& han) {
    if (han.Close())
        return 0;
    SaveErr();
    return -1;
}

int GiveUp(OutputFile& han, WindowHandle owner, const char* text, const char* caption) {
    han.Close();
    ShowMessage(owner, text, caption);
    GetErr();
    return -1;
}
