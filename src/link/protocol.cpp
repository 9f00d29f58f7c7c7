#include "link/protocol.h"

#include "core/data_center.h"
#include "platform/text/text.h"

namespace varek {

namespace {

using platform::LenientNumber;
using platform::Middle;
using platform::RoundToInt16;
using platform::TrimRight;

/// Where a reading stands in its line: first character counted from 1, and width.
struct Place {
  size_t first;
  size_t width;
};

template <typename Record>
struct FloatColumn {
  Place place;
  float Record::*field;
};

constexpr FloatColumn<Readings> kStatusFloats[] = {
    {{2, 5}, &Readings::InputVoltage},    {{8, 5}, &Readings::InputFaultVoltage},
    {{14, 5}, &Readings::OutputVoltage},  {{24, 4}, &Readings::Frequency},
    {{29, 4}, &Readings::BatteryVoltage}, {{34, 4}, &Readings::Temperature},
};
constexpr Place kLoad{20, 3};

/// The status bits, bit 7 first, one character each.
constexpr size_t kFirstFlag = 39;
constexpr Flag StatusFlags::*kStatusFlags[] = {
    &StatusFlags::Utility,        &StatusFlags::BatLow,  &StatusFlags::Bypass,
    &StatusFlags::UPSFailed,      &StatusFlags::UPStype, &StatusFlags::TestProgress,
    &StatusFlags::ShutdownActive, &StatusFlags::Beeper,
};

constexpr FloatColumn<Ratings> kRatingFloats[] = {
    {{2, 5}, &Ratings::RatingVoltage},
    {{12, 5}, &Ratings::RatingBatteryVoltage},
    {{18, 4}, &Ratings::RatingFrequency},
};
constexpr Place kCurrent{8, 3};

constexpr size_t kBlankBehindCompany = 17;
constexpr size_t kBlankBehindModel = 28;

double NumberAt(const std::string& reply, const Place& place) {
  return LenientNumber(Middle(reply, place.first, place.width));
}

template <typename Record, size_t N>
void ReadFloats(const std::string& reply, const FloatColumn<Record> (&columns)[N], Record& record) {
  for (const FloatColumn<Record>& column : columns) {
    record.*column.field = static_cast<float>(NumberAt(reply, column.place));
  }
}

void TakeFixedFields(const std::string& reply) {
  DataCenter.identity.UPSCompany = TrimRight(Middle(reply, 2, 15));
  DataCenter.identity.UPSModel = TrimRight(Middle(reply, 18, 10));
  DataCenter.identity.UPSVersion = TrimRight(Middle(reply, 29, 10));
}

/// Takes the word at `from` if a blank ends it, and moves `from` to the word behind. Without a
/// blank both stay as they are.
void TakeWord(const std::string& reply, size_t& from, std::string& field) {
  const size_t blank = reply.find(' ', from);
  if (blank == std::string::npos) return;
  field = reply.substr(from, blank - from);
  const size_t next = reply.find_first_not_of(' ', blank);
  from = next == std::string::npos ? reply.size() : next;
}

void ScanFields(const std::string& reply) {
  size_t from = 1;
  TakeWord(reply, from, DataCenter.identity.UPSCompany);
  TakeWord(reply, from, DataCenter.identity.UPSModel);
  const size_t last = reply.size() - 1;
  if (from <= last) DataCenter.identity.UPSVersion = TrimRight(reply.substr(from, last - from));
}

bool IsBlankAt(const std::string& reply, size_t position) {
  return Middle(reply, position, 1) == " ";
}

}  // namespace

bool IsStatusLine(const std::string& reply) {
  return reply.starts_with('(') && reply.size() == kStatusLength;
}

bool ParseStatus(const std::string& reply) {
  ReadFloats(reply, kStatusFloats, DataCenter.readings);
  DataCenter.readings.LoadPercent = RoundToInt16(NumberAt(reply, kLoad));
  size_t position = kFirstFlag;
  for (auto flag : kStatusFlags) {
    DataCenter.flags.*flag = ToFlag(NumberAt(reply, {position++, 1}) != 0);
  }
  if (DataCenter.flags.UPSFailed) DataCenter.readings.BatteryVoltage = 0;
  return DataCenter.flags.UPSFailed;
}

void ParseRating(const std::string& reply) {
  ReadFloats(reply, kRatingFloats, DataCenter.ratings);
  DataCenter.ratings.RatingCurrent = RoundToInt16(NumberAt(reply, kCurrent));
}

void ParseIdentification(const std::string& reply) {
  if (IsBlankAt(reply, kBlankBehindCompany) && IsBlankAt(reply, kBlankBehindModel)) {
    TakeFixedFields(reply);
  } else {
    ScanFields(reply);
  }
  DeriveCapabilities();
}

void ParseSerialReply(const std::string& reply) {
  if (IsStatusLine(reply)) {
    ParseStatus(reply);
  } else if (reply.starts_with('#') && reply.size() == kSerialRatingLength) {
    ParseRating(reply);
  } else if (reply.starts_with('#')) {
    ParseIdentification(reply);
  }
}

}  // namespace varek
