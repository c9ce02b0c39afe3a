// The system document with its list in an MDI child. An open system's facts and opposites have no
// other place than the rows of that list.
#pragma once

#include "shell/core/window_handle.h"
#include "system/core/system_file.h"

class ZKSYSTEMS {
public:
    // The row of the first item in the list, behind the name and a heading.
    static constexpr int kFirstItem = 3;

    // The sections as GetPos and RePos number them.
    enum Section { kFacts = 1, kOpposites, kHeader, kVariables };

    WindowHandle hwndSys;  // the system child
    WindowHandle hwndList; // the list box in it
    std::int32_t PRul;     // row of the rules file, -1: no section
    std::int32_t PKnw;     // row of the first fact
    std::int32_t POpp;     // row of the first opposite
    std::int32_t PHead;    // row of the header file
    std::int32_t PVar;     // row of the local variables file
    std::int32_t RuleState;
    std::int32_t KnowState; // cleared by deletes, set by nothing
    std::int32_t HeadState;
    std::int32_t VarState;
    std::int32_t InitNew;     // 1 = the system has initial facts
    std::int32_t Engmod;      // 1 = changed since the last save
    std::int32_t EngineState; // 1 = a system is open
    std::int32_t TypNum;
    std::int32_t DatNum;
    std::int32_t OppNum;
    char KTypeName[kNameSize];
    char RuleName[kNameSize];
    char RuleSizeName[kNameSize];
    char HeaderName[kNameSize];
    char VarName[kNameSize];
    char InitName[kNameSize];
    char KnowName[kNameSize];
    char EngineName[kNameSize];
    char OldVarName[kNameSize];
    char OldInitName[kNameSize];
    char IKWFile[kNameSize]; // working copy of the initial facts, empty when there is none
    char VarFile[kNameSize]; // working copy of the local variables, empty when there is none

    ZKSYSTEMS();
    int Init();
    int NameSys(const char* name);
    int CreateSys();
    int ShowSys();
    bool IsUntitled() const;
    bool NeedsName() const; // what Save must not write to: untitled, or a file that was cut short
    int ChangeName(const char* name); // renames the system and its rows
    int DestroySys();
    bool IsSysWin(WindowHandle hwnd) const;
    WindowHandle GetHwnd() const;
    int GetIndex();
    int AddTab(char* text) const; // in place
    int ResTab(char* text) const; // in place
    int GetPos(int section);
    int RePos(int section, int delta);

    int NameRule(const char* name);
    // Adds the row of a fact, which the caller then counts in DatNum. The row's TAB is put into
    // `name`, so the buffer needs a byte more than the name.
    int NameKnw(char* name);
    int TitleKnw();                    // the heading, after the facts were added
    int GetKnw(int index, char* name); // into a buffer of 255 bytes
    int DelKnw();
    int NameOpp(char* name); // as NameKnw; the caller counts OppNum
    int TitleOpp();
    std::string GetOpp(int index);
    int DelOpp();
    int NameHeader(const char* name);
    int NameVar(const char* WPath);
    // Name the working copies of the local variables and of the initial facts. A name that does not
    // fit stays empty: -1.
    int GetVarName(const char* WPath);
    int GetInitName(const char* WPath);
    void WroteVariables(); // the working copy of the local variables was written
    void WroteInitialFacts();
    std::string VariablesSource() const; // what their dialogs start from
    std::string InitialFactsSource() const;
    std::string VariablesInForce() const; // the working copy once it is written, else VarName

    bool KnwBool() const;
    bool IsRule(int index) const;
    bool IsHead(int index) const;
    bool IsVar(int index) const;
    int IsKnw(int index) const; // 1 = the heading, 2 = an item
    int IsOpp(int index) const;
    int DeleteRule();
    int DeleteHead();
    int DeleteVar();
    int DeleteKnw(int index); // -1 removes the whole section
    int DeleteOpp(int index);
    int EditItem(char* text); // the selected row (256 bytes) and its kind 1..5, 0 for none

    int SaveSys();                 // 0, or -1 without a list or when a write failed (shown)
    int OpenSys(const char* name); // shows "Open Error" when it cannot be read or is damaged
    int ChName(const char* name);  // moves the working copies beside the system file

    // The seven names and three counts, which a build leaves as it last read them.
    SystemHead Head() const;
    void TakeHead(const SystemHead& head);

private:
    // Facts or opposites: their number for GetPos and their rows.
    struct ItemSection {
        Section section;
        std::int32_t& first;
        std::int32_t& count;
    };
    ItemSection Facts();
    ItemSection Opposites();
    int AddRow(const ItemSection& items, char* name);
    int AddHeading(const ItemSection& items, const char* heading);
    int DeleteAll(const ItemSection& items);
    bool DeleteRows(const ItemSection& items, int index); // true when the whole section went
    std::string ItemAt(const ItemSection& items, int index);
    void Take(const char* name, const SystemFile& file);
    void AppendRows(const SystemFile& file);

    WindowHandle List(); // brings hwndList up to date

    SystemCopies Copies(const char* name) const;
    SystemHead HeadAfter(const SystemCopies& copies) const;
    void TakeMoved(const SystemCopies& copies, const SystemHead& head);

    // The working copies that were written since the system was opened; empty when there are none.
    std::string written_variables_;
    std::string written_facts_;
    bool cut_short_ = false; // the file lacked something when it was opened
};

extern ZKSYSTEMS System; // the one system document
