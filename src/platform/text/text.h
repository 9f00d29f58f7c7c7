// Text and number helpers. Every conversion between the two stands here once: the lenient reader,
// rounding to nearest with ties to even, the default text of a single. None of them depends on the
// process's locale, which the toolkit sets to the user's.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Cuts blanks (the space character only) at both ends.
std::string Trim(std::string_view text);

/// Cuts blanks at the end; an all-blank text comes back empty. Carriage returns and NUL characters
/// are not blanks.
std::string TrimRight(std::string_view text);

/// What a person is shown of a text that a device sent: all before the first CR or NUL, which a
/// reply over USB carries behind its last field.
std::string ShownText(std::string_view text);

/// `text` on one line: blanks in place of carriage returns, line feeds and NUL characters, which
/// would end or split a line of a file.
std::string OneLine(std::string text);

/// Characters `first` (1-based) onward, at most `count` of them; what lies beyond the end is
/// missing from the result.
std::string_view Middle(std::string_view text, size_t first, size_t count = std::string_view::npos);

/// The last `count` characters, or all of a shorter text.
std::string_view LastCharacters(std::string_view text, size_t count);

/// The lenient number reader: leading blanks are skipped, digits and one point are taken up to
/// the first other character. Text without a number reads 0; it never fails.
double LenientNumber(std::string_view text);

/// Rounds to the nearest whole number, a half to the even neighbour.
double RoundHalfEven(double value);

/// RoundHalfEven into 16 bits; throws RuntimeError 6 (overflow) outside -32768 to 32767.
int16_t RoundToInt16(double value);

/// The default text of a single: up to seven significant digits, no trailing zeros, a point.
std::string SingleText(float value);

/// The number that SingleText(value) shows: 27.1, where a plain widening gives 27.1000003815.
double SingleAsShown(float value);

/// A whole number with at least `digits` digits, zero-padded ("00", "0000"). The sign of a negative
/// one stands before them: "-0006".
std::string ZeroPadded(int64_t value, int digits);

/// True when both are the same but for the case of ASCII letters.
bool SameIgnoringCase(std::string_view a, std::string_view b);

}  // namespace platform
