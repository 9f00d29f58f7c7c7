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
struct FloatColumn {
  size_t first;
  size_t width;
  float DataCenterRecord::*field;
};
struct IntegerColumn {
  size_t first;
  size_t width;
  int16_t DataCenterRecord::*field;
};

constexpr FloatColumn kStatusFloats[] = {
    {2, 5, &DataCenterRecord::InputVoltage},    {8, 5, &DataCenterRecord::InputFaultVoltage},
    {14, 5, &DataCenterRecord::OutputVoltage},  {24, 4, &DataCenterRecord::Frequency},
    {29, 4, &DataCenterRecord::BatteryVoltage}, {34, 4, &DataCenterRecord::Temperature},
};
constexpr IntegerColumn kLoadColumn{20, 3, &DataCenterRecord::LoadPercent};

/// The status bits, bit 7 first, one character each.
constexpr size_t kFirstFlag = 39;
constexpr Flag DataCenterRecord::*kStatusFlags[] = {
    &DataCenterRecord::Utility,        &DataCenterRecord::BatLow,  &DataCenterRecord::Bypass,
    &DataCenterRecord::UPSFailed,      &DataCenterRecord::UPStype, &DataCenterRecord::TestProgress,
    &DataCenterRecord::ShutdownActive, &DataCenterRecord::Beeper,
};

constexpr FloatColumn kRatingFloats[] = {
    {2, 5, &DataCenterRecord::RatingVoltage},
    {12, 5, &DataCenterRecord::RatingBatteryVoltage},
    {18, 4, &DataCenterRecord::RatingFrequency},
};
constexpr IntegerColumn kCurrentColumn{8, 3, &DataCenterRecord::RatingCurrent};

constexpr size_t kBlankBehindCompany = 17;
constexpr size_t kBlankBehindModel = 28;

template <size_t N>
void ReadFloats(const std::string& reply, const FloatColumn (&columns)[N]) {
  for (const FloatColumn& column : columns) {
    DataCenter.*column.field =
        static_cast<float>(LenientNumber(Middle(reply, column.first, column.width)));
  }
}

void ReadInteger(const std::string& reply, const IntegerColumn& column) {
  DataCenter.*column.field = RoundToInt16(LenientNumber(Middle(reply, column.first, column.width)));
}

void TakeFixedFields(const std::string& reply) {
  DataCenter.UPSCompany = TrimRight(Middle(reply, 2, 15));
  DataCenter.UPSModel = TrimRight(Middle(reply, 18, 10));
  DataCenter.UPSVersion = TrimRight(Middle(reply, 29, 10));
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
  TakeWord(reply, from, DataCenter.UPSCompany);
  TakeWord(reply, from, DataCenter.UPSModel);
  const size_t last = reply.size() - 1;
  if (from <= last) DataCenter.UPSVersion = TrimRight(reply.substr(from, last - from));
}

bool IsBlankAt(const std::string& reply, size_t position) {
  return Middle(reply, position, 1) == " ";
}

}  // namespace

bool IsStatusLine(const std::string& reply) {
  return reply.starts_with('(') && reply.size() == kStatusLength;
}

bool ParseStatus(const std::string& reply) {
  ReadFloats(reply, kStatusFloats);
  ReadInteger(reply, kLoadColumn);
  size_t position = kFirstFlag;
  for (auto flag : kStatusFlags) {
    DataCenter.*flag = ToFlag(LenientNumber(Middle(reply, position++, 1)) != 0);
  }
  if (DataCenter.UPSFailed) DataCenter.BatteryVoltage = 0;
  return DataCenter.UPSFailed;
}

void ParseRating(const std::string& reply) {
  ReadFloats(reply, kRatingFloats);
  ReadInteger(reply, kCurrentColumn);
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
