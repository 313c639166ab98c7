// Text as the naming rules count it, and the helpers that take it apart.
//
// One position is one UTF-16 code unit. Positions are 1-based and 0 means "not found", so that a
// rule can be written down here the way it is thought: "the four characters from position 7".
// No helper fails: lengths and positions beyond the text are clamped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mdlPLM {

using Text = std::u16string;
using TextView = std::u16string_view;

/// File contents, one byte per character ("single-byte text", Windows-1252 where it is shown).
using Bytes = std::string;
using BytesView = std::string_view;

/// A 1-based position or a count of characters; signed, so that a rule may compute below zero.
using Pos = std::ptrdiff_t;

inline constexpr TextView CrLf = u"\r\n";

/// The first `count` characters; empty for a count below 1, the whole text for one beyond its end.
Text Left(TextView text, Pos count);

/// The last `count` characters, clamped like Left.
Text Right(TextView text, Pos count);

/// The text from the 1-based `start` to its end. A start below 1 counts as 1.
Text Mid(TextView text, Pos start);

/// At most `count` characters from the 1-based `start`. A start below 1 counts as 1.
Text Mid(TextView text, Pos start, Pos count);

/// Index (from 0) of the first `what` at or after `start`; npos when there is none. As find, and
/// several times as fast where the first character of `what` is rare in `text`.
std::size_t FindRare(TextView text, TextView what, std::size_t start = 0);

/// 1-based position of the first `what` at or after `start`; 0 when there is none or `start` lies
/// behind the text. An empty `what` is found at `start` itself.
Pos InStr(Pos start, TextView text, TextView what);

/// 1-based position of the first `what` in `text`; 0 when there is none.
Pos InStr(TextView text, TextView what);

/// 1-based position of the last `what`; 0 when there is none.
Pos InStrRev(TextView text, TextView what);

/// Without the blanks (U+0020 only, never tabs or line ends) at both ends.
Text Trim(TextView text);
/// The same without a copy.
TextView Trimmed(TextView text);
void TrimInPlace(Text& text);

/// Every `from` replaced by `to`, left to right, never looking into what was put. An empty `from`
/// changes nothing.
Text Replace(TextView text, TextView from, TextView to);

/// The first `count` occurrences only.
Text Replace(TextView text, TextView from, TextView to, Pos count);

/// Replace repeated until no `from` is left. `to` must be shorter than `from`.
Text Collapse(TextView text, TextView from, TextView to);

/// True when `text` starts with (ends in) `part`, exactly.
bool StartsWith(TextView text, TextView part);
bool EndsWith(TextView text, TextView part);

/// True when `text` is not empty and every character is one of "0" to "9".
bool IsAllDigits(TextView text);
bool IsAllDigits(BytesView text);

/// ASCII literal or code to Text, for numbers and table entries. Each char becomes one character.
Text FromAscii(BytesView ascii);

/// A whole number in plain decimal, without grouping, whatever the locale.
Text NumberText(long long value);

/// A number in plain decimal with "." as the decimal point, at most `decimals` digits behind it and
/// no trailing zeros: 12.5 gives "12.5", 3.0 gives "3".
Text NumberText(double value, int decimals);

/// The number a text starts with, as its integer part: blanks in front are skipped, "7.9x" gives 7,
/// a text without a number gives 0. A value beyond the range is the end of the range.
long long IntegerPart(TextView text);

/// True when the whole text (blanks around it aside) is one decimal number such as "-3" or "2.5".
bool IsNumber(TextView text);

}  // namespace mdlPLM
