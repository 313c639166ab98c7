#include "app/shared/qt_left_overs_text.h"

#include <QStringList>

#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

constexpr std::size_t MostNamed = 3;  // a status line is short

QString RemovedText(const std::vector<Text>& removed) {
    QStringList names;
    for (const Text& path : removed)
        if (names.size() < static_cast<qsizetype>(MostNamed)) names << ToQt(path);
    const Language words = UserLanguage();
    if (removed.size() > MostNamed) {
        const Text more = NumberText(static_cast<long long>(removed.size() - MostNamed));
        names << ToQt(words(PLM_TRANSLATE("Texts", "and %1 more"), {more}));
    }
    return ToQt(
        words(PLM_TRANSLATE("Texts", "left behind by a run that was ended, and removed: %1"),
              {FromQt(names.join(QStringLiteral(", ")))}));
}

}  // namespace

QString WithRemovedLeftOvers(const QString& result, AppContext& context) {
    if (context.LeftBehind == nullptr) return result;
    const std::vector<Text> removed = context.LeftBehind->TakeRemoved();
    if (removed.empty()) return result;
    const QString text = RemovedText(removed);
    return result.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(result, text);
}

}  // namespace mdlPLM
