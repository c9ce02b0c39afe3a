#include "core_test.h"

#include "shell/core/files.h"
#include "shell/core/working_copy.h"

#include <cerrno>

namespace {

using zentrik_test::TempFolder;

class WorkingCopies : public testing::Test {
protected:
    // File names of the folder; an empty one stays so.
    WorkingCopy Copy(const std::string& working, const std::string& saved) const {
        auto path = [&](const std::string& name) { return name.empty() ? name : temp_.Path(name); };
        return {path(working), path(saved), path("new.var"), false};
    }
    WorkingCopy Written(const std::string& working, const std::string& saved) const {
        WorkingCopy copy = Copy(working, saved);
        copy.written = true;
        return copy;
    }
    static bool Move(const WorkingCopy& copy) {
        files::Replacement files;
        if (!AddMove(files, copy) || !files.CarryOut())
            return false;
        RemoveMoved(copy);
        return true;
    }
    bool Exists(const std::string& name) const { return files::Exists(temp_.Path(name).c_str()); }

    TempFolder temp_;
};

TEST_F(WorkingCopies, AreMovedOverTheOldFile) {
    temp_.Put("work.var", "edited");
    temp_.Put("new.var", "old");
    const WorkingCopy copy = Written("work.var", "new.var");
    EXPECT_EQ(NameAfterMove(copy), temp_.Path("new.var"));
    EXPECT_TRUE(Move(copy));
    EXPECT_EQ(temp_.Content("new.var"), "edited");
    EXPECT_EQ(temp_.Content("new.var.bak"), "old");
    EXPECT_FALSE(Exists("work.var"));
}

TEST_F(WorkingCopies, OfACancelledEditLeaveTheSavedFileToItsDocument) {
    temp_.Put("saved.var", "theirs");
    temp_.Put("new.var", "old");
    const WorkingCopy copy = Copy("saved.var", "saved.var");
    EXPECT_EQ(NameAfterMove(copy), temp_.Path("new.var"));
    EXPECT_TRUE(Move(copy));
    EXPECT_EQ(temp_.Content("new.var"), "theirs");
    EXPECT_EQ(temp_.Content("saved.var"), "theirs");
}

TEST_F(WorkingCopies, NeverWrittenLeaveTheSavedFileInForce) {
    temp_.Put("saved.var", "saved");
    temp_.Put("new.var", "somebody's");
    temp_.Put("left.var", "of an earlier run");
    for (const char* working : {"work.var", "left.var"}) {
        const WorkingCopy copy = Copy(working, "saved.var");
        EXPECT_EQ(NameAfterMove(copy), temp_.Path("saved.var"));
        EXPECT_TRUE(Move(copy));
        EXPECT_EQ(temp_.Content("saved.var"), "saved");
        EXPECT_EQ(temp_.Content("new.var"), "somebody's");
    }
    EXPECT_EQ(temp_.Content("left.var"), "of an earlier run");
}

TEST_F(WorkingCopies, NeverWrittenNeitherTouchNorAdoptAForeignFile) {
    temp_.Put("new.var", "somebody's");
    for (const char* saved : {"", "gone.var", "work.var"}) {
        const WorkingCopy copy = Copy("work.var", saved);
        EXPECT_EQ(NameAfterMove(copy), copy.saved) << saved;
        EXPECT_TRUE(Move(copy)) << saved;
        EXPECT_EQ(temp_.Content("new.var"), "somebody's") << saved;
    }
}

TEST_F(WorkingCopies, AreFoundBesideADocumentThatWasMovedToAnotherFolder) {
    temp_.Put("new.var", "its own");
    const std::string gone = temp_.Path("gone") + "\\new.var";
    const WorkingCopy copy{gone, gone, temp_.Path("new.var"), false};
#ifdef _WIN32
    EXPECT_EQ(NameAfterMove(copy), temp_.Path("new.var"));
#endif
    EXPECT_TRUE(Move(copy));
    EXPECT_EQ(temp_.Content("new.var"), "its own");
}

TEST_F(WorkingCopies, OfWhichThereIsNothingNameTheirPlaceAllTheSame) {
    for (const char* saved : {"", "gone.var", "work.var"})
        EXPECT_EQ(NameAfterMove(Copy("work.var", saved)), temp_.Path("new.var")) << saved;
}

TEST_F(WorkingCopies, AtTheirPlaceStayThere) {
    temp_.Put("new.var", "kept");
    EXPECT_TRUE(Move(Copy("new.var", "new.var")));
    EXPECT_TRUE(Move(Written("new.var", "")));
    EXPECT_EQ(temp_.Content("new.var"), "kept");
    // Another spelling of the same place, as for a document in the folder of the copies.
    WorkingCopy copy = Written("new.var", "");
    copy.working = temp_.Path("./new.var");
    EXPECT_TRUE(Move(copy));
    EXPECT_EQ(temp_.Content("new.var"), "kept");
}

TEST_F(WorkingCopies, ThatCannotGetThereSayAndKeepEverything) {
    std::filesystem::create_directories(temp_.Path("new.var") + "/full");
    temp_.Put("work.var", "edited");
    EXPECT_FALSE(Move(Written("work.var", "saved.var")));
    EXPECT_FALSE(Move(Copy("work.var", "work.var")));
    EXPECT_EQ(temp_.Content("work.var"), "edited");
    EXPECT_TRUE(std::filesystem::is_directory(temp_.Path("new.var")));
}

TEST_F(WorkingCopies, ThatWouldHaveToCutTheirNameAreRefused) {
    temp_.Put("work.var", "edited");
    WorkingCopy copy = Written("work.var", "");
    copy.target = temp_.Path(std::string(250, 'n'));
    EXPECT_FALSE(Move(copy));
    EXPECT_EQ(files::LastError(), ENAMETOOLONG);
    EXPECT_EQ(temp_.Content("work.var"), "edited");
}

} // namespace
