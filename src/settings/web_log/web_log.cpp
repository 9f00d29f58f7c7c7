#include "settings/web_log/web_log.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/data_center.h"
#include "platform/errors/guard.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "records/databases.h"
#include "texts/language.h"
#include "views/kit/controls/style.h"

namespace varek {

namespace {

constexpr QSize kStartSize{460, 360};
constexpr QSize kLeastSize{330, 180};
constexpr int kTimeWidth = 190;
constexpr int kRowHeight = 22;

QString Text(size_t number) { return QString::fromStdString(LangText[number]); }

QTableWidgetItem* Cell(const std::string& text) {
  return new QTableWidgetItem(QString::fromStdString(text));
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

std::vector<WebLogin> ReadWebLog() {
  platform::Database database(platform::ProgramPath(kEventFile), platform::Access::ReadOnly);
  const auto rows = database.OpenRecordset(kWebLogTable);
  std::vector<WebLogin> logins;
  for (; !rows->Eof(); rows->MoveNext()) {
    WebLogin login{platform::ValueText(rows->Get(0)), platform::ValueText(rows->Get(1))};
    std::ranges::replace(login.time, '-', '/');
    logins.push_back(std::move(login));
  }
  return logins;
}

Form15::Form15()
    : ViewWindow(kNumber, kStartSize, kLeastSize), DBGrid1(new QTableWidget(0, 2, Client())) {
  DBGrid1->setObjectName(QStringLiteral("DBGrid1"));
  DBGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  DBGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
  DBGrid1->setTabKeyNavigation(false);
  DBGrid1->verticalHeader()->hide();
  DBGrid1->verticalHeader()->setDefaultSectionSize(RowHeight(*DBGrid1, kRowHeight));
  DBGrid1->horizontalHeader()->setStretchLastSection(true);
  DBGrid1->horizontalHeader()->setHighlightSections(false);
  DBGrid1->setColumnWidth(0, kTimeWidth);
  (new QVBoxLayout(Client()))->addWidget(DBGrid1);
  ApplyLanguage();
  DataCenter.FormOpen[kNumber] = kSet;
}

Form15::~Form15() { DataCenter.FormOpen[kNumber] = kClear; }

void Form15::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Text(texts::kWebLogCaption));
  DBGrid1->setAccessibleName(Text(texts::kWebLogCaption));
  DBGrid1->setHorizontalHeaderLabels({Text(texts::kWebLogTime), Text(texts::kWebLogAddress)});
}

void Form15::ShowLogins() {
  DBGrid1->setRowCount(0);
  platform::Guarded("form15 ShowLogins", [this] { FillGrid(ReadWebLog()); });
}

void Form15::FillGrid(const std::vector<WebLogin>& logins) {
  DBGrid1->setRowCount(static_cast<int>(logins.size()));
  for (int row = 0; row < DBGrid1->rowCount(); ++row) {
    const WebLogin& login = logins[static_cast<size_t>(row)];
    DBGrid1->setItem(row, 0, Cell(login.time));
    DBGrid1->setItem(row, 1, Cell(login.address));
  }
  DBGrid1->scrollToBottom();
}

}  // namespace varek
