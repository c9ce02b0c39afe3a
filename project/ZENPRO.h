// The project document with its list in an MDI child. The positions PMain to Pdde say which rows of
// the list belong to which section. The paths of the results files are kept in their rows only.
#pragma once

#include "project/core/project_file.h"
#include "shell/core/window_handle.h"

class ZKPROJECT {
public:
    // The row of the first item in the list, behind the name and a heading.
    static constexpr int kFirstItem = 3;

    // GetPos and RePos number the sections differently: the main section is always at its place.
    enum Placed { kSystems = 1, kExterns, kDde, kResults };                           // GetPos
    enum Changed { kMainSection = 1, kSystemsSection, kExternsSection, kDdeSection }; // RePos

    WindowHandle hwndPro;  // the project child
    WindowHandle hwndList; // the list box in it
    std::int32_t PMain;    // row of the main file, -1 when absent; its header is one above
    std::int32_t PRes;     // row of the first result, -1 when absent
    std::int32_t PEng;     // row of the first system, -1 when absent
    std::int32_t PExt;     // row of the first extern file, -1 when absent
    std::int32_t Pdde;     // row of the DDE file, -1 when absent
    std::int32_t MORState; // 1 while a project is open
    std::int32_t MainState;
    std::int32_t DDEState;
    std::int32_t MORVmod; // 1 when changed since it was last saved
    char MORVName[kNameSize];
    char MainName[kNameSize];  // stays after the entry is removed; MainState says what holds
    char DDEName[kNameSize];   // likewise
    char ResAux[kNameSize];    // the saved auxiliary results file
    char OldResAux[kNameSize]; // what a cancelled results edit goes back to
    char EngineNames[kMaxSystems + 1][kNameSize];
    char ExternFiles[kMaxExterns + 1][kNameSize];
    char ResName[kNameSize]; // the working copy of ResAux, named before it is written; else empty
    std::int32_t EngNum;
    std::int32_t ExtNum;
    std::int32_t ResNum;
    std::int32_t DatHisLen;

    ZKPROJECT();
    int Init();
    int NamePro(const char* name);
    int CreatePro();
    int ShowPro();
    int IsUntitled() const;
    int DestroyPro();
    int DestroyMdi();

    // Add an entry and its rows. The three that take a changeable text leave it as the row shows
    // it, so the buffer needs a byte more than the name.
    int NameMain(const char* name);
    int NameSys(char* name);
    int NameExt(char* name);
    int NameDde(char* name);
    int NameRes(const char* name, int a); // `a` not 0 adds, 0 removes

    int GetResName(const char* WPath); // names the working copy of ResAux below `WPath`

    int EditItem(char* nom);     // the selected row (256 bytes) and its section 1..5, 0 for none
    int GetIndex();              // the selected row, -1 when there is none
    int IsMain(int index) const; // 1 for the section's rows
    int IsDde(int index) const;
    int IsSys(int index) const; // 1 for the section's header, 2 for an item
    int IsExt(int index) const;
    int IsRes(int index) const;

    // Remove an entry; -1 removes the whole section. DeleteRes gives -1, with everything as it was,
    // when the auxiliary file could not be written (shown).
    int DeleteMain();
    int DeleteDde();
    int DeleteSys(int index);
    int DeleteExt(int index);
    int DeleteRes(int index);

    int SavePro();                // 0, or -1 without a list or when a write failed (shown)
    int OpenPro(const char* nom); // shows "Open Error" when it cannot be read or is damaged
    int IsDup(const char* name);  // the row that shows `name`, -1 when absent
    int ChName(const char* name); // renames the project and its rows
    int IsProWin(WindowHandle hwnd) const;
    WindowHandle GetHwnd() const;
    int ReDraw();
    int AddTab(char* nom) const; // in place
    int ResTab(char* nom) const; // in place
    int GetPos(int Nvar);
    int RePos(int Nvar, int Nlin);
    int ChangeName(const char* New); // moves ResName beside the project file `New`

    ProjectRecord Record() const; // the part of the project the project file and the build use

private:
    // Systems or externs: their place, rows and names.
    struct Names {
        Placed placed;
        Changed changed;
        std::int32_t& first;
        std::int32_t& count;
        char (*names)[kNameSize];
        int most;
        const char* heading;
    };
    Names Systems();
    Names Externs();
    int AddTo(const Names& section, char* name);
    void DeleteFrom(const Names& section, int index);

    WindowHandle List(); // brings hwndList up to date
    void CountResults(); // places the results and makes their number that of the rows
};

extern ZKPROJECT Project; // the one project document
