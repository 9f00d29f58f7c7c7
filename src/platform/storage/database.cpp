#include "platform/storage/database.h"

#include <sys/stat.h>

#include "platform/storage/database_engine.h"
#include "platform/storage/query_dialect.h"
#include "platform/text/text.h"

namespace platform {

namespace {

/// Another program may hold the file for a moment; a tick must stay short all the same.
constexpr int kBusyMilliseconds = 100;

/// A file that nobody may write is read-only for every account, the administrator's included.
void RequireFile(const std::string& path, Access access) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) {
    throw RuntimeError(errors::kDatabaseNotFound, path + ": no such database");
  }
  const bool writable = (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
  if (access == Access::ReadWrite && !writable) {
    throw RuntimeError(errors::kDatabaseReadOnly, path + ": read-only");
  }
}

}  // namespace

const char* DeclaredType(FieldType type) {
  switch (type) {
    case FieldType::Byte:
      return "BYTE";
    case FieldType::Long:
      return "INTEGER";
    case FieldType::Single:
      return "REAL";
    case FieldType::Date:
      return "DATETIME";
    case FieldType::Text:
      break;
  }
  return "TEXT";
}

FieldType TypeFromDeclaration(const std::string& declared) {
  for (FieldType type : {FieldType::Byte, FieldType::Long, FieldType::Single, FieldType::Date}) {
    if (SameIgnoringCase(declared, DeclaredType(type))) return type;
  }
  return FieldType::Text;
}

Connection::Connection(const std::string& path, Access access)
    : sqlite(path, access == Access::ReadOnly ? SQLite::OPEN_READONLY : SQLite::OPEN_READWRITE,
             kBusyMilliseconds) {
  // Without this a column that does not exist would pass for a text of its name.
  sqlite3_db_config(sqlite.getHandle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  if (access == Access::ReadWrite) PrepareForWriting(path);
}

void Connection::PrepareForWriting(const std::string& path) {
  if (sqlite3_db_readonly(sqlite.getHandle(), "main") != 0) {
    throw RuntimeError(errors::kDatabaseReadOnly, path + ": read-only");
  }
  sqlite.exec("PRAGMA journal_mode=WAL");
  sqlite.exec("PRAGMA synchronous=FULL");
}

bool Connection::HasTable(const std::string& name) {
  SQLite::Statement query(sqlite, "SELECT 1 FROM sqlite_master WHERE type='table' AND name=?");
  query.bind(1, name);
  return query.executeStep();
}

void Connection::RequireTable(const std::string& name) {
  if (!HasTable(name)) throw RuntimeError(errors::kTableNotFound, "no table " + name);
}

Database::Database(const std::string& path, Access access) {
  RequireFile(path, access);
  connection_ = Engine([&] { return std::make_shared<Connection>(path, access); });
}

Database::~Database() = default;
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;

std::vector<std::string> Database::TableNames() const {
  return Engine([&] {
    std::vector<std::string> names;
    SQLite::Statement query(connection_->sqlite,
                            "SELECT name FROM sqlite_master WHERE type='table' AND "
                            "name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
    while (query.executeStep()) names.push_back(query.getColumn(0).getString());
    return names;
  });
}

bool Database::HasTable(const std::string& name) const {
  return Engine([&] { return connection_->HasTable(name); });
}

bool Database::HasMoved() const {
  int moved = 0;
  sqlite3_file_control(connection_->sqlite.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

void Database::EmptyLog() {
  Engine([&] { connection_->sqlite.exec("PRAGMA wal_checkpoint(TRUNCATE)"); });
}

void Database::AppendTable(const TableDef& table) {
  std::string columns;
  for (const FieldDef& field : table.fields) {
    if (!columns.empty()) columns += ", ";
    columns += QuoteName(field.name) + " " + DeclaredType(field.type);
  }
  Engine([&] {
    connection_->sqlite.exec("CREATE TABLE " + QuoteName(table.name) + " (" + columns + ")");
  });
}

void Database::DeleteTable(const std::string& name) {
  Engine([&] {
    connection_->RequireTable(name);
    connection_->sqlite.exec("DROP TABLE " + QuoteName(name));
  });
}

std::unique_ptr<Recordset> Database::OpenRecordset(const std::string& tableOrQuery) {
  return std::make_unique<Recordset>(connection_, tableOrQuery);
}

void Database::BeginTransaction() {
  Engine([&] { connection_->sqlite.exec("BEGIN IMMEDIATE"); });
}

void Database::BeginReading() {
  Engine([&] { connection_->sqlite.exec("BEGIN"); });
}

void Database::CommitTransaction() {
  Engine([&] { connection_->sqlite.exec("COMMIT"); });
}

void Database::Rollback() {
  Engine([&] { connection_->sqlite.exec("ROLLBACK"); });
}

}  // namespace platform
