#include "web/session/session.h"

#include <random>
#include <string_view>

#include "core/data_center.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "web/session/hash.h"

namespace varek {

std::string LoginKey;
std::string SessionKey;
std::string LoggedInIP;
std::string ControlKey;

namespace {

constexpr std::string_view kCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr int kKeyLength = 31;

std::mt19937_64 StartFromEntropy() {
  std::random_device entropy;
  std::seed_seq seeds{entropy(), entropy(), entropy(), entropy(),
                      entropy(), entropy(), entropy(), entropy()};
  return std::mt19937_64(seeds);
}

std::mt19937_64& Generator() {
  static std::mt19937_64 generator = StartFromEntropy();
  return generator;
}

/// Mixes `seed` into what the generator holds: a key can't be guessed from the clock, and two keys
/// of one second differ.
void Randomize(int seed) {
  std::mt19937_64& generator = Generator();
  const auto half = [&generator] { return static_cast<uint32_t>(generator() >> 32); };
  std::seed_seq seeds{half(), half(), half(), half(), half(), half(), static_cast<uint32_t>(seed)};
  generator.seed(seeds);
}

/// 0 up to but not including 1.
double Random() { return static_cast<double>(Generator()() >> 11) * 0x1p-53; }

char RandomCharacter() {
  const double last = static_cast<double>(kCharacters.size() - 1);
  return kCharacters[static_cast<size_t>(platform::RoundHalfEven(Random() * last))];
}

std::string Token(const std::string& password, const std::string& key) {
  return Hash(Hash(password) + key);
}

}  // namespace

std::string NewKey() {
  Randomize(platform::SecondsSinceMidnight());
  std::string key;
  for (int i = 0; i < kKeyLength; ++i) key += RandomCharacter();
  return key;
}

std::string LoginToken() { return Token(DataCenter.settings.WebLoginPassword, LoginKey); }
std::string SessionToken() { return Token(DataCenter.settings.WebLoginPassword, SessionKey); }
std::string ControlToken() { return Token(DataCenter.settings.WebControlPassword, ControlKey); }

}  // namespace varek
