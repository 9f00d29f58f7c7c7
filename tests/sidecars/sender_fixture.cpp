#include "sidecars/sender_fixture.h"

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace varek::test {

namespace fs = std::filesystem;

namespace {

constexpr useconds_t kLookAgain = 10'000;
constexpr int kMostLooks = 6000;

}  // namespace

SenderTest::SenderTest(const std::string& program) : program_(program) {
  fs::copy_file(PROGRAM_FOLDER "/" + program, Path(program));
  InstallDatabases(folder_.Path());
  setenv("no_proxy", "*", 1);
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "JOURNAL_STREAM"}) unsetenv(display);
}

int SenderTest::Run(const std::optional<std::string>& line) {
  setenv("LINE", line.value_or("").c_str(), 1);
  return Shell("./" + program_ + (line ? " \"$LINE\"" : "") + " >>output 2>&1");
}

int SenderTest::RunAndEnd(const std::string& line) {
  setenv("LINE", line.c_str(), 1);
  return Shell("./" + program_ + " \"$LINE\" & sleep 1; tr -d '\\0' </proc/$!/cmdline >list; " +
               "kill $!; wait $!");
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
  server_ = popen(("cd " + folder_.Path() + " && exec " + command).c_str(), "w");
  for (int look = 0; look < kMostLooks && !fs::exists(Path("port")); ++look) usleep(kLookAgain);
  ASSERT_TRUE(fs::exists(Path("port"))) << Read("server");
}

void SenderTest::MakeCertificate() {
  ASSERT_EQ(Shell(OPENSSL " req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes "
                          "-subj /CN=test -addext subjectAltName=IP:127.0.0.1 -keyout key.pem "
                          "-out cert.pem 2>openssl"),
            0)
      << Read("openssl");
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

int SenderTest::Shell(const std::string& command) const {
  const int status = system(("cd " + folder_.Path() + "\n" + command).c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace varek::test
