// What new names are made with: the two patterns, and whether new names are shown at all.
#pragma once

#include "app/list/list_tasks.h"
#include "app/shared/app_context.h"

namespace mdlPLM {

namespace Ui {
class frmPLM;
}

class NameChoices {
public:
    /// Fills the pattern boxes with the user's patterns. Both outlive it.
    NameChoices(const AppContext& context, const Ui::frmPLM& controls);

    [[nodiscard]] Text InPattern() const;
    [[nodiscard]] Text OutPattern() const;
    [[nodiscard]] bool PreviewShown() const;
    /// Makes names with the choices of this moment.
    [[nodiscard]] NameMaker Maker() const;

private:
    void FillPatterns();

    const AppContext& context_;
    const Ui::frmPLM& controls_;
};

}  // namespace mdlPLM
