// Set before main of every test program, however it is started: no display of its own, and nothing
// that could reach the machine's shutdown, ports or service files. A test that needs one of these
// sets it to a place of its own.

#include <cstdlib>

namespace {

[[maybe_unused]] const bool environmentSet = [] {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("VAREK_SHUTDOWN_COMMAND", "true", 1);
  setenv("VAREK_COM_DIR", "/nonexistent", 1);
  setenv("VAREK_ROOT", "/nonexistent", 1);
  return true;
}();

}  // namespace
