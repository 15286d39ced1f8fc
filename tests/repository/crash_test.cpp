// A process that is killed in the midst of its work. POSIX only: it forks.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

/// Runs `work` in a child process that never returns from it, reads the numbers it reports and kills it once
/// it reported `enough` of them.
template <class Work>
std::int32_t killAfter(std::int32_t enough, Work work) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        work([&](std::int32_t number) { static_cast<void>(!write(ends[1], &number, sizeof number)); });
        _exit(0);
    }
    close(ends[1]);
    std::int32_t reported = 0;
    while (reported < enough && read(ends[0], &reported, sizeof reported) == sizeof reported) {
    }
    kill(child, SIGKILL);
    std::int32_t later = 0;
    while (read(ends[0], &later, sizeof later) == sizeof later)
        reported = later;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    return reported;
}

// No connection is open across a fork: the child opens its own.
TEST(Crash, AKilledProcessLosesNoCommittedChange) {
    TemporaryFolder folder;
    {
        const auto repository = automation::make<Repository>();
        repository->create(folder.file());
        repository->makeMetaNode(u"Book", u"").call(u"MakeMetaProperty", u"Pages", u"Integer");
    }
    for (int round = 0; round < 3; ++round) {
        const std::int32_t base = round * 1'000'000;
        const std::int32_t reported = killAfter(base + 500, [&](const auto& report) {
            const auto repository = automation::make<Repository>();
            repository->open(folder.file());
            for (std::int32_t i = base + 1; i < base + 999'999; ++i) {
                const Object book = repository->makeNode(u"Book", u"B", numbered(u"b", i));
                book.put(u"Pages", i);
                report(i);
            }
        });
        EXPECT_GE(reported, base + 500);
        const auto repository = automation::make<Repository>();
        repository->open(folder.file());
        const Object books = repository->metaNodes().item(u"Book").toObject().get(u"Extension").toObject();
        for (std::int32_t i = base + 1; i <= reported; ++i)
            ASSERT_EQ(books.item(numbered(u"b", i)).toObject().get(u"Pages").toInteger(), i);
    }
}

TEST(Crash, WhatAKilledSessionMadeForItselfIsGoneAtTheNextOpening) {
    TemporaryFolder folder;
    killAfter(1, [&](const auto& report) {
        const auto repository = automation::make<Repository>();
        repository->create(folder.file());
        repository->makeDynamicMetaClass(u"Passing", u"");
        repository->makeNode(u"Passing", u"x", u"p");
        repository->makeDynamicMetaClass(u"Kept", u"").put(u"IsPersistent", true);
        report(1);
        pause();
    });
    const auto repository = automation::make<Repository>();
    repository->open(folder.file());
    EXPECT_EQ(namesOf(Value(repository->metaNodes())), std::vector<std::string>{"Kept"});
    repository->makeNode(u"Kept", u"x", u"p");
    const auto second = automation::make<Repository>();
    second->open(folder.file());
    EXPECT_EQ(second->metaNodes().get(u"Count").toInteger(), 1) << "the file is not kept locked";
}

TEST(Crash, AReadOnlyFileIsLeftAlone) {
    TemporaryFolder folder;
    automation::make<Repository>()->create(folder.file());
    const std::filesystem::path path = folder.path() / "test.quorel";
    std::filesystem::permissions(path, std::filesystem::perms{0444});
    std::filesystem::permissions(folder.path(), std::filesystem::perms{0755});
    const std::string before = contentsOf(path);
    const pid_t child = fork();
    if (child == 0) {
        // The superuser may write everything, so the child becomes nobody.
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(2);
        try {
            automation::make<Repository>()->open(folder.file());
        } catch (const automation::Error& error) {
            const bool isSaid = error.description().find(u"is read-only") != std::u16string::npos;
            _exit(error.number() == 75 && isSaid ? 0 : 3);
        }
        _exit(4);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(contentsOf(path) == before);
    EXPECT_EQ(folder.count(), 1U);
}

}  // namespace
}  // namespace quorel::repository::testing
