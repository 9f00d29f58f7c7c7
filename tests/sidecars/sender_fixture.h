// One of the programs that send messages, alone in a folder of its own, and a server on loopback
// for it, which leaves what it gets in the same folder.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>

#include "support/monitor_fixture.h"

namespace varek::test {

class SenderTest : public testing::Test {
 protected:
  explicit SenderTest(const std::string& program);
  ~SenderTest() override { EndServer(); }

  /// Runs the program with one argument, or with none, to its end; its exit status.
  int Run(const std::optional<std::string>& line);
  /// The same, and ends it as the system does at its own end, after a second.
  int RunAndEnd(const std::string& line);
  /// "[a][b]..."
  static std::string Line(const std::vector<std::string>& fields);
  /// Starts the Python program `script` with the folder and `words`, in place of the last one;
  /// returns when it has told its port.
  void Serve(const std::string& script, const std::string& words);
  /// A certificate for 127.0.0.1 that nobody else knows: cert.pem and key.pem.
  void MakeCertificate();

  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }
  std::string Read(const std::string& name) const;
  void Write(const std::string& name, const std::string& bytes) const;
  std::string Log() const { return Read(program_ + ".log"); }
  long LogLines() const;
  /// "127.0.0.1:" and the port of the server.
  std::string Address() const { return "127.0.0.1:" + Read("port"); }

 private:
  /// The server ends when its standard input does, so also with the test program.
  void EndServer();
  int Shell(const std::string& command) const;

  TemporaryFolder folder_;
  std::string program_;
  FILE* server_ = nullptr;
};

}  // namespace varek::test
