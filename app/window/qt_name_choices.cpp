#include "app/window/qt_name_choices.h"

#include "app/shared/qt_entry_filter.h"
#include "app/shared/qt_text.h"
#include "core/names/patterns.h"
#include "core/settings/user_lists.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

NameChoices::NameChoices(const AppContext& context, const Ui::frmPLM& controls)
    : context_(context), controls_(controls) {
    FillPatterns();
    FilterEntry(*controls_.cmbInPattern->lineEdit(), IsForbiddenInInPattern);
    FilterEntry(*controls_.cmbOutPattern->lineEdit(), IsForbiddenInOutPattern);
}

void NameChoices::FillPatterns() {
    for (const Text& pattern : LoadInPatterns(context_.ListsFolder))
        controls_.cmbInPattern->addItem(ToQt(pattern));
    for (const Text& pattern : LoadOutPatterns(context_.ListsFolder))
        controls_.cmbOutPattern->addItem(ToQt(pattern));
    for (QComboBox* box : {controls_.cmbInPattern, controls_.cmbOutPattern}) {
        box->setCompleter(nullptr);  // a pattern that begins like another one is not that one
        box->setCurrentIndex(-1);    // the pattern in force need not be one of the list
    }
}

Text NameChoices::InPattern() const { return FromQt(controls_.cmbInPattern->currentText()); }

Text NameChoices::OutPattern() const { return FromQt(controls_.cmbOutPattern->currentText()); }

bool NameChoices::PreviewShown() const { return controls_.chkPreview->isChecked(); }

NameMaker NameChoices::Maker() const {
    const Text inPattern = InPattern();
    return {{context_.Values, context_.Replacements, inPattern}, OutPattern()};
}

}  // namespace mdlPLM
