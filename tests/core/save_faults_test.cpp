// Saves of which a file operation fails, or whose program is killed.
#include "faults.h"
#include "saves.h"

#ifndef _WIN32
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using namespace zentrik_test;

TEST(Saves, DoWhatTheyShall) {
    for (const Save& save : AllSaves()) {
        const TempFolder temp;
        PutAll(temp, save.before);
        EXPECT_TRUE(save.run(temp)) << save.name;
        EXPECT_EQ(ContentsOf(temp, save.before), save.after) << save.name;
    }
}

TEST(Saves, LeaveEveryFileOldOrNewWhicheverOperationFails) {
    for (const Save& save : AllSaves()) {
        int faults = 0;
        for (std::int64_t number = 1;; ++number) {
            const TempFolder temp;
            PutAll(temp, save.before);
            const FaultyOperation fault(number);
            const bool done = save.run(temp);
            if (!fault.Happened())
                break;
            ++faults;
            const Contents found = ContentsOf(temp, save.before);
            ExpectOldOrNew(save, found);
            if (!done && save.all_or_nothing) {
                EXPECT_EQ(found, save.before) << save.name << ", operation " << number;
            }
        }
        EXPECT_GE(faults, 4) << save.name;
    }
}

#ifndef _WIN32
TEST(Saves, LeaveEveryFileOldOrNewWhenTheProgramIsKilled) {
    constexpr int kKills = 200;
    std::mt19937 random(20);
    const std::vector<Save> saves = AllSaves();
    int before = 0;
    int after = 0;
    for (int kill_number = 0; kill_number < kKills; ++kill_number) {
        const Save& save = saves[static_cast<std::size_t>(kill_number) % saves.size()];
        const TempFolder temp;
        PutAll(temp, save.before);
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0) {
            write(ready[1], "x", 1);
            save.run(temp);
            pause();
        }
        char byte;
        ASSERT_EQ(read(ready[0], &byte, 1), 1);
        usleep(static_cast<useconds_t>(random() % 1500));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        close(ready[0]);
        close(ready[1]);
        const Contents found = ContentsOf(temp, save.before);
        ExpectOldOrNew(save, found);
        before += found == save.before;
        after += found == save.after;
    }
    // Some were killed early and some late, so others on the way.
    EXPECT_GT(before, 0);
    EXPECT_GT(after, 0);
}
#endif

} // namespace
