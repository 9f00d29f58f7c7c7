#include "sidecars/shell_fixture.h"

#include <cstdio>
#include <filesystem>

namespace varek::test {

namespace fs = std::filesystem;

namespace {

// A test that is killed leaves no display behind for long.
constexpr char kProcedures[] = R"(
umask 022
export XDG_RUNTIME_DIR=$PWD/run XDG_CONFIG_HOME=$PWD/home HOME=$PWD/home
export DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent
unset DISPLAY WAYLAND_DISPLAY JOURNAL_STREAM XDG_SESSION_ID QT_QPA_PLATFORM
await() {
  looks=0
  until eval "$1" 2>/dev/null; do
    looks=$((looks + 1)); [ $looks -lt 600 ] || { echo "in vain: $1"; exit 1; }
    sleep 0.1
  done
}
display() {
  timeout 100 Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 1024x768x24 3>number 2>/dev/null &
  server=$!
  trap 'kill $server' EXIT
  await '[ -s number ]'
  export DISPLAY=:$(cat number)
}
sizes() { xwininfo -root -tree | sed -n 's/.*"Varek": .* \([0-9]\{3,\}\)x\([0-9]*\)+.*/\2/p'; }
windows() { sizes | wc -l; }
height() { sizes | head -1; }
job() { mkdir -p autosave.d; printf '#!/bin/sh\n%s\n' "$2" >autosave.d/$1; chmod 755 autosave.d/$1; }
)";

}  // namespace

ShellTest::ShellTest() {
  for (const char* name : {"/alert", "/Autosave", "/ShowAutoSave"}) {
    fs::copy_file(std::string(PROGRAM_FOLDER) + name, folder_.Path() + name);
  }
  InstallDatabases(folder_.Path());
  for (const char* name : {"/run", "/home"}) {
    fs::create_directory(folder_.Path() + name);
    fs::permissions(folder_.Path() + name, fs::perms::owner_all);
  }
}

std::string ShellTest::Run(const std::string& lines) const {
  const std::string script = "cd '" + folder_.Path() + "'\nexec 2>&1\n" + kProcedures + lines;
  FILE* shell = popen(script.c_str(), "r");
  if (!shell) throw std::runtime_error("popen");
  std::string text;
  for (int c = 0; (c = std::fgetc(shell)) != EOF;) text += static_cast<char>(c);
  pclose(shell);
  return text;
}

}  // namespace varek::test
