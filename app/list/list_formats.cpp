#include "app/list/list_formats.h"

#include <algorithm>
#include <iterator>

#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

Text Pattern(const ListFormat& format) { return u"*" + Text(format.Ending); }

void AppendFilter(Text& filters, TextView label, TextView patterns) {
    if (!filters.empty()) filters.append(u"|");
    filters.append(label).append(u"(").append(patterns).append(u")|").append(patterns);
}

}  // namespace

ListFileKind KindOfListFile(TextView path, ListFormatRows formats) {
    const auto found = std::find_if(formats.begin(), formats.end(), [&](const ListFormat& format) {
        return LCase(Right(path, static_cast<Pos>(format.Ending.size()))) == format.Ending;
    });
    return found == formats.end() ? ListFileKind::Other : found->Kind;
}

bool IsWritten(const ListFormat& format) { return !format.SaveLabel.empty(); }

std::vector<ListFormat> WrittenFormats(ListFormatRows formats) {
    std::vector<ListFormat> written;
    std::copy_if(formats.begin(), formats.end(), std::back_inserter(written), IsWritten);
    return written;
}

Text EndingsInWords(ListFormatRows formats, TextView lastWord) {
    Text words;
    for (std::size_t i = 0; i < formats.size(); ++i) {
        const bool last = i + 1 == formats.size();
        if (i > 0) words.append(last ? u" " + Text(lastWord) + u" " : Text(u", "));
        words.append(formats[i].Ending);
    }
    return words;
}

Text AddFilesFilter(ListFormatRows formats) {
    Text patterns;
    for (const ListFormat& format : formats)
        patterns.append(patterns.empty() ? u"" : u";").append(Pattern(format));
    Text filters;
    AppendFilter(filters, u"MP3 Files ", u"*.mp3;*.mp2");
    AppendFilter(filters, u"Playlists ", patterns);
    AppendFilter(filters, u"All Files ", u"*.*");
    return filters;
}

Text LoadListFilter(ListFormatRows formats) {
    Text filters;
    for (const ListFormat& format : formats)
        AppendFilter(filters, format.LoadLabel, Pattern(format));
    return filters;
}

Text SaveListFilter(ListFormatRows formats) {
    Text filters;
    for (const ListFormat& format : WrittenFormats(formats))
        AppendFilter(filters, format.SaveLabel, Pattern(format));
    return filters;
}

ListFileKind KindOfSaveFilter(int index) {
    const std::vector<ListFormat> written = WrittenFormats();
    const auto last = static_cast<int>(written.size());
    return written[static_cast<std::size_t>(std::clamp(index, 1, last) - 1)].Kind;
}

}  // namespace mdlPLM
