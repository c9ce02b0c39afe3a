// What the tests of the two documents share: a frame to show them in, a folder, and their rows.
#pragma once

#include "../core/core_test.h"
#include "frame_window.h"
#include "project/ZENPRO.h"
#include "shell/services/section_rows.h"
#include "system/ZENSYS.h"

namespace zentrik_test {

using RowTexts = std::vector<std::string>;

class DocumentTest : public testing::Test {
protected:
    DocumentTest() {
        nt = 1; // the menu does not follow the active child
        Project.Init();
        System.Init();
        Project.hwndPro = Project.hwndList = nullptr;
        System.hwndSys = System.hwndList = nullptr;
    }

    // All rows of the document's list.
    static RowTexts RowsOf(HWND document) {
        const ListRows rows(TopChild(document));
        RowTexts texts;
        for (int i = 0; i < rows.Count(); ++i)
            texts.push_back(rows.RowText(i));
        return texts;
    }

    static void SelectRow(HWND document, int row) { ListRows(TopChild(document)).Select(row); }

    std::string Path(const std::string& name) const { return temp_.Path(name); }

    FrameWindow frame_;
    TempFolder temp_;
};

// A field of `size` bytes as the writers leave it: the text, then zeros.
inline std::string Field(const std::string& text, std::size_t size = kNameSize) {
    return text + std::string(size - text.size(), '\0');
}

inline std::string Number(std::int32_t number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

inline std::string Numbered(std::string name, int number) {
    return name += std::to_string(number);
}

// A buffer with room for a TAB, as the documents ask for.
class NameBuffer {
public:
    explicit NameBuffer(const std::string& name) { SetText(text_, name); }
    operator char*() { return text_; }

private:
    char text_[kNameSize + 1];
};

} // namespace zentrik_test
