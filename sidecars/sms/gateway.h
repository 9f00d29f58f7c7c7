// An SMS service as SMSTO.conf describes it: where it is, what it wants to be given, and how its
// replies are read.
#pragma once

#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "kit/delivery.h"

namespace sidecar {

/// Which messages a parameter goes along with: those in Latin-1, the others, or all.
enum class Texts { All, Latin, Wide };

struct Parameter {
  Texts texts;
  std::string name;
  std::string pattern;  ///< its value, with placeholders
};

struct Gateway {
  std::string name;     ///< for the log
  bool post = false;    ///< else GET
  std::string address;  ///< http or https
  bool latin1 = false;  ///< values that Latin-1 can hold are sent in it, all others in UTF-8
  std::vector<Parameter> parameters;
  std::optional<std::regex> good;   ///< found in the reply that accepts a message
  std::optional<std::regex> error;  ///< found in a refusal; what it finds goes into the log
  DeliverySettings delivery;
};

/// A placeholder's name, without its braces, and what stands for it.
using Placeholders = std::map<std::string, std::string>;

/// `pattern` with its placeholders filled; what a value holds is not looked at again. Throws
/// RuntimeError for a placeholder that `values` does not have.
std::string Filled(const std::string& pattern, const Placeholders& values);

/// The gateway `number` of the file `conf`. Throws CannotSend when the file has none of this
/// number or its description is broken.
Gateway ReadGateway(const std::string& conf, const std::string& number);

}  // namespace sidecar
