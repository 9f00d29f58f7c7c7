// Stands where a sidecar is expected and adds how it was started to the file "calls" in the folder
// it was started from: its name and its arguments, each ended by a zero byte, then a record
// separator. One write, so that several at once do not mix.

#include <fcntl.h>
#include <unistd.h>

#include <string>

int main(int argc, char** argv) {
  const std::string path = argv[0];
  const size_t name = path.rfind('/') + 1;
  std::string call = path.substr(name) + '\0';
  for (int i = 1; i < argc; ++i) call += std::string(argv[i]) + '\0';
  call += '\x1e';
  const std::string calls = path.substr(0, name) + "calls";
  const int file = open(calls.c_str(), O_WRONLY | O_APPEND | O_CREAT, 0600);
  return write(file, call.data(), call.size()) == static_cast<ssize_t>(call.size()) ? 0 : 1;
}
