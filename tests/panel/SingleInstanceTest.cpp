#include <QCoreApplication>
#include <QMainWindow>
#include <csignal>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "panel/SingleInstance.h"
#include "support/TemporaryDirectory.h"

namespace touchpanel::testing {
namespace {

class SingleInstanceTest : public ::testing::Test {
 protected:
  SingleInstanceTest() { qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(directory_.path())); }
  ~SingleInstanceTest() override {
    qputenv("XDG_RUNTIME_DIR", before_);
    qputenv("DISPLAY", display_);
    qunsetenv("XDG_ACTIVATION_TOKEN");
  }

 private:
  TemporaryDirectory directory_;
  QByteArray before_ = qgetenv("XDG_RUNTIME_DIR");
  QByteArray display_ = qgetenv("DISPLAY");
};

TEST_F(SingleInstanceTest, BringsTheFirstToTheFrontWhileProgramsAndDisplaysStayApart) {
  QMainWindow window;
  window.showMinimized();
  {
    const SingleInstance first("panel", "");
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(SingleInstance("panel", "a token").isFirst());
    for (int turn = 0; turn < 100 && window.isMinimized(); ++turn)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_EQ(activationToken(), "a token");
    EXPECT_TRUE(SingleInstance("panel-demo", "").isFirst());
    qputenv("DISPLAY", ":77");
    EXPECT_TRUE(SingleInstance("panel", "").isFirst());
  }
  qputenv("DISPLAY", "");
  EXPECT_TRUE(SingleInstance("panel", "").isFirst()) << "the first has ended";
}

TEST_F(SingleInstanceTest, IsNotKeptOutByOneThatCrashed) {
  const pid_t child = ::fork();
  if (child == 0) {
    const SingleInstance crashing("panel", "");
    std::raise(SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  const SingleInstance next("panel", "");
  EXPECT_TRUE(next.isFirst());
  EXPECT_FALSE(SingleInstance("panel", "").isFirst()) << "it listens where the other one did";
}

}  // namespace
}  // namespace touchpanel::testing
