#include "core/text/language.h"

#include <string_view>

namespace mdlPLM {

namespace {

Text AsWritten(std::string_view own) { return Text(own.begin(), own.end()); }

}  // namespace

Text Language::operator()(const char* own, std::initializer_list<TextView> values) const {
    const Text words = find_ ? find_(own) : AsWritten(own);
    Text filled;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::size_t value = i + 1 < words.size() ? words[i + 1] - std::size_t{u'1'} : 0;
        if (words[i] != u'%' || i + 1 == words.size() || value >= values.size()) {
            filled += words[i];
        } else {
            filled += values.begin()[value];
            ++i;
        }
    }
    return filled;
}

}  // namespace mdlPLM
