#include "dialog_test.h"
#include "tests/core/core_test.h"
#include "write_lock.h"

#include "project/ZENPRO.h"
#include "resources/core/record_files.h"
#include "resources/facts_base.h"
#include "resources/names_lists.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;
using Step = DialogSteps::Step;

void Add(const DialogHandle& dialog, int edit, const std::string& name) {
    dialog.Put(edit, name);
    dialog.Press(IDOK);
}

// Both lists of names as at the start of the program, in a work folder of their own.
class NamesLists : public testing::Test {
protected:
    NamesLists() {
        GetCurrentDirectoryA(sizeof before_, before_);
        SetText(WorkPath, temp.Path("")); // which is the current one after every file dialog
        SetCurrentDirectoryA(WorkPath);
        Project.ResNum = 0;
        TagNum = TagType = ResultType = 0;
    }
    ~NamesLists() override {
        SetCurrentDirectoryA(before_);
        SetText(WorkPath, "");
    }

    void Put(const std::string& name, const Texts& names) {
        WriteNames(temp.Path(name).c_str(), names);
    }
    Texts OnDisk(const std::string& name) { return NamesIn(temp.Path(name).c_str()); }

    // Opens a resource and takes the step in its editor.
    void OpenWith(const std::string& name, const std::string& title, const Step& step) {
        DialogSteps steps;
        steps.ChooseFile("Open Resource", temp.Path(name));
        steps.When(title, step);
        OpenResource(nullptr);
    }

    TempFolder temp;
    Boxes boxes;

private:
    char before_[MAX_PATH];
};

TEST_F(NamesLists, ANewListIsEmptyAndAsksForAFile) {
    Put("untitled.tag", {"not loaded"});
    DialogSteps steps;
    steps.When("Tags", [&](const DialogHandle& dialog) {
        EXPECT_TRUE(dialog.Rows(TAGS_LIST).empty());
        Add(dialog, TAGS_NAME, "b");
        Add(dialog, TAGS_NAME, "a");
        dialog.Press(TAGS_CLOSE);
        EXPECT_FALSE(dialog.IsOpen());
    });
    steps.ChooseFile("Save Tags As...", temp.Path("new.tag"));
    NewTag(nullptr);
    EXPECT_EQ(OnDisk("new.tag"), (Texts{"a", "b"}));
    EXPECT_EQ(temp.Content("new.tag").size(), 100u);
    EXPECT_EQ(TagNum, 2);
}

TEST_F(NamesLists, ANewListOfResultsIsEmptyAndAsksForAFile) {
    DialogSteps steps;
    steps.When("Results", [&](const DialogHandle& dialog) {
        EXPECT_TRUE(dialog.Rows(RES_LIST).empty());
        Add(dialog, RES_NAME, "b");
        Add(dialog, RES_NAME, "a");
        dialog.Press(RES_CLOSE);
    });
    steps.ChooseFile("Save Resource As...", temp.Path("new.rst"));
    NewResult(nullptr);
    EXPECT_EQ(OnDisk("new.rst"), (Texts{"b", "a"}));
    EXPECT_EQ(Project.ResNum, 2);
}

TEST_F(NamesLists, ARefusedResultStillMarksTheListChanged) {
    DialogSteps steps;
    steps.When("Results", [&](const DialogHandle& dialog) {
        Add(dialog, RES_NAME, "");
        dialog.Press(RES_CLOSE);
        EXPECT_TRUE(dialog.IsOpen());
        dialog.Press(IDCANCEL);
    });
    steps.CancelFile("Save Resource As...");
    NewResult(nullptr);
    ASSERT_EQ(boxes.messages.size(), 1u);
    EXPECT_EQ(boxes.shown.front(), "New Result: Name must be defined");
    EXPECT_EQ(boxes.messages.front().icon, Icon::Exclamation);
    EXPECT_EQ(boxes.messages.front().buttons, Buttons::Ok);
}

TEST_F(NamesLists, ARefusedTagDoesNotMarkTheListChanged) {
    DialogSteps steps;
    steps.When("Tags", [&](const DialogHandle& dialog) {
        Add(dialog, TAGS_NAME, "");
        dialog.Press(TAGS_CLOSE);
        EXPECT_FALSE(dialog.IsOpen());
    });
    NewTag(nullptr);
    ASSERT_EQ(boxes.messages.size(), 1u);
    EXPECT_EQ(boxes.shown.front(), "New Tag: Name must be defined");
    EXPECT_EQ(boxes.messages.front().icon, Icon::Exclamation);
}

TEST_F(NamesLists, CancellingTheSaveDialogKeepsTheListOpen) {
    DialogSteps steps;
    steps.When("Tags", [&](const DialogHandle& dialog) {
        Add(dialog, TAGS_NAME, "a");
        dialog.Press(TAGS_CLOSE);
        EXPECT_TRUE(dialog.IsOpen());
        EXPECT_EQ(dialog.Rows(TAGS_LIST), Texts{"a"});
        dialog.Press(TAGS_CLOSE); // asks again
        EXPECT_FALSE(dialog.IsOpen());
    });
    steps.CancelFile("Save Tags As...");
    steps.ChooseFile("Save Tags As...", temp.Path("second.tag"));
    NewTag(nullptr);
    EXPECT_EQ(OnDisk("second.tag"), Texts{"a"});
}

TEST_F(NamesLists, ANewListThatCanNotBeWrittenAsksForAnotherFile) {
    DialogSteps steps;
    steps.When("Tags", [&](const DialogHandle& dialog) {
        Add(dialog, TAGS_NAME, "a");
        files::FailWritesAfter(10);
        dialog.Press(TAGS_CLOSE);
        files::FailWritesAfter(-1);
        EXPECT_TRUE(dialog.IsOpen());
        dialog.Press(TAGS_CLOSE);
    });
    steps.ChooseFile("Save Tags As...", temp.Path("full.tag"));
    steps.ChooseFile("Save Tags As...", temp.Path("second.tag"));
    NewTag(nullptr);
    EXPECT_EQ(boxes.shown, Texts{"WARNING: No space left on the disk"});
    EXPECT_FALSE(files::Exists(temp.Path("full.tag").c_str()));
    EXPECT_EQ(OnDisk("second.tag"), Texts{"a"});
}

TEST_F(NamesLists, TagsOfAFileAreWrittenSorted) {
    Put("a.tag", {"zeta", "Alpha"});
    OpenWith("a.tag", "Tags", [&](const DialogHandle& dialog) {
        EXPECT_EQ(dialog.Rows(TAGS_LIST), (Texts{"Alpha", "zeta"}));
        dialog.Press(TAGS_CLOSE); // unchanged: nothing is written
        EXPECT_FALSE(dialog.IsOpen());
    });
    EXPECT_EQ(OnDisk("a.tag"), (Texts{"zeta", "Alpha"}));
    OpenWith("a.tag", "Tags", [&](const DialogHandle& dialog) {
        Add(dialog, TAGS_NAME, "mid");
        dialog.Press(TAGS_CLOSE);
    });
    EXPECT_EQ(OnDisk("a.tag"), (Texts{"Alpha", "mid", "zeta"}));
}

TEST_F(NamesLists, ResultsOfAFileKeepTheirOrder) {
    Put("a.rst", {"zeta", "Alpha"});
    OpenWith("a.rst", "Results", [&](const DialogHandle& dialog) {
        EXPECT_EQ(dialog.Rows(RES_LIST), (Texts{"zeta", "Alpha"}));
        Add(dialog, RES_NAME, "mid");
        dialog.Press(RES_CLOSE);
    });
    EXPECT_EQ(OnDisk("a.rst"), (Texts{"zeta", "Alpha", "mid"}));
    EXPECT_EQ(Project.ResNum, 1);
}

TEST_F(NamesLists, TagsThatDifferInLetterCaseAreTwo) {
    Put("a.tag", {"one"});
    OpenWith("a.tag", "Tags", [&](const DialogHandle& dialog) {
        Add(dialog, TAGS_NAME, "ONE");
        EXPECT_EQ(dialog.Rows(TAGS_LIST).size(), 2u);
        Add(dialog, TAGS_NAME, "one");
        EXPECT_EQ(dialog.Rows(TAGS_LIST).size(), 2u);
        EXPECT_EQ(dialog.Text(TAGS_NAME), ""); // a refused tag empties the edit
        EXPECT_EQ(TagNum, 1);
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(OnDisk("a.tag"), Texts{"one"});
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(NamesLists, ARefusedResultStaysInTheEdit) {
    Put("a.rst", {"one"});
    OpenWith("a.rst", "Results", [&](const DialogHandle& dialog) {
        Add(dialog, RES_NAME, "One");
        EXPECT_EQ(dialog.Text(RES_NAME), "");
        Add(dialog, RES_NAME, "one");
        EXPECT_EQ(dialog.Text(RES_NAME), "one");
        EXPECT_EQ(dialog.Rows(RES_LIST), (Texts{"one", "One"}));
        EXPECT_EQ(Project.ResNum, 1);
        dialog.CloseBox();
    });
    EXPECT_EQ(OnDisk("a.rst"), Texts{"one"});
}

TEST_F(NamesLists, RemoveTakesTheSelectedNameOut) {
    Put("a.tag", {"one", "two"});
    OpenWith("a.tag", "Tags", [&](const DialogHandle& dialog) {
        dialog.Select(TAGS_LIST, 0);
        dialog.Press(TAGS_REMOVE);
        dialog.Press(TAGS_REMOVE); // nothing is selected any more
        dialog.Press(TAGS_CLOSE);
    });
    EXPECT_EQ(OnDisk("a.tag"), Texts{"two"});
    EXPECT_EQ(TagNum, 0);
    Put("a.rst", {"one"});
    OpenWith("a.rst", "Results", [&](const DialogHandle& dialog) {
        dialog.Select(RES_LIST, 0);
        dialog.Press(RES_REMOVE);
        dialog.Press(RES_CLOSE);
    });
    EXPECT_EQ(temp.Content("a.rst"), "");
    EXPECT_TRUE(files::Exists(temp.Path("a.rst").c_str()));
}

TEST_F(NamesLists, OnceAResourceWasOpenedANewListLoadsTheUntitledFile) {
    Put("a.tag", {"one"});
    Put("a.rst", {"one"});
    Put("untitled.tag", {"left"});
    const Step cancel = [](const DialogHandle& dialog) { dialog.Press(IDCANCEL); };
    OpenWith("a.tag", "Tags", cancel);
    OpenWith("a.rst", "Results", cancel);
    DialogSteps steps;
    steps.When("Tags", [&](const DialogHandle& dialog) {
        EXPECT_EQ(dialog.Rows(TAGS_LIST), Texts{"left"});
        dialog.Press(IDCANCEL);
    });
    NewTag(nullptr);
    EXPECT_FALSE(files::Exists("untitled.rst"));
    steps.When("Results", cancel);
    NewResult(nullptr);
    EXPECT_TRUE(files::Exists("untitled.rst")); // created empty
    EXPECT_EQ(temp.Content("untitled.rst"), "");
}

TEST_F(NamesLists, ADamagedRestIsNoName) {
    temp.Put("a.tag", std::string("one") + std::string(47, '\0') + std::string(50, 'x') + "rest");
    OpenWith("a.tag", "Tags", [&](const DialogHandle& dialog) {
        EXPECT_EQ(dialog.Rows(TAGS_LIST), (Texts{"one", std::string(50, 'x')}));
        Add(dialog, TAGS_NAME, std::string(90, 'y'));
        dialog.Press(TAGS_CLOSE);
    });
    EXPECT_EQ(OnDisk("a.tag"), (Texts{"one", std::string(49, 'x'), std::string(49, 'y')}));
}

TEST_F(NamesLists, AFileThatCanNotBeWrittenKeepsTheListOpen) {
    Put("a.rst", {"one"});
    OpenWith("a.rst", "Results", [&](const DialogHandle& dialog) {
        Add(dialog, RES_NAME, "two");
        {
            const WriteLock lock(temp.Path("a.rst"));
            dialog.Press(RES_CLOSE);
        }
        EXPECT_TRUE(dialog.IsOpen());
        EXPECT_EQ(dialog.Rows(RES_LIST), (Texts{"one", "two"}));
        EXPECT_EQ(OnDisk("a.rst"), Texts{"one"});
        dialog.Press(RES_CLOSE);
        EXPECT_FALSE(dialog.IsOpen());
    });
    EXPECT_EQ(boxes.shown, Texts{"WARNING: Permison denied"});
    EXPECT_EQ(OnDisk("a.rst"), (Texts{"one", "two"}));
}

TEST_F(NamesLists, AFileThatCanNotBeReadIsNotEdited) {
    for (const auto& [name, title] : {std::pair{"a.tag", "Tags"}, std::pair{"a.rst", "Results"}}) {
        Put(name, {"one"});
        const WholeLock lock(temp.Path(name));
        DialogSteps steps;
        steps.ChooseFile("Open Resource", temp.Path(name));
        steps.Never(title);
        OpenResource(nullptr);
    }
    EXPECT_EQ(boxes.shown, Texts(2, "WARNING: Permison denied"));
    EXPECT_EQ(OnDisk("a.tag"), Texts{"one"});
    EXPECT_EQ(OnDisk("a.rst"), Texts{"one"});
}

TEST_F(NamesLists, AListWhoseFileCanNotBeCreatedIsEditedAllTheSame) {
    Put("a.rst", {});
    OpenWith("a.rst", "Results", [](const DialogHandle& dialog) { dialog.Press(IDCANCEL); });
    SetText(ResultFileName, temp.Path("none\\a.rst"));
    ShownDialog dialog("Res_Box", ResultNew);
    Add(dialog, RES_NAME, "one");
    dialog.Press(RES_CLOSE);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(boxes.shown, Texts{"WARNING: No such file or directory"});
    CreateDirectoryA(temp.Path("none").c_str(), nullptr);
    dialog.Press(RES_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(OnDisk("none\\a.rst"), Texts{"one"});
}

TEST_F(NamesLists, AFactsBaseOpensItsEditor) {
    temp.Put("a.fac", "");
    OpenWith("a.fac", "Facts Base", [](const DialogHandle& dialog) { dialog.Press(KNOW_CLOSE); });
    EXPECT_EQ(Text(KnowFileName), temp.Path("a.fac"));
    EXPECT_EQ(KTyp, 1);
}

TEST_F(NamesLists, OtherExtensionsAndDotsInFoldersOpenNothing) {
    CreateDirectoryA(temp.Path("my.dir").c_str(), nullptr);
    for (const char* name : {"a.TAG", "a.txt", "plain", "my.dir\\a.tag"}) {
        temp.Put(name, "");
        DialogSteps steps;
        steps.ChooseFile("Open Resource", temp.Path(name));
        OpenResource(nullptr);
    }
    DialogSteps steps;
    steps.CancelFile("Open Resource");
    OpenResource(nullptr);
    EXPECT_TRUE(boxes.shown.empty());
}

} // namespace
