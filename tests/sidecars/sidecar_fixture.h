// The programs that the monitor starts, in a folder of their own, driven by shell lines: they are
// processes that come and go, meet on a display, and send to servers on loopback.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "support/monitor_fixture.h"

namespace varek::test {

class SidecarTest : public testing::Test {
 protected:
  explicit SidecarTest(const std::vector<std::string>& programs);

  /// Runs `lines` in the folder, in which the programs stand; what they write, standard error too.
  /// They can use `display` (starts one, which goes when the lines end), `await CONDITION` (until
  /// that command succeeds; ends the lines when it never does), `windows` (how many the programs
  /// have), `height` (of the window, in pixels) and `job NAME LINES` (makes an executable file in
  /// autosave.d).
  std::string Shell(const std::string& lines) const;
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

 private:
  TemporaryFolder folder_;
};

/// One of the programs that send messages, and a server that leaves what it gets in the folder.
class SenderTest : public SidecarTest {
 protected:
  explicit SenderTest(const std::string& program) : SidecarTest({program}), program_(program) {}
  ~SenderTest() override { EndServer(); }

  /// Runs the program with one argument, or with none, to its end; its exit status.
  int Run(const std::optional<std::string>& line) const;
  /// The same, and ends it as the system does at its own end, after a second.
  int RunAndEnd(const std::string& line) const;
  /// "[a][b]..."
  static std::string Line(const std::vector<std::string>& fields);
  /// Starts the Python program `script` with the folder and `words`, in place of the last one;
  /// returns when it has told its port.
  void Serve(const std::string& script, const std::string& words);
  /// A certificate for 127.0.0.1 that nobody else knows: cert.pem and key.pem.
  void MakeCertificate() const;

  std::string Read(const std::string& name) const;
  void Write(const std::string& name, const std::string& bytes) const;
  std::string Log() const { return Read(program_ + ".log"); }
  long LogLines() const;
  /// "127.0.0.1:" and the port of the server.
  std::string Address() const { return "127.0.0.1:" + Read("port"); }

 private:
  /// The server ends when its standard input does, so also with the test program.
  void EndServer();

  std::string program_;
  FILE* server_ = nullptr;
};

}  // namespace varek::test
