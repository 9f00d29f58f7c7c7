// The wire protocol: short ASCII commands ended by a carriage return, and three kinds of reply
// line. The parsers take a reply from whichever link brought it and fill the live state. A worked
// example of each line stands in docs/protocol.md.
#pragma once

#include <string>

namespace varek {

/// Lengths of whole replies in characters, the final carriage return counted.
constexpr size_t kStatusLength = 47;
constexpr size_t kSerialRatingLength = 22;
/// A USB reply is always the whole report.
constexpr size_t kUsbReportLength = 47;

/// True for a whole status line, from its bracket to its carriage return.
bool IsStatusLine(const std::string& reply);

/// Fills the readings and the eight flags from a status line; returns the fault flag. A field that
/// is garbled reads 0; a fault stores a battery voltage of 0.
bool ParseStatus(const std::string& reply);

/// Fills the ratings from a rating line. Its content is not tested.
void ParseRating(const std::string& reply);

/// Fills company, model, version and what the unit is able to report. The fixed form has blanks at
/// characters 17 and 28; any other line is taken apart at its blanks, and a field that can't be
/// found stays as it was.
void ParseIdentification(const std::string& reply);

/// Hands a whole serial line to the parser that its shape calls for. A line of no known shape is
/// silently dropped.
void ParseSerialReply(const std::string& reply);

}  // namespace varek
