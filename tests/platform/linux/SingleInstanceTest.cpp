#include "platform/linux/SingleInstance.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <csignal>
#include <functional>
#include <set>
#include <unistd.h>

namespace pello {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLong{30'000};
constexpr milliseconds kShort{20};

class SingleInstanceTest : public testing::Test {
protected:
    /// A process that takes the lock over and then does `next`; returns once it holds the lock.
    pid_t startHolder(const std::function<void(const SingleInstance&)>& next) const {
        std::array<int, 2> report{};
        EXPECT_EQ(::pipe(report.data()), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            SingleInstance instance(file);
            const bool isHeld = instance.takeOver(kLong).empty();
            (void)::write(report[1], "", isHeld ? 1 : 0);
            next(instance);
            ::_exit(0);
        }
        ::close(report[1]);
        char byte = 1;
        EXPECT_EQ(::read(report[0], &byte, 1), 1) << "the lock was not had";
        ::close(report[0]);
        return child;
    }

    /// The signal that ended `child`; 0 when it ended by itself.
    static int endOf(pid_t child) {
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "pello.lock";
};

TEST_F(SingleInstanceTest, TheOtherProcessIsAskedToEndAndWaitedFor) {
    sigset_t asked;
    sigset_t before;
    sigemptyset(&asked);
    sigaddset(&asked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &asked, &before); // for the child: it must not miss the signal
    const pid_t polite = startHolder([&](const SingleInstance& its) {
        int signal = 0;
        ::sigwait(&asked, &signal);
        if (its.isAwaited()) {
            folder.write("last words", "");
        }
    });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    SingleInstance instance(file);
    EXPECT_EQ(instance.takeOver(kLong), "");
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "last words"));
    EXPECT_EQ(endOf(polite), 0);
    EXPECT_FALSE(instance.isAwaited());
}

TEST_F(SingleInstanceTest, OneThatIsDeafOrStoppedIsEndedByForce) {
    const pid_t stopped = startHolder([](const SingleInstance&) { std::raise(SIGSTOP); });
    int status = 0;
    ::waitpid(stopped, &status, WUNTRACED);
    ASSERT_TRUE(WIFSTOPPED(status));
    SingleInstance instance(file);
    EXPECT_EQ(instance.takeOver(kShort), "");
    EXPECT_EQ(endOf(stopped), SIGKILL);
}

TEST_F(SingleInstanceTest, OfManyThatStartTogetherOneIsLeft) {
    std::set<pid_t> started;
    while (started.size() < 5) {
        const pid_t child = ::fork();
        if (child == 0) {
            SingleInstance instance(file);
            if (instance.takeOver(kLong).empty()) {
                ::pause();
            }
            ::_exit(1);
        }
        started.insert(child);
    }
    while (started.size() > 1) {
        int status = 0;
        started.erase(::wait(&status));
        EXPECT_TRUE(WIFSIGNALED(status));
    }
    EXPECT_EQ(::waitpid(*started.begin(), nullptr, WNOHANG), 0) << "the last one stays";
    ::kill(*started.begin(), SIGKILL);
    ::wait(nullptr);
}

TEST_F(SingleInstanceTest, WithoutTheLockFileItSaysWhy) {
    SingleInstance instance(folder.path() / "none" / "pello.lock");
    EXPECT_NE(instance.takeOver(kShort).find("No such file"), std::string::npos);
}

} // namespace
} // namespace pello
