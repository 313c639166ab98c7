#include "core/text/language.h"

#include "core/text/code_page.h"

namespace mdlPLM {

Text Language::operator()(const char* own, std::initializer_list<TextView> values) const {
    const Text words = find_ ? find_(own) : FromUtf8(own);
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

Text Language::operator()(TextView own, std::initializer_list<TextView> values) const {
    return operator()(ToUtf8(own).c_str(), values);
}

}  // namespace mdlPLM
