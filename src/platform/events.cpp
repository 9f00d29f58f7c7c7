#include "platform/events.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <utility>

#include "platform/clock.h"
#include "platform/guard.h"
#include "platform/timers.h"

namespace platform {

void DoEvents() {
  if (ReplacedClock()) RunDueTimers();
  if (QCoreApplication::instance()) QCoreApplication::processEvents();
}

void WaitForEvents(int milliseconds) {
  if (Clock* clock = ReplacedClock()) {
    clock->Wait(milliseconds);
    DoEvents();
    return;
  }
  QTimer wakeUp;
  wakeUp.setSingleShot(true);
  wakeUp.setTimerType(Qt::PreciseTimer);
  wakeUp.start(milliseconds);
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void SpinEvents() {
  if (Clock* clock = ReplacedClock()) clock->Wait(1);
  DoEvents();
}

void Post(std::string place, std::function<void()> action) {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [place = std::move(place), action = std::move(action)] { Guarded(place, action); },
      Qt::QueuedConnection);
}

}  // namespace platform
