#include "core/tags/standard/date_text.h"

#include <algorithm>

namespace mdlPLM::standard {

namespace {

constexpr std::size_t YearSize = 4;
constexpr std::size_t PartSize = 4;
constexpr TextView DayForm = u"0000-00-00";
constexpr TextView TimeForm = u"0000-00-00T00:00";

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// "0" in a form stands for any digit.
bool HasForm(TextView text, TextView form) {
    const auto fits = [](char16_t c, char16_t wanted) {
        return wanted == u'0' ? IsDigit(c) : c == wanted;
    };
    return text.size() >= form.size() &&
           std::equal(form.begin(), form.end(), text.begin(),
                      [&](char16_t w, char16_t c) { return fits(c, w); });
}

bool IsPart(TextView text) { return text.size() == PartSize && IsAllDigits(text); }

}  // namespace

bool IsYear(TextView text) { return text.size() == YearSize && IsAllDigits(text); }

Text JoinDate(const DateParts& parts) {
    Text date = parts.Year;
    if (!IsYear(date) || !IsPart(parts.Day)) return date;
    date += u"-" + parts.Day.substr(2) + u"-" + parts.Day.substr(0, 2);
    if (IsPart(parts.Time)) date += u"T" + parts.Time.substr(0, 2) + u":" + parts.Time.substr(2);
    return date;
}

DateParts SplitDate(TextView date) {
    DateParts parts;
    parts.Year = YearOf(date);
    if (HasForm(date, DayForm)) {
        parts.Day = Text(date.substr(8, 2)).append(date.substr(5, 2));
        if (HasForm(date, TimeForm))
            parts.Time = Text(date.substr(11, 2)).append(date.substr(14, 2));
    }
    return parts;
}

Text YearOf(TextView date) {
    const bool year = date.size() > YearSize ? !IsDigit(date[YearSize]) : true;
    return Text(year && IsYear(date.substr(0, YearSize)) ? date.substr(0, YearSize) : date);
}

}  // namespace mdlPLM::standard
