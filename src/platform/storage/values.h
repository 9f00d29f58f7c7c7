// Values, fields and tables, as every database has them.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace platform {

enum class Access { ReadWrite, ReadOnly };

/// The numbers are those of the table definitions; the declared types in the files tell them.
enum class FieldType { Byte = 2, Long = 4, Single = 6, Date = 8, Text = 10 };

/// A field's value; the empty state is a missing one.
using Value = std::variant<std::monostate, int64_t, double, std::string>;

/// The default text of a value: numbers as SingleText, a missing value empty.
std::string ValueText(const Value& value);
/// A value as a number; texts go through the lenient reader, a missing value is 0.
double ValueNumber(const Value& value);

struct FieldDef {
  std::string name;
  FieldType type;
};

struct TableDef {
  std::string name;
  std::vector<FieldDef> fields;
};

}  // namespace platform
