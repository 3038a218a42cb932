#include <QApplication>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "providers/qt/QtAlerts.h"
#include "providers/qt/QtApplication.h"
#include "providers/qt/QtRunLoop.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

using namespace std::chrono_literals;

/// A source that counts; each count is one thing to do.
struct CountedSource final : RunLoopSource {
  ~CountedSource() override { ::close(counter); }
  void signalTwice() const { EXPECT_EQ(::eventfd_write(counter, 2), 0); }
  std::vector<int> descriptors() const override { return {counter}; }
  void perform() override {
    eventfd_t one = 0;
    EXPECT_EQ(::eventfd_read(counter, &one), 0);
    ++performed;
    if (onPerform) onPerform();
  }
  const int counter = ::eventfd(0, EFD_SEMAPHORE);
  int performed = 0;
  std::function<void()> onPerform;
};

struct QtRunLoopTest : ::testing::Test {
  QtApplication application;
  testing::RecordingDiagnostics diagnostics;
  CallbackGate gate{application, diagnostics};
  QtCursor cursor;
  QtAlerts alerts{gate, cursor, [](std::string_view) { return QString(); }};
  CountedSource source;
  QtRunLoop loop{gate};
};

TEST_F(QtRunLoopTest, ServesASourceThatThrowsUntilItRemovesItself) {
  loop.addSource(source);
  source.onPerform = [] { throw std::runtime_error("no value for Handle"); };
  source.signalTwice();
  ASSERT_TRUE(QTest::qWaitFor([&] { return source.performed == 2; }));
  EXPECT_EQ(diagnostics.lines, std::vector<std::string>(2, "internal error: no value for Handle"));
  source.onPerform = [&] { loop.removeSource(source); };
  source.signalTwice();
  ASSERT_TRUE(QTest::qWaitFor([&] { return source.performed == 3; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(source.performed, 3);
}

TEST_F(QtRunLoopTest, ServesNothingWhileAnAlertIsUpAndATimerUntilItInvalidatesItself) {
  int ticks = 0;
  TimerId timer = 0;
  timer = loop.startRepeatingTimer(1ms, [&] {
    if (++ticks == 3) loop.invalidateTimer(timer);
  });
  loop.addSource(source);
  source.signalTwice();
  QTimer::singleShot(0, qApp, [&] {
    QTest::qWait(20);
    EXPECT_EQ(source.performed, 0);
    EXPECT_EQ(ticks, 0);
    QApplication::activeModalWidget()->close();
  });
  alerts.show("Warning", "Not found touch device.", "OK", "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return source.performed == 2 && ticks == 3; }));
  QTest::qWait(20);
  EXPECT_EQ(ticks, 3) << "it goes on once it is invalidated";
}

TEST_F(QtRunLoopTest, EndsBeforeOrInsideTheLoopAndServesNothingAfterwards) {
  loop.addSource(source);
  source.onPerform = [&] { application.exit(3); };
  source.signalTwice();
  EXPECT_EQ(application.run(), 3);
  EXPECT_EQ(source.performed, 1);
  QCoreApplication::processEvents();
  EXPECT_EQ(source.performed, 1);
  EXPECT_EQ(application.run(), 3) << "ended before it runs again";
  application.terminate();
  EXPECT_EQ(application.run(), 3) << "the first end counts";
}

}  // namespace
}  // namespace touchpanel
