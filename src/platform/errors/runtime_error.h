// The one kind of error that a failing platform operation throws, and the numbers that the
// system uses. Users catch it only through guard.h.
#pragma once

#include <stdexcept>
#include <string>

namespace platform {

/// A failed operation: a number that goes into the error list, and words for a developer.
class RuntimeError final : public std::runtime_error {
 public:
  RuntimeError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

namespace errors {
constexpr int kInvalidCall = 5;
constexpr int kOverflow = 6;
constexpr int kSubscript = 9;
constexpr int kInternal = 51;
constexpr int kDivisionByZero = 11;
constexpr int kFileNotFound = 53;
constexpr int kDeviceIo = 57;
constexpr int kInputPastEnd = 62;
constexpr int kPathAccess = 75;
constexpr int kPathNotFound = 76;
constexpr int kObjectNotSet = 91;
constexpr int kNoCurrentRecord = 3021;
constexpr int kDatabaseNotFound = 3024;
constexpr int kDatabaseReadOnly = 3051;
constexpr int kQuerySyntax = 3075;
constexpr int kTableNotFound = 3078;
constexpr int kDatabaseFailure = 3146;
constexpr int kRecordDeleted = 3167;
constexpr int kItemNotFound = 3265;
constexpr int kNotADatabase = 3343;
constexpr int kInvalidPicture = 481;
constexpr int kNotAService = 1063;
constexpr int kNoEdit = 3020;
constexpr int kDataConversion = 3421;
constexpr int kPortOpenFailed = 8002;
constexpr int kPortNotOpen = 8018;
}  // namespace errors

}  // namespace platform
