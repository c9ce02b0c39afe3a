// The lists of tags and of results: their editors and their files.
#include "tests/gui/blocked_files.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

// What sets the two editors apart.
struct Kinds {
    int command;
    const char* title;
    int edit;
    int list;
    const char* message;
    const char* save_title;
    const char* extension;
};

const Kinds kTags{CM_NEW_TAGS, "Tags", TAGS_NAME, TAGS_LIST, "New Tag", "Save Tags As...", ".tag"};
const Kinds kResults{CM_NEW_RESULTS,        "Results", RES_NAME, RES_LIST, "New Result",
                     "Save Resource As...", ".rst"};

class NamesTest : public GuiTest {
protected:
    static Dialog New(App& app, const Kinds& kind) {
        app.Start(kind.command);
        return app.WaitDialog(kind.title);
    }

    static Dialog Open(App& app, const Kinds& kind, const std::string& name) {
        app.Start(CM_OPEN_RESOURCE);
        app.ChooseFile("Open Resource", app.Path(name));
        return app.WaitDialog(kind.title);
    }

    static void Add(Dialog& dialog, const Kinds& kind, const std::string& name) {
        dialog.SetText(kind.edit, name);
        dialog.Click(IDOK);
    }

    static void ExpectNameNeeded(App& app, Dialog& dialog, const Kinds& kind) {
        dialog.SetText(kind.edit, "");
        dialog.Press(IDOK);
        const Box box =
            app.ExpectBox("Name must be defined", kind.message, Buttons::Ok, Icon::Exclamation);
        EXPECT_EQ(box.owner, dialog.Window());
        app.Finish();
    }

    static void Close(App& app, Dialog& dialog) {
        dialog.Click(TAGS_CLOSE);
        app.Finish();
        EXPECT_FALSE(dialog.Open());
    }

    static void CloseInto(App& app, Dialog& dialog, const Kinds& kind, const std::string& name) {
        dialog.Press(TAGS_CLOSE);
        app.ChooseFile(kind.save_title, app.Path(name));
        app.Finish();
        app.Finish();
        EXPECT_FALSE(dialog.Open());
    }

    static void Leave(App& app, Dialog& dialog) {
        dialog.Click(IDCANCEL);
        app.Finish();
        EXPECT_FALSE(dialog.Open());
    }
};

TEST_F(NamesTest, TagsAreSortedWithoutDuplicates) {
    App& app = Run();
    Dialog tags = New(app, kTags);
    EXPECT_EQ(GetWindow(tags.Window(), GW_OWNER), app.Frame());
    EXPECT_FALSE(IsWindowEnabled(app.Frame()));
    ExpectNameNeeded(app, tags, kTags);
    for (const char* name : {"middle", "zero", "alpha", "Middle", "zero"}) {
        Add(tags, kTags, name);
        EXPECT_EQ(tags.Text(TAGS_NAME), ""); // also of the refused one
    }
    const TextRows rows = tags.Rows(TAGS_LIST);
    ASSERT_EQ(rows.size(), 4u); // letter case counts
    EXPECT_EQ(rows.front(), "alpha");
    EXPECT_EQ(rows.back(), "zero");
    EXPECT_FALSE(FileExists(app.Path("untitled.tag")));
    CloseInto(app, tags, kTags, "made"); // the extension is appended
    EXPECT_EQ(FileContent(app.Path("made.tag")), TagBytes(rows));
}

TEST_F(NamesTest, ResultsKeepTheirOrderWithoutDuplicates) {
    App& app = Run();
    Dialog results = New(app, kResults);
    EXPECT_EQ(GetWindow(results.Window(), GW_OWNER), app.Frame());
    for (const char* name : {"middle", "zero", "alpha", "Middle"}) {
        Add(results, kResults, name);
        EXPECT_EQ(results.Text(RES_NAME), "");
    }
    Add(results, kResults, "zero");
    EXPECT_EQ(results.Text(RES_NAME), "zero"); // the refused one stays
    ExpectNameNeeded(app, results, kResults);
    const TextRows rows{"middle", "zero", "alpha", "Middle"};
    EXPECT_EQ(results.Rows(RES_LIST), rows);
    CloseInto(app, results, kResults, "made.rst");
    EXPECT_EQ(FileContent(app.Path("made.rst")), TagBytes(rows));
}

TEST_F(NamesTest, ACancelledNameKeepsTheDialogOpen) {
    App& app = Run();
    for (const Kinds& kind : {kTags, kResults}) {
        Dialog dialog = New(app, kind);
        Add(dialog, kind, "one");
        Add(dialog, kind, "two");
        dialog.Select(kind.list, 0);
        dialog.Click(TAGS_REMOVE);
        dialog.Press(TAGS_CLOSE);
        app.CancelFile(kind.save_title);
        app.Finish();
        EXPECT_TRUE(dialog.Open());
        EXPECT_EQ(dialog.Rows(kind.list), TextRows{"two"});
        CloseInto(app, dialog, kind, std::string("later") + kind.extension);
        EXPECT_EQ(FileContent(app.Path(std::string("later") + kind.extension)), TagBytes({"two"}));
    }
}

TEST_F(NamesTest, ClosesAnUntitledListThatDidNotChange) {
    App& app = Run();
    for (const Kinds& kind : {kTags, kResults}) {
        Dialog dialog = New(app, kind);
        Close(app, dialog);
    }
    // A refused tag is no change, but a refused result is one.
    Dialog tags = New(app, kTags);
    ExpectNameNeeded(app, tags, kTags);
    Close(app, tags);
    Dialog results = New(app, kResults);
    ExpectNameNeeded(app, results, kResults);
    results.Press(RES_CLOSE);
    app.CancelFile("Save Resource As...");
    app.Finish();
    EXPECT_TRUE(results.Open());
    Leave(app, results);
    // So is Remove, even when it finds no name.
    Dialog removed = New(app, kTags);
    removed.Click(TAGS_REMOVE);
    removed.Press(TAGS_CLOSE);
    app.CancelFile("Save Tags As...");
    app.Finish();
    Leave(app, removed);
}

TEST_F(NamesTest, CancelAndTheCloseBoxWriteNothing) {
    App& app = Run();
    const std::string before = TagBytes({"b", "a"});
    for (const Kinds& kind : {kTags, kResults}) {
        const std::string name = std::string("names") + kind.extension;
        PutFile(app.Path(name), before);
        Dialog dialog = Open(app, kind, name);
        Add(dialog, kind, "new");
        Leave(app, dialog);
        Dialog again = Open(app, kind, name);
        Add(again, kind, "new");
        again.Close();
        app.Finish();
        EXPECT_EQ(FileContent(app.Path(name)), before);
    }
}

TEST_F(NamesTest, OpenedListsAreWrittenOnlyWhenTheyChanged) {
    App& app = Run();
    // What stands behind a terminator and behind the last whole record means nothing.
    std::string before = TagBytes({"c", "a", "b"});
    before[10] = 'x';
    before += "rest";
    for (const Kinds& kind : {kTags, kResults}) {
        const std::string name = std::string("names") + kind.extension;
        PutFile(app.Path(name), before);
        Dialog dialog = Open(app, kind, name);
        const bool sorted = kind.command == CM_NEW_TAGS;
        const TextRows rows = sorted ? TextRows{"a", "b", "c"} : TextRows{"c", "a", "b"};
        EXPECT_EQ(dialog.Rows(kind.list), rows);
        Close(app, dialog);
        EXPECT_EQ(FileContent(app.Path(name)), before);
        Dialog again = Open(app, kind, name);
        again.Select(kind.list, 2);
        again.Click(TAGS_REMOVE);
        EXPECT_EQ(FileContent(app.Path(name)), before);
        Close(app, again);
        EXPECT_EQ(FileContent(app.Path(name)),
                  TagBytes(sorted ? TextRows{"a", "b"} : TextRows{"c", "a"}));
    }
}

TEST_F(NamesTest, AfterAnOpenANewListLoadsTheUntitledFile) {
    App& app = Run();
    for (const Kinds& kind : {kTags, kResults}) {
        const std::string name = std::string("names") + kind.extension;
        const std::string untitled = std::string("untitled") + kind.extension;
        PutFile(app.Path(name), TagBytes({"a"}));
        PutFile(app.Path(untitled), TagBytes({"u"}));
        Dialog first = New(app, kind);
        EXPECT_EQ(first.Rows(kind.list), TextRows{});
        Leave(app, first);
        Dialog opened = Open(app, kind, name);
        EXPECT_EQ(opened.Rows(kind.list), TextRows{"a"});
        Leave(app, opened);
        Dialog later = New(app, kind);
        EXPECT_EQ(later.Rows(kind.list), TextRows{"u"});
        Leave(app, later);
        // It is created when it is missing, also by a Cancel.
        DeleteFileA(app.Path(untitled).c_str());
        Dialog last = New(app, kind);
        EXPECT_EQ(last.Rows(kind.list), TextRows{});
        Leave(app, last);
        EXPECT_TRUE(FileExists(app.Path(untitled)));
        EXPECT_EQ(FileContent(app.Path(untitled)), "");
    }
}

TEST_F(NamesTest, OneKindsOpenDoesNotChangeTheOther) {
    App& app = Run();
    PutFile(app.Path("names.tag"), TagBytes({"a"}));
    PutFile(app.Path("untitled.rst"), TagBytes({"u"}));
    Dialog tags = Open(app, kTags, "names.tag");
    Leave(app, tags);
    Dialog results = New(app, kResults);
    EXPECT_EQ(results.Rows(RES_LIST), TextRows{});
    Leave(app, results);
}

TEST_F(NamesTest, OtherExtensionsOpenNothing) {
    App& app = Run();
    MakeFolders(app.Path("a.b"));
    for (const char* name : {"names.TAG", "names.txt", "names.tag.rst", "a.b\\x.tag"})
        PutFile(app.Path(name), TagBytes({"a"}));
    for (const char* name : {"names.TAG", "names.txt", "names.tag.rst", "a.b\\x.tag"})
        app.CommandWithFile(CM_OPEN_RESOURCE, "Open Resource", app.Path(name));
    app.CommandWithCancel(CM_OPEN_RESOURCE, "Open Resource");
    EXPECT_TRUE(Dialogs(app.Process()).empty());
}

TEST_F(NamesTest, LongNamesAreCut) {
    App& app = Run();
    for (const Kinds& kind : {kTags, kResults}) {
        Dialog dialog = New(app, kind);
        Add(dialog, kind, std::string(300, 'n'));
        const std::string name = std::string("made") + kind.extension;
        CloseInto(app, dialog, kind, name);
        EXPECT_EQ(FileContent(app.Path(name)), TagBytes({std::string(49, 'n')}));
        // A field that is full has no terminator.
        PutFile(app.Path(name), std::string(100, 'x'));
        Dialog full = Open(app, kind, name);
        EXPECT_EQ(full.Rows(kind.list), TextRows(2, std::string(50, 'x')));
        Leave(app, full);
    }
}

TEST_F(NamesTest, AFileThatCannotBeWrittenIsReportedAndTheListStays) {
    App& app = Run();
    for (const Kinds& kind : {kTags, kResults}) {
        const std::string name = std::string("names") + kind.extension;
        PutFile(app.Path(name), TagBytes({"a"}));
        {
            const ReadOnlyFile mark(app.Path(name));
            Dialog dialog = Open(app, kind, name);
            EXPECT_EQ(dialog.Rows(kind.list), TextRows{"a"});
            Add(dialog, kind, "b");
            dialog.Press(TAGS_CLOSE);
            app.ExpectError("Permison denied");
            app.Finish();
            EXPECT_TRUE(dialog.Open());
            EXPECT_EQ(dialog.Rows(kind.list), (TextRows{"a", "b"}));
            Leave(app, dialog);
        }
        EXPECT_EQ(FileContent(app.Path(name)), TagBytes({"a"}));
        Dialog dialog = Open(app, kind, name);
        Add(dialog, kind, "b");
        PutFolder(app.Path(name));
        dialog.Press(TAGS_CLOSE);
        app.ExpectError("Permison denied");
        app.Finish();
        Leave(app, dialog);
    }
}

TEST_F(NamesTest, ANewListThatCannotBeWrittenAsksForAnotherFile) {
    App& app = Run();
    PutFile(app.Path("fixed.tag"), TagBytes({"a"}));
    Dialog tags = New(app, kTags);
    Add(tags, kTags, "b");
    {
        const LockedFile lock(app.Path("fixed.tag"));
        tags.Press(TAGS_CLOSE);
        app.ChooseFile("Save Tags As...", app.Path("fixed.tag"));
        app.AnswerSystemQuestion(Answer::Yes); // to overwrite it
        app.ExpectError("Permison denied");
        app.Finish();
    }
    EXPECT_TRUE(tags.Open());
    CloseInto(app, tags, kTags, "other.tag");
    EXPECT_EQ(FileContent(app.Path("other.tag")), TagBytes({"b"}));
    EXPECT_EQ(FileContent(app.Path("fixed.tag")), TagBytes({"a"}));
}

} // namespace

} // namespace gui
