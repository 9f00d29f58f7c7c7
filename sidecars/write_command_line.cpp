// Stands for a sidecar that is still to be built: writes the command line that it was given to
// standard error and ends.

#include <cstdio>

int main(int argc, char** argv) {
  std::fputs(argv[0], stderr);
  for (int i = 1; i < argc; ++i) std::fprintf(stderr, " %s", argv[i]);
  std::fputc('\n', stderr);
  return 0;
}
