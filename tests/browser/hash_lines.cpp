// Prints the server's hash of each line of standard input.
#include <iostream>
#include <string>

#include "web/session/hash.h"

int main() {
  for (std::string line; std::getline(std::cin, line);) std::cout << varek::Hash(line) << '\n';
  return 0;
}
