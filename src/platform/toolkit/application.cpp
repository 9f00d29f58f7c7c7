#include "platform/toolkit/application.h"

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include "platform/errors/guard.h"
#include "platform/errors/log.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "platform/time/timers.h"
#include "platform/toolkit/desktop_notifier.h"
#include "platform/toolkit/desktop_tray.h"
#include "platform/toolkit/message_boxes.h"

namespace platform {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGUSR1, SIGUSR2};

int signalPipe[2] = {-1, -1};

std::function<void(int)>& EndReplacement() {
  static std::function<void(int)> end;
  return end;
}

extern "C" void NoteSignal(int signal) {
  const auto byte = static_cast<char>(signal);
  if (write(signalPipe[1], &byte, 1) < 0) return;  // A full pipe already holds enough of them.
}

/// A program that was started to outlive its terminal keeps doing so.
void CatchUnlessHangUpIsIgnored(int signal, const struct sigaction& action) {
  struct sigaction present {};
  sigaction(signal, nullptr, &present);
  if (signal == SIGHUP && present.sa_handler == SIG_IGN) return;
  sigaction(signal, &action, nullptr);
}

void CatchSignals() {
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalPipe) != 0) return;
  struct sigaction action {};
  action.sa_handler = NoteSignal;
  action.sa_flags = SA_RESTART;
  for (int signal : kSignals) CatchUnlessHangUpIsIgnored(signal, action);
  std::signal(SIGPIPE, SIG_IGN);
}

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

/// A display that is named but cannot be opened must not keep the monitor from starting, so the
/// offscreen platform stands behind the real ones. Only the older of those lets a program place its
/// windows and keep them on top, as countdowns and warnings must be.
void ChoosePlatform() {
  if (IsSet("QT_QPA_PLATFORM")) return;
  std::string platforms;
  if (IsSet("DISPLAY")) platforms += "xcb;";
  if (IsSet("WAYLAND_DISPLAY")) platforms += "wayland;";
  setenv("QT_QPA_PLATFORM", (platforms + "offscreen").c_str(), 1);
}

/// What the toolkit says of a platform without a display is of no use to anyone.
void LogToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  const bool idle = text.startsWith(QStringLiteral("This plugin does not support")) ||
                    text.contains(QStringLiteral("XDG_RUNTIME_DIR not set"));
  if (!idle) LogLine(text.toStdString());
}

/// QApplication's constructor must already see the chosen platform, and no bus that it would wait
/// for forever: the monitor must work on a broken desktop too.
struct PlatformChosen {
  PlatformChosen() {
    qInstallMessageHandler(LogToolkitMessage);
    ChoosePlatform();
    if (IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY")) LeaveSilentSessionBus();
  }
};

}  // namespace

namespace {

class ToolkitLoop final : public EventLoop {
 public:
  void Process() override { QCoreApplication::processEvents(); }
  void Wait(int milliseconds) override {
    QTimer wakeUp;
    wakeUp.setSingleShot(true);
    wakeUp.setTimerType(Qt::PreciseTimer);
    wakeUp.start(milliseconds);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  void Post(std::function<void()> action) override {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(action),
                              Qt::QueuedConnection);
  }
};

}  // namespace

struct Application::Impl {
  Impl(int& argc, char** argv) : qt(argc, argv) {}

  PlatformChosen chosen;
  QApplication qt;
  ToolkitLoop loop;
  ToolkitMessageBoxes boxes;
  DesktopTray tray;
  QTimer wakeUp;
  std::unique_ptr<QSocketNotifier> signalNotifier;
  std::function<void()> stop;
  std::function<void(bool)> pause;
  std::function<void()> sessionEnding;

  void ArmWakeUp() {
    const auto next = NextDueTick();
    if (!next || ReplacedClock()) return wakeUp.stop();
    wakeUp.start(static_cast<int>(std::max<int64_t>(0, *next - TickCount())));
  }

  void HandIn() {
    SetEventLoop(&loop);
    SetMessageDriver(&boxes);
    SetDesktopTray(&tray, HoldsPicture);
  }

  void DriveTimers() {
    wakeUp.setSingleShot(true);
    wakeUp.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wakeUp, &QTimer::timeout, &wakeUp, [] { RunDueTimers(); });
    SetTimerDriver([this] { ArmWakeUp(); });
  }

  void HandleSignals() {
    char bytes[16];
    ssize_t count = 0;
    while ((count = read(signalPipe[0], bytes, sizeof bytes)) > 0) {
      for (ssize_t i = 0; i < count; ++i) HandleSignal(bytes[i]);
    }
  }

  void HandleSignal(int signal) {
    if (signal == SIGUSR1 || signal == SIGUSR2) {
      if (pause) Guarded("application pause", [&] { pause(signal == SIGUSR1); });
    } else if (stop) {
      Guarded("application stop", stop);
    }
  }

  void HandleSessionEnd() {
    if (sessionEnding) Guarded("application session end", sessionEnding);
  }
};

Application::Application(int& argc, char** argv) : impl_(std::make_unique<Impl>(argc, argv)) {
  QApplication::setApplicationName(QStringLiteral("Varek"));
  QApplication::setQuitOnLastWindowClosed(false);
  // The toolkit takes on the user's locale, in which a number may have a comma for its point.
  std::setlocale(LC_NUMERIC, "C");
  impl_->HandIn();
  impl_->DriveTimers();
  CatchSignals();
  impl_->signalNotifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
  QObject::connect(impl_->signalNotifier.get(), &QSocketNotifier::activated, &impl_->qt,
                   [this] { impl_->HandleSignals(); });
  QObject::connect(&impl_->qt, &QGuiApplication::commitDataRequest, &impl_->qt,
                   [this] { impl_->HandleSessionEnd(); });
}

Application::~Application() {
  SetTimerDriver(nullptr);
  SetDesktopTray(nullptr, nullptr);
  SetMessageDriver(nullptr);
  SetEventLoop(nullptr);
}

void Application::OnStopSignal(std::function<void()> stop) { impl_->stop = std::move(stop); }

void Application::OnPauseSignals(std::function<void(bool)> changed) {
  impl_->pause = std::move(changed);
}

void Application::OnSessionEnd(std::function<void()> ending) {
  impl_->sessionEnding = std::move(ending);
}

void Application::Run() { QApplication::exec(); }

void EndProcess(int status) {
  if (EndReplacement()) EndReplacement()(status);
  std::fflush(nullptr);
  _exit(status);
}

void ReplaceEndProcess(std::function<void(int)> end) { EndReplacement() = std::move(end); }

}  // namespace platform
