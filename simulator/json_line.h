// One flat JSON object in one line of ASCII.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

class JsonLine final {
 public:
  /// Members come out in the order of the calls; `name` must need no escaping. Texts are bytes:
  /// what is not printable ASCII is written as \u00NN.
  JsonLine& AddText(std::string_view name, std::string_view text);
  JsonLine& AddFlag(std::string_view name, bool value);
  /// With up to `decimals` decimals, without trailing zeros.
  JsonLine& AddNumber(std::string_view name, double value, int decimals = 0);
  JsonLine& AddNull(std::string_view name);

  std::string Take() const { return "{" + members_ + "}"; }

 private:
  JsonLine& Add(std::string_view name, std::string_view value);

  std::string members_;
};

}  // namespace simulator
