#include "web/pages/data_page.h"

#include <memory>

#include "platform/storage/database.h"
#include "records/files/databases.h"
#include "records/files/sample_columns.h"
#include "web/charts/chart_samples.h"
#include "web/pages/month_page.h"
#include "web/pages/page_files.h"
#include "web/pages/request_values.h"

namespace varek {

namespace {

using platform::Recordset;

constexpr char kPage[] = "Mundata.htm";
constexpr char kNoData[] = "<td>NO DATA</td>\r\n";

/// Values as they are stored, so temperatures are in Celsius whatever the display unit.
std::string SampleRow(Recordset& rows) {
  std::string row = "<tr>";
  for (int column = 0; column < rows.FieldCount(); ++column) {
    if (IsMeasured(column)) row += "<td>" + platform::ValueText(rows.Get(column)) + "</td>";
  }
  return row + "</tr>\r\n";
}

std::string SampleRows(Recordset& rows) {
  std::string table;
  for (; !rows.Eof(); rows.MoveNext()) table += SampleRow(rows);
  return table.empty() ? kNoData : table;
}

void ExportDataPage(const std::string& table) {
  WritePage(kPage, FillSource(kPage, {{"<%GETMUNDATA%>", table}}));
}

}  // namespace

void DataRequest(const std::string& value) {
  const auto asked = ReadHourValue(value);
  if (!asked) return;
  const SampleWindow window = ChosenHour(asked->year, asked->month, asked->day, asked->hour);
  if (!TableExists(window.table)) return ExportDataPage(kNoData);
  // The rows are closed before the page is written: other handlers run then, and may add samples.
  const std::string table = SampleRows(*OpenWindow(window));
  ExportDataPage(table);
}

}  // namespace varek
