// The toolkit's application object and the end of the process.
#pragma once

#include <functional>
#include <memory>

namespace platform {

/// One for the life of the process, made first thing in main. Chooses the toolkit's offscreen
/// platform by itself when there is no display to open.
class Application final {
 public:
  Application(int& argc, char** argv);
  ~Application();

  /// `stop` is called from the event loop, or from any loop that pumps events, when SIGTERM,
  /// SIGINT or SIGHUP arrives.
  void OnStopSignal(std::function<void()> stop);

  /// `changed` is called with true when SIGUSR1 (pause) arrives and with false for SIGUSR2
  /// (continue): the service manager has no other way to say so.
  void OnPauseSignals(std::function<void(bool pause)> changed);

  /// `ending` is called when the desktop announces the end of the session. It can't be refused:
  /// the stop signal may follow, or the session may go on.
  void OnSessionEnd(std::function<void()> ending);

  /// Runs until the process is ended by EndProcess, or returns when the desktop asks it to quit.
  void Run();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// Ends the process at once with `status`; does not return. Nothing that stands further up the
/// stack runs any more, so everything must have been closed before.
[[noreturn]] void EndProcess(int status);

/// What EndProcess does instead, for tests; it must not return (it throws). nullptr restores.
void ReplaceEndProcess(std::function<void(int status)> end);

}  // namespace platform
