// Set before main of every test program, however it is started: no display of its own, and nothing
// that could reach the machine's shutdown, ports, service files or running copies. A test that
// needs one of these sets it to a place of its own.

#include <stdlib.h>

#include <filesystem>

namespace {

class Environment {
 public:
  Environment() {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("VAREK_SHUTDOWN_COMMAND", "true", 1);
    setenv("VAREK_COM_DIR", "/nonexistent", 1);
    setenv("VAREK_ROOT", "/nonexistent", 1);
    unsetenv("NOTIFY_SOCKET");
    if (mkdtemp(runtime_)) setenv("XDG_RUNTIME_DIR", runtime_, 1);
  }
  ~Environment() {
    std::error_code error;
    std::filesystem::remove_all(runtime_, error);
  }

 private:
  char runtime_[32] = "/tmp/varek-runtime-XXXXXX";
};

[[maybe_unused]] const Environment environment;

}  // namespace

/// The toolkit keeps its fonts to the end of the process; what is ours is still reported.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libQt6Gui\nleak:libfontconfig\nleak:libfreetype\n";
}
