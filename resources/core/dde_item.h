// The DDE items file (.dde): the name of the conversation in a 255-byte head, then the items.
#pragma once

#include "shell/core/record_text.h"

struct DDE_ITEM {
    char DName[50];
    char DType[100];
};
static_assert(sizeof(DDE_ITEM) == 150);

struct DdeFile {
    std::string name;
    std::vector<DDE_ITEM> items;
};

// Reads a DDE items file: the head as far as it goes, and the whole items. Returns false, with
// nothing read, when it cannot be opened.
inline bool ReadDde(const char* path, files::Mode mode, DdeFile& dde) {
    std::string bytes;
    const bool ok = files::ReadWhole(path, mode, bytes);
    const std::string head = bytes.substr(0, kNameSize);
    dde.name = head.substr(0, head.find('\0'));
    dde.items = RecordsIn<DDE_ITEM>(bytes, kNameSize);
    return ok;
}

// The bytes of a DDE items file.
inline std::string DdeBytes(const DdeFile& dde) {
    NameRecord head;
    SetText(head.name, dde.name);
    return std::string(BytesOf(head)).append(BytesOf(dde.items));
}
