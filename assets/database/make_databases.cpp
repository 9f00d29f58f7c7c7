// Makes the initial database files at build time: the schemas from .sql files, the texts of the
// language table from a file with one line a text.
//
// Usage: make_databases SQL-FOLDER TEXTS.tsv OUTPUT-FOLDER

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr size_t kProgramTexts = 315;  ///< those behind them are the sidecars'
constexpr size_t kColumns = 5;         ///< number, name and the three languages
constexpr size_t kFirstLanguage = 2;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

SQLite::Database NewDatabase(const fs::path& sqlFolder, const fs::path& output,
                             const std::string& name) {
  const fs::path path = output / (name + ".mdb");
  fs::remove(path);
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database.exec("PRAGMA user_version=1");  // Even a database without tables becomes a real file.
  database.exec(ReadFile(sqlFolder / (name + ".sql")));
  return database;
}

std::vector<std::string> SplitAtTabs(const std::string& line) {
  std::vector<std::string> columns;
  std::istringstream stream(line);
  for (std::string column; std::getline(stream, column, '\t');) columns.push_back(column);
  return columns;
}

void CheckText(const std::vector<std::string>& columns, size_t expectedNumber,
               const std::string& line) {
  bool good = columns.size() == kColumns && columns[0] == std::to_string(expectedNumber);
  for (const std::string& column : columns) good = good && !column.empty();
  if (!good) {
    throw std::runtime_error("text " + std::to_string(expectedNumber) +
                             " expected, found: " + line);
  }
}

std::vector<std::vector<std::string>> ReadTexts(const fs::path& path) {
  std::istringstream lines(ReadFile(path));
  std::vector<std::vector<std::string>> texts;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    texts.push_back(SplitAtTabs(line));
    CheckText(texts.back(), texts.size() - 1, line);
  }
  if (texts.size() < kProgramTexts) {
    throw std::runtime_error(std::to_string(texts.size()) + " texts, not " +
                             std::to_string(kProgramTexts));
  }
  return texts;
}

void FillTexts(SQLite::Database& database, const fs::path& textsPath) {
  SQLite::Transaction transaction(database);
  SQLite::Statement insert(database, "INSERT INTO LangData VALUES (?,?,?,?)");
  for (const auto& columns : ReadTexts(textsPath)) {
    insert.bind(1, std::stoi(columns[0]));
    for (size_t i = kFirstLanguage; i < kColumns; ++i) insert.bind(static_cast<int>(i), columns[i]);
    insert.exec();
    insert.reset();
  }
  transaction.commit();
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 4) throw std::runtime_error("usage: make_databases SQL-FOLDER TEXTS.tsv OUTPUT");
  const fs::path sqlFolder = argv[1], output = argv[3];
  fs::create_directories(output);
  NewDatabase(sqlFolder, output, "Event");
  NewDatabase(sqlFolder, output, "data");
  SQLite::Database texts = NewDatabase(sqlFolder, output, "LangData");
  FillTexts(texts, argv[2]);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "make_databases: %s\n", error.what());
  return 1;
}
