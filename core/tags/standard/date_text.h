// Dates in frames: one of ID3v2.4 ("1999-05-17T20:15", ID3v2.4.0, section 4), parts of their own in
// ID3v2.3 (ID3v2.3.0, section 4.2.1, "TYER", "TDAT" and "TIME").
#pragma once

#include "core/text/text.h"

namespace mdlPLM::standard {

struct DateParts {
    Text Year;  ///< "1999"
    Text Day;   ///< "1705": day and month
    Text Time;  ///< "2015"
};

/// The date of its parts: "1999", "1999-05-17" or "1999-05-17T20:15". A year that is no number of
/// four digits stands alone; parts that are no day and no time do not count.
Text JoinDate(const DateParts& parts);

/// The mirror. A text that does not begin with a year of four digits is all in `Year`; what cannot
/// be told in parts, such as a month alone, is left out.
DateParts SplitDate(TextView date);

/// The four digits that a date begins with; the whole text when it does not begin so.
Text YearOf(TextView date);

/// True for four digits.
bool IsYear(TextView text);

}  // namespace mdlPLM::standard
