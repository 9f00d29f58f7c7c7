#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "platform/storage/database.h"
#include "platform/storage/database_engine.h"
#include "platform/storage/query_dialect.h"
#include "platform/text/text.h"

namespace platform {

namespace {

[[noreturn]] void FailConversion(const FieldDef& field) {
  throw RuntimeError(errors::kDataConversion, "value does not fit field " + field.name);
}

Value WholeNumber(const FieldDef& field, const Value& value, int64_t lowest, int64_t highest) {
  const double number = RoundHalfEven(ValueNumber(value));
  if (!(number >= static_cast<double>(lowest) && number <= static_cast<double>(highest))) {
    FailConversion(field);
  }
  return static_cast<int64_t>(number);
}

/// A single is kept as the number that its text shows, so that a limit typed by a person meets it.
Value SingleNumber(const Value& value) {
  return SingleAsShown(static_cast<float>(ValueNumber(value)));
}

Value DateText(const FieldDef& field, const Value& value) {
  const auto sortable = SortableDate(ValueText(value));
  if (!sortable) FailConversion(field);
  return *sortable;
}

Value Converted(const FieldDef& field, const Value& value) {
  if (std::holds_alternative<std::monostate>(value)) return value;
  switch (field.type) {
    case FieldType::Byte:
      return WholeNumber(field, value, 0, 255);
    case FieldType::Long:
      return WholeNumber(field, value, INT32_MIN, INT32_MAX);
    case FieldType::Single:
      return SingleNumber(value);
    case FieldType::Date:
      return DateText(field, value);
    case FieldType::Text:
      break;
  }
  return ValueText(value);
}

void BindValue(SQLite::Statement& statement, int index, const Value& value) {
  if (const auto* whole = std::get_if<int64_t>(&value)) {
    statement.bind(index, *whole);
  } else if (const auto* number = std::get_if<double>(&value)) {
    statement.bind(index, *number);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    statement.bind(index, *text);
  } else {
    statement.bind(index);
  }
}

Value ColumnValue(const SQLite::Column& column) {
  if (column.isInteger()) return column.getInt64();
  if (column.isFloat()) return column.getDouble();
  if (column.isNull()) return {};
  return column.getString();
}

bool IsQuery(const std::string& text) {
  return SameIgnoringCase(Trim(text).substr(0, 7), "select ");
}

}  // namespace

struct Recordset::Impl {
  std::shared_ptr<Connection> connection;
  std::string table;
  std::vector<FieldDef> fields;
  std::deque<int64_t> rows;  ///< row keys in the order of the recordset
  int64_t position = 0;
  bool rowDeleted = false;  ///< the current row has gone, `position` is the one behind it
  bool noMatch = false;

  enum class Change { None, Add, Edit } change = Change::None;
  std::vector<Value> newValues;

  std::optional<SQLite::Statement> select;
  std::optional<SQLite::Statement> insert;
  /// The row that `visited` holds, so that its fields cost one read.
  std::optional<int64_t> visitedRow;
  std::vector<Value> visited;

  void LoadFields() {
    SQLite::Statement query(connection->sqlite,
                            "SELECT name, type FROM pragma_table_info(?) ORDER BY cid");
    query.bind(1, table);
    while (query.executeStep()) {
      fields.push_back(
          {query.getColumn(0).getString(), TypeFromDeclaration(query.getColumn(1).getString())});
    }
  }

  void LoadRows(const std::string& condition) {
    const std::string where = condition.empty() ? "" : " WHERE " + condition;
    SQLite::Statement query(connection->sqlite,
                            "SELECT rowid FROM " + QuoteName(table) + where + " ORDER BY rowid");
    while (query.executeStep()) rows.push_back(query.getColumn(0).getInt64());
  }

  int FieldIndex(const std::string& name) const {
    for (size_t i = 0; i < fields.size(); ++i) {
      if (SameIgnoringCase(fields[i].name, name)) return static_cast<int>(i);
    }
    throw RuntimeError(errors::kItemNotFound, "no field " + name);
  }

  void RequireField(int field) const {
    if (field < 0 || static_cast<size_t>(field) >= fields.size()) {
      throw RuntimeError(errors::kItemNotFound, "no field " + std::to_string(field));
    }
  }

  bool HasCurrent() const {
    return !rowDeleted && position >= 0 && position < static_cast<int64_t>(rows.size());
  }

  int64_t CurrentRow() const {
    if (!HasCurrent()) throw RuntimeError(errors::kNoCurrentRecord, "no current record");
    return rows[static_cast<size_t>(position)];
  }

  void GoTo(int64_t newPosition) {
    position = newPosition;
    rowDeleted = false;
    change = Change::None;
    visitedRow.reset();
  }

  void RequireRows() const {
    if (rows.empty()) throw RuntimeError(errors::kNoCurrentRecord, "no current record");
  }

  void ReadRow(int64_t row) {
    if (visitedRow == row) return;
    if (!select) {
      select.emplace(connection->sqlite, "SELECT * FROM " + QuoteName(table) + " WHERE rowid=?");
    }
    select->tryReset();  // Its answer is the failure of the last run, which was reported then.
    select->bind(1, row);
    if (!select->executeStep()) {
      throw RuntimeError(errors::kRecordDeleted, "record is deleted");
    }
    visited.clear();
    for (int i = 0; i < select->getColumnCount(); ++i) {
      visited.push_back(ColumnValue(select->getColumn(i)));
    }
    select->reset();  // An unfinished read would hold back other connections.
    visitedRow = row;
  }

  void InsertRow() {
    if (!insert) {
      std::string places = "?";
      for (size_t i = 1; i < fields.size(); ++i) places += ",?";
      insert.emplace(connection->sqlite,
                     "INSERT INTO " + QuoteName(table) + " VALUES (" + places + ")");
    }
    insert->tryReset();
    for (size_t i = 0; i < newValues.size(); ++i) {
      BindValue(*insert, static_cast<int>(i) + 1, newValues[i]);
    }
    insert->exec();
    insert->reset();
    AppendKey(connection->sqlite.getLastInsertRowid());
  }

  /// The engine gives the keys of deleted last rows anew. Whoever still has one here was deleted by
  /// another connection, and would show the new row a second time.
  void AppendKey(int64_t row) {
    while (!rows.empty() && rows.back() >= row) {
      rows.pop_back();
      visitedRow.reset();
    }
    rows.push_back(row);
  }

  void UpdateRow(int64_t row) {
    std::string assignments;
    for (const FieldDef& field : fields) {
      if (!assignments.empty()) assignments += ", ";
      assignments += QuoteName(field.name) + "=?";
    }
    SQLite::Statement update(connection->sqlite, "UPDATE " + QuoteName(table) + " SET " +
                                                     assignments + " WHERE rowid=?");
    for (size_t i = 0; i < newValues.size(); ++i) {
      BindValue(update, static_cast<int>(i) + 1, newValues[i]);
    }
    update.bind(static_cast<int>(newValues.size()) + 1, row);
    if (update.exec() == 0) throw RuntimeError(errors::kRecordDeleted, "record is deleted");
    visitedRow.reset();
  }

  void Find(int64_t from, const std::string& condition) {
    SQLite::Statement test(connection->sqlite, "SELECT 1 FROM " + QuoteName(table) +
                                                   " WHERE rowid=? AND (" +
                                                   TranslateCondition(condition) + ")");
    noMatch = true;
    for (int64_t i = from; noMatch && i < static_cast<int64_t>(rows.size()); ++i) {
      test.reset();
      test.bind(1, rows[static_cast<size_t>(i)]);
      if (!test.executeStep()) continue;
      noMatch = false;
      GoTo(i);
    }
  }
};

Recordset::Recordset(std::shared_ptr<Connection> connection, const std::string& tableOrQuery)
    : impl_(std::make_unique<Impl>()) {
  impl_->connection = std::move(connection);
  TranslatedQuery query{tableOrQuery, ""};
  if (IsQuery(tableOrQuery)) query = TranslateQuery(tableOrQuery);
  impl_->table = query.table;
  Engine([&] {
    impl_->connection->RequireTable(query.table);
    impl_->LoadFields();
    impl_->LoadRows(query.condition);
  });
}

Recordset::~Recordset() = default;

int Recordset::FieldCount() const { return static_cast<int>(impl_->fields.size()); }

const std::string& Recordset::FieldName(int field) const {
  impl_->RequireField(field);
  return impl_->fields[static_cast<size_t>(field)].name;
}

bool Recordset::Bof() const { return impl_->rows.empty() || impl_->position < 0; }

bool Recordset::Eof() const { return impl_->position >= static_cast<int64_t>(impl_->rows.size()); }

int64_t Recordset::RecordCount() const { return static_cast<int64_t>(impl_->rows.size()); }

int64_t Recordset::AbsolutePosition() const { return impl_->HasCurrent() ? impl_->position : -1; }

void Recordset::MoveFirst() {
  impl_->RequireRows();
  impl_->GoTo(0);
}

void Recordset::MoveLast() {
  impl_->RequireRows();
  impl_->GoTo(RecordCount() - 1);
}

void Recordset::MoveNext() {
  if (Eof() && !impl_->rowDeleted) {
    throw RuntimeError(errors::kNoCurrentRecord, "no current record");
  }
  impl_->GoTo(impl_->position + (impl_->rowDeleted ? 0 : 1));
}

void Recordset::MovePrevious() {
  if (Bof()) throw RuntimeError(errors::kNoCurrentRecord, "no current record");
  impl_->GoTo(impl_->position - 1);
}

Value Recordset::Get(int field) {
  impl_->RequireField(field);
  Engine([&] { impl_->ReadRow(impl_->CurrentRow()); });
  return impl_->visited[static_cast<size_t>(field)];
}

Value Recordset::Get(const std::string& field) { return Get(impl_->FieldIndex(field)); }

void Recordset::AddNew() {
  impl_->newValues.assign(impl_->fields.size(), Value());
  impl_->change = Impl::Change::Add;
}

void Recordset::Edit() {
  impl_->visitedRow.reset();  // What others have written since must survive the change.
  Engine([&] { impl_->ReadRow(impl_->CurrentRow()); });
  impl_->newValues = impl_->visited;
  impl_->change = Impl::Change::Edit;
}

void Recordset::Set(int field, const Value& value) {
  if (impl_->change == Impl::Change::None) throw RuntimeError(errors::kNoEdit, "no change begun");
  impl_->RequireField(field);
  const auto index = static_cast<size_t>(field);
  impl_->newValues[index] = Converted(impl_->fields[index], value);
}

void Recordset::Set(const std::string& field, const Value& value) {
  Set(impl_->FieldIndex(field), value);
}

void Recordset::Update() {
  const auto change = std::exchange(impl_->change, Impl::Change::None);
  if (change == Impl::Change::None) throw RuntimeError(errors::kNoEdit, "no change begun");
  Engine([&] {
    if (change == Impl::Change::Add) {
      impl_->InsertRow();
    } else {
      impl_->UpdateRow(impl_->CurrentRow());
    }
  });
}

void Recordset::Delete() {
  const int64_t row = impl_->CurrentRow();
  Engine([&] {
    SQLite::Statement statement(impl_->connection->sqlite,
                                "DELETE FROM " + QuoteName(impl_->table) + " WHERE rowid=?");
    statement.bind(1, row);
    statement.exec();
  });
  impl_->rows.erase(impl_->rows.begin() + impl_->position);
  impl_->rowDeleted = true;
  impl_->visitedRow.reset();
}

void Recordset::FindFirst(const std::string& condition) {
  Engine([&] { impl_->Find(0, condition); });
}

void Recordset::FindNext(const std::string& condition) {
  const int64_t next = impl_->position + (impl_->rowDeleted ? 0 : 1);
  Engine([&] { impl_->Find(next, condition); });
}

bool Recordset::NoMatch() const { return impl_->noMatch; }

}  // namespace platform
