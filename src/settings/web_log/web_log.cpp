#include "settings/web_log/web_log.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>
#include <string>
#include <vector>

#include "core/data_center.h"
#include "platform/errors/guard.h"
#include "platform/storage/database.h"
#include "records/files/databases.h"
#include "records/files/event_file.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

constexpr QSize kStartSize{460, 360};
constexpr QSize kLeastSize{330, 180};
constexpr int kTimeWidth = 190;
constexpr int kRowHeight = 22;

struct WebLogin {
  std::string time;  ///< "yyyy/mm/dd hh:mm:ss"
  std::string address;
};

/// All logins in the order in which they came. Throws RuntimeError when the file or its table
/// can't be read.
std::vector<WebLogin> ReadWebLog() {
  const auto rows = OpenEventsForReading().OpenRecordset(kWebLogTable);
  std::vector<WebLogin> logins;
  for (; !rows->Eof(); rows->MoveNext())
    logins.push_back(
        {ShownMoment(platform::ValueText(rows->Get(0))), platform::ValueText(rows->Get(1))});
  return logins;
}

QTableWidgetItem* Cell(const std::string& text) { return new QTableWidgetItem(Shown(text)); }

void FillGrid(QTableWidget& grid, const std::vector<WebLogin>& logins) {
  grid.setRowCount(static_cast<int>(logins.size()));
  for (int row = 0; row < grid.rowCount(); ++row) {
    const WebLogin& login = logins[static_cast<size_t>(row)];
    grid.setItem(row, 0, Cell(login.time));
    grid.setItem(row, 1, Cell(login.address));
  }
  grid.scrollToBottom();
}

}  // namespace

FormSlot<Form15>& WebLog() {
  static FormSlot<Form15> slot(Form15::kNumber);
  return slot;
}

void ShowWebLog() {
  Form15& form = WebLog().Get();
  form.ShowLogins();
  form.ShowAndRaise();
}

Form15::Form15()
    : ViewWindow(kNumber, kStartSize, kLeastSize), logins_(new QTableWidget(0, 2, Client())) {
  logins_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  logins_->setSelectionBehavior(QAbstractItemView::SelectRows);
  logins_->setTabKeyNavigation(false);
  logins_->verticalHeader()->hide();
  logins_->verticalHeader()->setDefaultSectionSize(RowHeight(*logins_, kRowHeight));
  logins_->horizontalHeader()->setStretchLastSection(true);
  logins_->horizontalHeader()->setHighlightSections(false);
  logins_->setColumnWidth(0, kTimeWidth);
  (new QVBoxLayout(Client()))->addWidget(logins_);
  ApplyLanguage();
}

void Form15::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kWebLogCaption));
  logins_->setAccessibleName(Shown(texts::kWebLogCaption));
  logins_->setHorizontalHeaderLabels({Shown(texts::kWebLogTime), Shown(texts::kWebLogAddress)});
}

void Form15::ShowLogins() {
  logins_->setRowCount(0);
  platform::Guarded("form15 ShowLogins", [this] { FillGrid(*logins_, ReadWebLog()); });
}

}  // namespace varek
