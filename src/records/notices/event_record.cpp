#include "records/notices/event_record.h"

#include "core/data_center.h"
#include "core/debug_lines.h"
#include "platform/errors/guard.h"
#include "platform/errors/on_exit.h"
#include "platform/errors/runtime_error.h"
#include "platform/time/clock.h"
#include "records/files/databases.h"
#include "records/files/recording_watch.h"
#include "records/notices/notification.h"
#include "texts/language.h"

namespace varek {

namespace {

size_t Index(EventType type) { return static_cast<size_t>(type) - 1; }

platform::Recordset& EventRows() {
  if (!Records.allevent) {
    throw platform::RuntimeError(platform::errors::kObjectNotSet, "event table is not open");
  }
  return *Records.allevent;
}

void BeginRow(EventType type) {
  platform::Recordset& rows = EventRows();
  rows.AddNew();
  rows.Set(0, platform::FormatStored(platform::Now()));
  rows.Set(1, int64_t{type});
}

void EndRow() {
  platform::Recordset& rows = EventRows();
  Watch(Recording::WriteEvent, [&] { rows.Update(); });
}

void SendMail(EventType type) {
  const size_t index = Index(type);
  if (!DataCenter.settings.MailEventEnable[index]) return;
  mailto(DataCenter.settings.MailServer, DataCenter.settings.MailSenderName,
         DataCenter.settings.MailSenderAddress, DataCenter.settings.MailRecipientName,
         DataCenter.settings.MailRecipientAddress, EventText[index],
         DataCenter.settings.MailEventText[index]);
}

void SendSms(EventType type) {
  const size_t index = Index(type);
  if (!DataCenter.settings.SmsEventEnable[index]) return;
  SendMsg(DataCenter.settings.SmsGateway, DataCenter.settings.SmsAccount,
          DataCenter.settings.SmsPassword, DataCenter.settings.SmsNumber,
          DataCenter.settings.SmsEventText[index], DataCenter.settings.SmsApiId, "F");
}

}  // namespace

void WriteRow(EventType type) {
  BeginRow(type);
  AddEventLine(EventText[Index(type)]);
  EndRow();
}

void ShowPopup(EventType type) {
  if (DataCenter.settings.EventPopup) StartAlert(EventText[Index(type)]);
}

void Notify(EventType type) {
  SendMail(type);
  SendSms(type);
}

/// What most events do: each step runs, whatever became of the one before.
void RecordEvent(EventType type) {
  platform::IgnoreErrors([&] { BeginRow(type); });
  platform::IgnoreErrors([&] { AddEventLine(EventText[Index(type)]); });
  platform::IgnoreErrors([&] { EndRow(); });
  platform::IgnoreErrors([&] { SendMail(type); });
  platform::IgnoreErrors([&] { SendSms(type); });
}

void RecordWithPopup(EventType type) {
  platform::IgnoreErrors([&] { ShowPopup(type); });
  RecordEvent(type);
}

void EventProgramStart() { RecordEvent(kProgramStart); }
void EventProgramEnd() { RecordEvent(kProgramEnd); }
void EventLinkUp() { RecordEvent(kLinkUp); }

void EventLinkLost() {
  {
    // A unit that is gone has no readings, whether or not its going could be recorded.
    const platform::OnExit clear(ClearLiveValues);
    WriteRow(kLinkLost);
  }
  Notify(kLinkLost);
}

void EventSystemShutdown() { RecordEvent(kSystemShutdown); }
void EventUPSShutdown() { RecordEvent(kUPSShutdown); }

}  // namespace varek
