#include <cerrno>
#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "providers/files/AtomicReplacement.h"
#include "providers/files/FileCalls.h"
#include "support/TemporaryDirectory.h"

namespace touchpanel::files {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using touchpanel::testing::TemporaryDirectory;

constexpr char kOld[] = "the old contents";
constexpr char kNew[] = "the new contents, which are longer";

/// Counts the calls and interferes with the one whose number is given. Writes go in small pieces.
class InterferingCalls final : public FileCalls {
 public:
  enum class Interference { None, Fail, Kill };
  explicit InterferingCalls(Interference interference = Interference::None, int at = 0)
      : interference_(interference), at_(at) {}

  int open(const std::string& path, int flags, mode_t mode) override {
    return denied("open " + std::string((flags & O_DIRECTORY) != 0 ? "directory" : "file"))
               ? -1
               : FileCalls::open(path, flags, mode);
  }
  ssize_t write(int file, const void* buffer, std::size_t size) override {
    return denied("write") ? -1 : FileCalls::write(file, buffer, std::min<std::size_t>(size, 16));
  }
  int fchmod(int file, mode_t mode) override { return denied("fchmod") ? -1 : FileCalls::fchmod(file, mode); }
  int fsync(int file) override { return denied("fsync") ? -1 : FileCalls::fsync(file); }
  int close(int file) override {
    const bool failed = denied("close");  // a descriptor is gone even when close reports an error
    return FileCalls::close(file) != 0 || failed ? -1 : 0;
  }
  int rename(const std::string& from, const std::string& to) override {
    return denied("rename") ? -1 : FileCalls::rename(from, to);
  }
  int unlink(const std::string& path) override { return denied("unlink") ? -1 : FileCalls::unlink(path); }

  std::vector<std::string> calls;
  int error = EIO;

 private:
  bool denied(const std::string& call) {
    calls.push_back(call);
    if (static_cast<int>(calls.size()) != at_) return false;
    if (interference_ == Interference::Kill) std::raise(SIGKILL);
    errno = error;
    return interference_ == Interference::Fail;
  }
  Interference interference_;
  int at_;
};

const std::vector<std::string> kStepsOfAReplacement = {"open file", "fchmod", "write", "write", "write",
                                                       "fsync", "close", "rename",
                                                       // From here on the new file is in place.
                                                       "open directory", "fsync", "close"};
constexpr int kRenameStep = 8;

TEST(AtomicReplacement, SyncsTheDataBeforeTheNameAndLeavesTheOldFileAloneWhicheverStepFails) {
  for (int step = 0; step <= static_cast<int>(kStepsOfAReplacement.size()); ++step) {
    SCOPED_TRACE("step " + std::to_string(step) + " fails");  // step 0: none
    TemporaryDirectory directory;
    directory.write("file", kOld);
    InterferingCalls calls(InterferingCalls::Interference::Fail, step);
    const bool replaced = step == 0 || step > kRenameStep;
    EXPECT_EQ(replaceAtomically(directory.file("file"), kNew, calls),
              replaced ? kSuccess : kErrorInputOutput);
    if (step == 0) {
      EXPECT_EQ(calls.calls, kStepsOfAReplacement);
    }
    EXPECT_EQ(directory.read("file"), replaced ? kNew : kOld);
    EXPECT_THAT(directory.names(), ElementsAre("file")) << "something was left behind";
  }
}

TEST(AtomicReplacement, HoldsTheOldOrTheNewContentsWheneverTheProcessIsKilled) {
  for (int step = 1; step <= static_cast<int>(kStepsOfAReplacement.size()); ++step) {
    TemporaryDirectory directory;
    directory.write("file", kOld);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      InterferingCalls calls(InterferingCalls::Interference::Kill, step);
      replaceAtomically(directory.file("file"), kNew, calls);
      ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the process was not killed at step " << step;
    EXPECT_EQ(directory.read("file"), step > kRenameStep ? kNew : kOld) << "killed at step " << step;

    FileCalls calls;
    EXPECT_EQ(replaceAtomically(directory.file("file"), "next", calls), kSuccess)
        << "a leftover is in the way";
    EXPECT_EQ(directory.read("file"), "next");
  }
}

TEST(AtomicReplacement, KeepsWhoMayReadAndWriteAFileAndMakesANewOneByTheUmask) {
  TemporaryDirectory directory;
  const auto path = directory.file("file");
  FileCalls calls;
  for (const mode_t mode : {0640U, 0600U, 0664U, 0444U, 0644U | S_ISUID | S_ISVTX | S_IXUSR}) {
    const auto before = ::umask(027);
    ::chmod(path.c_str(), mode);  // there is no file at first
    EXPECT_EQ(replaceAtomically(path, kNew, calls), kSuccess);
    ::umask(before);
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms{mode & 0666});
  }
}

TEST(AtomicReplacement, FailsInAMissingDirectoryAndOverADirectoryWithoutLeavingAnything) {
  TemporaryDirectory directory;
  FileCalls calls;
  EXPECT_EQ(replaceAtomically(directory.file("missing/file"), kNew, calls), kErrorNotFound);
  EXPECT_THAT(directory.names(), IsEmpty());

  ASSERT_EQ(::mkdir(directory.file("file").c_str(), 0755), 0);
  EXPECT_EQ(replaceAtomically(directory.file("file"), kNew, calls), kErrorInputOutput);
  EXPECT_THAT(directory.names(), ElementsAre("file"));
}

TEST(AtomicReplacement, SaysWhyItFailed) {
  TemporaryDirectory directory;
  for (const auto& [error, status] : {std::pair(EACCES, kErrorNotPermitted),
                                      {EROFS, kErrorNotPermitted},
                                      {ENOSPC, kErrorNoSpace},
                                      {EDQUOT, kErrorNoSpace},
                                      {ENOENT, kErrorNotFound},
                                      {EIO, kErrorInputOutput}})
    for (const int step : {1, 2}) {  // a new file is opened, then written
      InterferingCalls calls(InterferingCalls::Interference::Fail, step);
      calls.error = error;
      EXPECT_EQ(replaceAtomically(directory.file("file"), kNew, calls), status) << error;
    }
}

TEST(AtomicReplacement, NeitherFollowsNorClobbersWhatStandsUnderTheTemporaryName) {
  TemporaryDirectory directory;
  directory.write("victim", "precious");
  const auto planted = directory.file(".file." + std::to_string(::getpid()) + ".0.tmp");
  ASSERT_EQ(::symlink(directory.file("victim").c_str(), planted.c_str()), 0);
  FileCalls calls;
  EXPECT_EQ(replaceAtomically(directory.file("file"), kNew, calls), kSuccess);
  EXPECT_EQ(directory.read("file"), kNew);
  EXPECT_EQ(directory.read("victim"), "precious");
  EXPECT_THAT(directory.names(), UnorderedElementsAre("victim", "file", HasSubstr(".0.tmp")));
}

}  // namespace
}  // namespace touchpanel::files
