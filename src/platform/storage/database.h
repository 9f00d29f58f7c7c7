// Databases, their tables and their recordsets. A recordset is a dynaset: which rows it has is
// fixed when it opens, their values are read as they are visited. Several connections to one file
// may be open at a time. Every committed row is on the disk: a power cut is the very moment the
// rows are for.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/storage/values.h"

namespace platform {

struct Connection;
class Recordset;

/// One connection to one file; closed when it and its recordsets are gone.
class Database final {
 public:
  /// Opens an existing file; never makes one. Throws RuntimeError 3024 (missing), 3051 (to be
  /// written, but read-only) or 3343 (no database).
  explicit Database(const std::string& path, Access access = Access::ReadWrite);
  ~Database();
  Database(Database&&) noexcept;
  Database& operator=(Database&&) noexcept;

  /// Names of the tables, without the engine's own.
  std::vector<std::string> TableNames() const;
  bool HasTable(const std::string& name) const;
  void AppendTable(const TableDef& table);
  /// Throws RuntimeError 3078 when there is no such table.
  void DeleteTable(const std::string& name);

  /// True when the file no longer stands under its name: it was deleted, moved or replaced. What is
  /// written now is lost with it.
  bool HasMoved() const;
  /// Leaves nothing in the log beside the file, which would be taken for that of a later file of
  /// the same name.
  void EmptyLog();

  /// Opens a table by its name, or a query in the system's dialect (one that begins with
  /// "Select"). Rows come in the order in which they were added. Throws RuntimeError 3078 for a
  /// table that does not exist and 3075 or 3146 for a query that can't be run.
  std::unique_ptr<Recordset> OpenRecordset(const std::string& tableOrQuery);

  /// What is changed between the two reaches the disk at once and whole. An open transaction ends
  /// with Rollback, or with the connection.
  void BeginTransaction();
  /// Until Rollback, CommitTransaction or the connection's end all reads see one state, and the
  /// engine takes its lock once instead of for every row. Hinders no writer.
  void BeginReading();
  void CommitTransaction();
  void Rollback();

 private:
  std::shared_ptr<Connection> connection_;
};

/// The rows of a table or of a query, with a current one. Fields are named or counted from 0.
/// Every operation on a current row throws RuntimeError 3021 when there is none.
class Recordset final {
 public:
  Recordset(std::shared_ptr<Connection> connection, const std::string& tableOrQuery);
  ~Recordset();

  int FieldCount() const;
  /// Throws RuntimeError 3265 for a field that does not exist; so do all that take a field.
  const std::string& FieldName(int field) const;

  bool Bof() const;
  bool Eof() const;
  int64_t RecordCount() const;
  /// Row number of the current row from 0, -1 when there is none.
  int64_t AbsolutePosition() const;
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();

  /// Throws RuntimeError 3167 when another connection has deleted the row meanwhile.
  Value Get(int field);
  Value Get(const std::string& field);

  /// AddNew and Edit begin a change, Set fills it, Update writes it. Set and Update throw
  /// RuntimeError 3020 with no change begun; Set throws 3421 for a value that the field can't
  /// hold (a byte takes 0 to 255, a date field the texts of SortableDate).
  void AddNew();
  void Edit();
  void Set(int field, const Value& value);
  void Set(const std::string& field, const Value& value);
  void Update();
  /// Deletes the current row; the next MoveNext goes to the one behind it.
  void Delete();

  /// Makes the first row, or the next one behind the current, that meets `condition` (in the
  /// system's dialect) the current row; NoMatch tells whether there was one.
  void FindFirst(const std::string& condition);
  void FindNext(const std::string& condition);
  bool NoMatch() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
