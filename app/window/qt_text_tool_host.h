// What the name-from-text window needs of the main window, made of the main window's own pieces.
#pragma once

#include <functional>

#include "app/shared/app_context.h"
#include "app/shared/name_from_text_host.h"

namespace mdlPLM {

/// The main window's side of NameFromTextHost: its controls are asked at the moment of the call.
class TextToolHost : public NameFromTextHost {
public:
    struct Controls {
        std::function<Text()> InPattern;
        std::function<Text()> OutPattern;
        std::function<bool()> chkConvert;
        std::function<IfExists()> ExistsChoice;
        std::function<void()> RunBegins;  ///< files are about to be renamed and written
        std::function<void()> RunEnds;
    };
    /// `context` must outlive the host.
    TextToolHost(AppContext& context, Controls controls);

    [[nodiscard]] Text InPattern() const override { return controls_.InPattern(); }
    [[nodiscard]] Text OutPattern() const override { return controls_.OutPattern(); }
    [[nodiscard]] bool chkConvert() const override { return controls_.chkConvert(); }
    [[nodiscard]] IfExists ExistsChoice() const override { return controls_.ExistsChoice(); }
    std::optional<Text> EditName(QWidget* parent, TextView name) override;
    std::unique_ptr<RunProgressWindow> OpenProgress(QWidget* parent) override;
    std::unique_ptr<FileGathering> GatherFiles(std::vector<Text> dropped) override;
    [[nodiscard]] Text LastSourceFolder() const override { return lastSourceFolder_; }
    void SetLastSourceFolder(TextView folder) override { lastSourceFolder_ = folder; }

private:
    AppContext& context_;
    Controls controls_;
    Text lastSourceFolder_;
};

}  // namespace mdlPLM
