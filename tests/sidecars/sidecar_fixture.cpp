#include "sidecars/sidecar_fixture.h"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace varek::test {

namespace fs = std::filesystem;

namespace {

// A test that is killed leaves no display behind for long.
constexpr char kProcedures[] = R"(
umask 022
export XDG_RUNTIME_DIR=$PWD/run XDG_CONFIG_HOME=$PWD/home HOME=$PWD/home no_proxy='*'
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

SidecarTest::SidecarTest(const std::vector<std::string>& programs) {
  for (const std::string& name : programs) fs::copy_file(PROGRAM_FOLDER "/" + name, Path(name));
  InstallDatabases(folder_.Path());
  for (const char* name : {"run", "home"}) {
    fs::create_directory(Path(name));
    fs::permissions(Path(name), fs::perms::owner_all);
  }
}

std::string SidecarTest::Shell(const std::string& lines) const {
  const std::string script = "cd '" + folder_.Path() + "'\nexec 2>&1\n" + kProcedures + lines;
  FILE* shell = popen(script.c_str(), "r");
  if (!shell) throw std::runtime_error("popen");
  std::string text;
  for (int c = 0; (c = std::fgetc(shell)) != EOF;) text += static_cast<char>(c);
  pclose(shell);
  return text;
}

int SenderTest::Run(const std::optional<std::string>& line) const {
  setenv("LINE", line.value_or("").c_str(), 1);
  return std::stoi(Shell("./" + program_ + (line ? " \"$LINE\"" : "") + " >>output 2>&1; echo $?"));
}

int SenderTest::RunAndEnd(const std::string& line) const {
  setenv("LINE", line.c_str(), 1);
  return std::stoi(Shell("./" + program_ + " \"$LINE\" >>output 2>&1 & sleep 1\n" +
                         "tr -d '\\0' </proc/$!/cmdline >list; kill $!; wait $!; echo $?"));
}

std::string SenderTest::Line(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += "[" + field + "]";
  return line;
}

void SenderTest::Serve(const std::string& script, const std::string& words) {
  EndServer();
  fs::remove(Path("port"));
  const std::string command = PYTHON " -B " SCRIPTS "/" + script + " . " + words + " 2>server";
  server_ = popen(("cd " + Path("") + " && exec " + command).c_str(), "w");
  ASSERT_EQ(Shell("await '[ -e port ]'"), "") << Read("server");
}

void SenderTest::MakeCertificate() const {
  ASSERT_EQ(Shell(OPENSSL " req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes "
                          "-subj /CN=test -addext subjectAltName=IP:127.0.0.1 -keyout key.pem "
                          "-out cert.pem 2>openssl || cat openssl"),
            "");
}

std::string SenderTest::Read(const std::string& name) const {
  std::ifstream file(Path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void SenderTest::Write(const std::string& name, const std::string& bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
}

long SenderTest::LogLines() const { return std::ranges::count(Log(), '\n'); }

void SenderTest::EndServer() {
  if (server_) pclose(server_);
  server_ = nullptr;
}

}  // namespace varek::test
