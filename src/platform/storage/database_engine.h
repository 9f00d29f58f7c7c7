// The storage engine's side of database.h, shared by databases and recordsets and by nobody else:
// the connection, and how the engine's failures become ours.
#pragma once

#include <sqlite3.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <string>

#include "platform/errors/runtime_error.h"
#include "platform/storage/values.h"

namespace platform {

/// Runs an engine operation; its failures become RuntimeErrors.
template <typename Operation>
auto Engine(Operation&& operation) {
  try {
    return operation();
  } catch (const SQLite::Exception& error) {
    const bool notADatabase = error.getErrorCode() == SQLITE_NOTADB;
    throw RuntimeError(notADatabase ? errors::kNotADatabase : errors::kDatabaseFailure,
                       error.what());
  }
}

/// The type name under which a field is declared in the file; Text for any other.
const char* DeclaredType(FieldType type);
FieldType TypeFromDeclaration(const std::string& declared);

struct Connection {
  /// Opens an existing file; throws as Database does, wrapped in Engine by the caller.
  Connection(const std::string& path, Access access);

  bool HasTable(const std::string& name);
  void RequireTable(const std::string& name);

  SQLite::Database sqlite;

 private:
  void PrepareForWriting(const std::string& path);
};

}  // namespace platform
